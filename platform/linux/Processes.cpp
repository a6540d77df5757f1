#include "platform/linux/Processes.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <system_error>

namespace tabulon {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kDeleted = " (deleted)"; // the program was updated while it runs

} // namespace

std::string programOfProcess(unsigned pid) {
    std::error_code problem;
    std::string name = fs::read_symlink("/proc/" + std::to_string(pid) + "/exe", problem).filename().string();
    if (name.ends_with(kDeleted))
        name.resize(name.size() - kDeleted.size());
    return name;
}

bool isProgramRunning(std::span<const std::string_view> programs) {
    std::error_code problem;
    for (fs::directory_iterator entry("/proc", problem); !problem && entry != fs::directory_iterator();
         entry.increment(problem)) {
        const std::string name = entry->path().filename().string();
        unsigned pid = 0;
        const auto read = std::from_chars(name.data(), name.data() + name.size(), pid);
        if (read.ec != std::errc() || read.ptr != name.data() + name.size())
            continue;
        const std::string program = programOfProcess(pid);
        if (!program.empty() && std::ranges::find(programs, program) != programs.end())
            return true;
    }
    return false;
}

} // namespace tabulon
