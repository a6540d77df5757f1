// Runs a fuzz target over the files of a corpus folder, and over truncated and damaged versions of each. This
// is the ordinary test of the target where libFuzzer is not available.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void runOn(const std::string& bytes) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

void runOnDamaged(const std::string& bytes, std::mt19937& random) {
    if (bytes.empty())
        return;
    for (int i = 0; i < 200; ++i)
        runOn(bytes.substr(0, random() % bytes.size()));
    for (int i = 0; i < 500; ++i) {
        std::string damaged = bytes;
        for (unsigned changes = 1 + random() % 4; changes > 0; --changes)
            damaged[random() % damaged.size()] = static_cast<char>(random());
        runOn(damaged);
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s CORPUS-FOLDER\n", argv[0]);
        return 2;
    }
    constexpr std::uintmax_t kLargestDamaged = 64 * 1024;
    std::mt19937 random(20010101);
    int files = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[1])) {
        if (!entry.is_regular_file())
            continue;
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        runOn(bytes);
        if (bytes.size() <= kLargestDamaged)
            runOnDamaged(bytes, random);
        ++files;
    }
    std::printf("%d corpus files\n", files);
    return files > 0 ? 0 : 1;
}
