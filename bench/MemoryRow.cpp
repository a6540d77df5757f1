// The memory of an opened document: the difference between the memory of a process after opening it and
// before. The bytes of the file are mapped and do not count. The tree, the allocator's gaps and all memory
// that the reader retains count.
#include "bench/Measure.h"
#include "bench/Rows.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

namespace tabulon::bench {

Row memoryRow(const Sample& sample, const Effort& effort) {
    const TemporaryFile file(".tbln", sample.archive);
    const std::string output =
        outputOf(fmt::format("MIMALLOC_RESET_DELAY=0 /proc/{}/exe --memory-of '{}'", getpid(), file.path()));
    const double bytes = std::strtod(output.c_str(), nullptr);
    require(bytes > static_cast<double>(sample.size.textBytes),
            "the memory of a document could not be measured");

    const double nodes = static_cast<double>(sample.size.nodes);
    const double perNode = (bytes - static_cast<double>(sample.size.textBytes)) / nodes;
    return {
        "memory of an opened document, per node",
        fmt::format("{:.0f} bytes", perNode),
        fmt::format("besides its texts ({:.0f} bytes)", static_cast<double>(sample.size.textBytes) / nodes),
        "",
        "200 bytes",
        verdict(effort, perNode <= 200)};
}

int printMemoryOfDocument(const char* path) {
    const int descriptor = open(path, O_RDONLY | O_CLOEXEC);
    struct stat status {};
    require(descriptor >= 0 && fstat(descriptor, &status) == 0, "the document could not be opened");
    const std::size_t size = static_cast<std::size_t>(status.st_size);
    void* bytes = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
    require(bytes != MAP_FAILED, "the document could not be mapped");

    const std::size_t before = residentAnonymousBytes();
    const Ref<Bookmark> tree = opened({static_cast<const char*>(bytes), size});
    const std::size_t after = residentAnonymousBytes();
    fmt::print("{}\n", after - before);
    return tree->hasChildren() ? 0 : 1;
}

} // namespace tabulon::bench
