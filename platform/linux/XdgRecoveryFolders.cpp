#include "platform/linux/XdgRecoveryFolders.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

namespace tabulon {
namespace fs = std::filesystem;

XdgRecoveryFolders::XdgRecoveryFolders(std::string parent) : parent_(std::move(parent)) {}

XdgRecoveryFolders::~XdgRecoveryFolders() {
    std::error_code notEmpty;
    for (const Held& held : held_)
        fs::remove(held.path, notEmpty);
}

Result<std::string> XdgRecoveryFolders::ownFolder() {
    std::error_code gone;
    if (!own_.empty() && fs::is_directory(own_, gone))
        return own_;
    return makeOwn();
}

Result<std::string> XdgRecoveryFolders::makeOwn() {
    const auto failed = [this] {
        return failure("The folder “" + parent_ +
                           "” for unsaved documents cannot be used: " + std::strerror(errno) + ".",
                       ErrorDomain::Posix, errno);
    };
    std::error_code error;
    fs::create_directories(parent_, error);
    fs::permissions(parent_, fs::perms::owner_all, error);
    // Another run may adopt a new folder before it is locked here.
    for (int attempt = 0; attempt < 3; ++attempt) {
        std::string path = parent_ + "/run-XXXXXX";
        if (!mkdtemp(path.data()))
            return failed();
        auto lock = std::make_unique<FolderLock>(path);
        if (lock->isBusy())
            continue;
        held_.push_back({path, std::move(lock)});
        return own_ = path;
    }
    errno = EBUSY;
    return failed();
}

std::vector<std::string> XdgRecoveryFolders::adoptAbandonedFolders() {
    std::vector<std::string> adopted;
    std::error_code unreadable;
    for (fs::directory_iterator entry(parent_, unreadable), end; !unreadable && entry != end;
         entry.increment(unreadable)) {
        const std::string path = entry->path().string();
        const bool mine = std::ranges::any_of(held_, [&](const Held& held) { return held.path == path; });
        std::error_code gone;
        if (mine || !entry->is_directory(gone))
            continue;
        auto lock = std::make_unique<FolderLock>(path, std::chrono::milliseconds(0));
        if (!lock->isHeld())
            continue;
        held_.push_back({path, std::move(lock)});
        adopted.push_back(path);
    }
    std::ranges::sort(adopted);
    return adopted;
}

} // namespace tabulon
