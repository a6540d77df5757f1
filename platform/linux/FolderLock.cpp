#include "platform/linux/FolderLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

namespace tabulon {

FolderLock::FolderLock(const std::string& folder, std::chrono::milliseconds patience)
    : descriptor_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (descriptor_ < 0)
        return;
    constexpr std::chrono::milliseconds kPause{5};
    const auto end = std::chrono::steady_clock::now() + patience;
    while (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            return;
        if (std::chrono::steady_clock::now() >= end) {
            state_ = State::Busy;
            return;
        }
        std::this_thread::sleep_for(kPause);
    }
    state_ = State::Held;
}

FolderLock::~FolderLock() {
    if (descriptor_ >= 0)
        ::close(descriptor_);
}

} // namespace tabulon
