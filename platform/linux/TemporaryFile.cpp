#include "platform/linux/TemporaryFile.h"

#include <fcntl.h>
#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace tabulon {
namespace {

bool canGiveNames() {
    return ::access("/proc/self/fd", X_OK) == 0;
}

} // namespace

TemporaryFile::TemporaryFile(const std::string& folder, Name name)
    : name_(folder + "/.tabulon-XXXXXX"),
      descriptor_(name == Name::AtLast && canGiveNames()
                      ? ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600)
                      : -1) {
    if (!descriptor_.isOpen()) {
        descriptor_.reset(::mkostemp(name_.data(), O_CLOEXEC));
        hasName_ = descriptor_.isOpen();
    }
}

TemporaryFile::~TemporaryFile() {
    if (hasName_)
        ::unlink(name_.c_str());
}

int TemporaryFile::rename(const std::string& path) {
    if (::rename(name_.c_str(), path.c_str()) != 0)
        return errno;
    hasName_ = false;
    return 0;
}

int TemporaryFile::giveName() {
    const std::string self = fmt::format("/proc/self/fd/{}", descriptor_.get());
    const std::size_t stem = name_.size() - std::string_view("XXXXXX").size();
    for (int number = 0; !hasName_; ++number) {
        name_ = fmt::format("{}{}-{}", name_.substr(0, stem), ::getpid(), number);
        hasName_ = ::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name_.c_str(), AT_SYMLINK_FOLLOW) == 0;
        if (!hasName_ && errno != EEXIST)
            return errno;
    }
    return 0;
}

} // namespace tabulon
