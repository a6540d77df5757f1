#include "platform/linux/FileReading.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace tabulon {
namespace {

// Reads into `bytes` from index `filled` on, until they are full or the file ends. Returns 0, or errno.
int readInto(int descriptor, std::string& bytes, std::size_t& filled) {
    while (filled < bytes.size()) {
        const ssize_t got = ::read(descriptor, bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return errno;
        if (got == 0)
            break;
        filled += static_cast<std::size_t>(got);
    }
    return 0;
}

} // namespace

int readAll(int descriptor, std::string& bytes, const ReadLimits& limits) {
    constexpr std::size_t kStep = std::size_t{1} << 16;
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0)
        return errno;
    const bool isFile = S_ISREG(status.st_mode);
    if (isFile && static_cast<std::size_t>(status.st_size) > limits.file)
        return EFBIG;
    // The files of /proc report size 0.
    const std::size_t most = S_ISCHR(status.st_mode)        ? limits.device
                             : isFile && status.st_size > 0 ? limits.file
                                                            : limits.pipe;
    // With one byte more than the size, the end is found without growing.
    bytes.resize(isFile && status.st_size > 0 ? static_cast<std::size_t>(status.st_size) + 1 : kStep);
    std::size_t filled = 0;
    while (true) {
        if (const int code = readInto(descriptor, bytes, filled); code != 0)
            return code;
        if (filled < bytes.size())
            break;
        if (filled >= most)
            return EFBIG;
        bytes.resize(bytes.size() * 2);
    }
    bytes.resize(filled);
    return 0;
}

int readSome(int descriptor, std::string& bytes, std::size_t size) {
    bytes.resize(size);
    std::size_t filled = 0;
    const int code = readInto(descriptor, bytes, filled);
    bytes.resize(filled);
    return code;
}

} // namespace tabulon
