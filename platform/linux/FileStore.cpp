#include "platform/linux/FileStore.h"

#include "model/Text.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace tabulon {
namespace {

// An open file that closes itself.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }
    void reset(int number) {
        if (number_ >= 0)
            ::close(number_);
        number_ = number;
    }
    int get() const { return number_; }
    bool isOpen() const { return number_ >= 0; }

private:
    int number_;
};

std::string reason(int code) {
    return std::generic_category().message(code);
}

tl::unexpected<Error> problem(std::string_view what, const std::string& path, int code) {
    return failure(fmt::format("{} “{}”: {}.", what, decodeUtf8Leniently(path), reason(code)),
                   ErrorDomain::Posix, code);
}

// Gives errno, 0 when everything was written.
int writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return errno;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

// Gives errno, 0 at the end of the file, EFBIG where there is too much: what does not tell its size may have
// no end.
int readAll(int descriptor, std::string& bytes, const ReadLimits& limits) {
    constexpr std::size_t kStep = std::size_t{1} << 16;
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0)
        return errno;
    const bool isFile = S_ISREG(status.st_mode);
    if (isFile && static_cast<std::size_t>(status.st_size) > limits.file)
        return EFBIG;
    const std::size_t most = S_ISCHR(status.st_mode) ? limits.device : limits.pipe;
    // One byte more than the size, so that the end is seen without growing.
    bytes.resize(isFile && status.st_size > 0 ? static_cast<std::size_t>(status.st_size) + 1 : kStep);
    std::size_t filled = 0;
    while (true) {
        if (filled == bytes.size()) {
            if (!isFile && filled >= most)
                return EFBIG;
            bytes.resize(bytes.size() * 2);
        }
        const ssize_t got = ::read(descriptor, bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return errno;
        if (got == 0)
            break;
        filled += static_cast<std::size_t>(got);
    }
    bytes.resize(filled);
    return 0;
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// The file that a chain of symbolic links leads to, also when that file is not there yet; the path itself
// when there is no link.
std::string target(const std::string& path) {
    constexpr int kMostLinks = 40;
    std::string file = path;
    char buffer[PATH_MAX];
    for (int link = 0; link < kMostLinks; ++link) {
        if (::realpath(file.c_str(), buffer))
            return buffer;
        const ssize_t size = ::readlink(file.c_str(), buffer, sizeof buffer);
        if (size <= 0)
            return file;
        const std::string_view next(buffer, static_cast<std::size_t>(size));
        file = next.starts_with('/') ? std::string(next) : fmt::format("{}/{}", folderOf(file), next);
    }
    return path;
}

constexpr mode_t kPermissions = 07777;

// What a file is written with when there is none yet at its path.
mode_t modeOfNewFiles() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

// Gives the new file to whom the old one belonged, as far as the system allows it: without the right to give
// it away it stays the writer's own, but may still be that of the old one's group.
void takeOwner(int descriptor, const struct stat& old) {
    if (::fchown(descriptor, old.st_uid, old.st_gid) != 0) {
        constexpr auto kSameOwner = static_cast<uid_t>(-1);
        [[maybe_unused]] const int ignored = ::fchown(descriptor, kSameOwner, old.st_gid);
    }
}

// The file that is filled before it takes the place of another. It has no name at first where the file system
// can do that, so that a program that is killed leaves nothing behind.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& folder)
        : name_(folder + "/.tabulon-XXXXXX"),
          descriptor_(canGiveNames() ? ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600) : -1) {
        if (!descriptor_.isOpen()) {
            descriptor_.reset(::mkostemp(name_.data(), O_CLOEXEC));
            hasName_ = descriptor_.isOpen();
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (hasName_)
            ::unlink(name_.c_str());
    }

    int descriptor() const { return descriptor_.get(); }
    bool isOpen() const { return descriptor_.isOpen(); }

    // Takes the place of the file at `path`. Gives errno.
    int rename(const std::string& path) {
        if (const int code = hasName_ ? 0 : giveName(); code != 0)
            return code;
        if (::rename(name_.c_str(), path.c_str()) != 0)
            return errno;
        hasName_ = false;
        return 0;
    }

private:
    static bool canGiveNames() { return ::access("/proc/self/fd", X_OK) == 0; }

    int giveName() {
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

    std::string name_;
    Descriptor descriptor_;
    bool hasName_ = false;
};

// Fills the temporary file and puts it in the place of `path`; `mode` is for a file that is new there. Gives
// errno.
int fillAndRename(TemporaryFile& temporary, const std::string& path, std::string_view bytes, mode_t mode) {
    const int descriptor = temporary.descriptor();
    if (const int code = writeAll(descriptor, bytes); code != 0)
        return code;
    struct stat old = {};
    if (::stat(path.c_str(), &old) == 0) {
        takeOwner(descriptor, old);
        mode = old.st_mode & kPermissions;
    }
    if (::fchmod(descriptor, mode) != 0 || ::fsync(descriptor) != 0)
        return errno;
    return temporary.rename(path);
}

void flushFolder(const std::string& folder) {
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isOpen())
        ::fsync(descriptor.get());
}

// A device or a pipe: there is nothing to replace.
Result<void> writeInto(const std::string& path, std::string_view bytes) {
    const Descriptor descriptor(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    const int code = descriptor.isOpen() ? writeAll(descriptor.get(), bytes) : errno;
    if (code != 0)
        return problem("Cannot write", path, code);
    return {};
}

Result<void> replaceFile(const std::string& path, std::string_view bytes, mode_t modeWhenNew) {
    const std::string file = target(path);
    struct stat status = {};
    if (::stat(file.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
        return S_ISDIR(status.st_mode) ? problem("Cannot write", path, EISDIR) : writeInto(path, bytes);
    const std::string folder = folderOf(file);
    TemporaryFile temporary(folder);
    if (!temporary.isOpen())
        return problem("Cannot write", path, errno);
    if (const int code = fillAndRename(temporary, file, bytes, modeWhenNew); code != 0)
        return problem("Cannot write", path, code);
    flushFolder(folder);
    return {};
}

} // namespace

Result<std::string> PosixFileStore::readFile(const std::string& path) {
    const Descriptor descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    std::string bytes;
    const int code = descriptor.isOpen() ? readAll(descriptor.get(), bytes, limits_) : errno;
    if (code != 0)
        return problem("Cannot read", path, code);
    return bytes;
}

Result<void> PosixFileStore::writeFileAtomically(const std::string& path, std::string_view bytes) {
    return replaceFile(path, bytes, modeOfNewFiles());
}

bool PosixFileStore::fileExists(const std::string& path) {
    return ::access(path.c_str(), F_OK) == 0;
}

PathKind PosixFileStore::kindOf(const std::string& path) {
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return PathKind::Nothing;
    if (S_ISREG(status.st_mode))
        return PathKind::File;
    return S_ISDIR(status.st_mode) ? PathKind::Folder : PathKind::Other;
}

std::optional<FileIdentity> PosixFileStore::identityOf(const std::string& path) {
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    constexpr std::int64_t kNanoseconds = 1000000000;
    return FileIdentity{status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
                        status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec};
}

Result<void> PosixFileStore::copyFile(const std::string& from, const std::string& to) {
    const Result<std::string> bytes = readFile(from);
    if (!bytes)
        return tl::unexpected(bytes.error());
    struct stat status = {};
    const bool isKnown = ::stat(from.c_str(), &status) == 0;
    return replaceFile(to, *bytes, isKnown ? status.st_mode & 0777 : modeOfNewFiles());
}

Result<void> PosixFileStore::removeFile(const std::string& path) {
    if (::unlink(path.c_str()) != 0 && errno != ENOENT)
        return problem("Cannot remove", path, errno);
    return {};
}

Result<void> PosixFileStore::makeFolder(const std::string& path) {
    for (std::size_t slash = path.find('/', 1);; slash = path.find('/', slash + 1)) {
        const std::string folder = path.substr(0, slash);
        if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST)
            return problem("Cannot make the folder", folder, errno);
        if (slash == std::string::npos)
            return {};
    }
}

std::vector<std::string> PosixFileStore::namesInFolder(const std::string& path) {
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(path, error), end; !error && entry != end;
         entry.increment(error))
        names.push_back(entry->path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

Result<std::string> readStandardInput() {
    std::string bytes;
    if (const int code = readAll(STDIN_FILENO, bytes, ReadLimits()); code != 0)
        return failure(fmt::format("Cannot read the standard input: {}.", reason(code)), ErrorDomain::Posix,
                       code);
    return bytes;
}

Result<void> writeStandardOutput(std::string_view bytes) {
    if (const int code = writeAll(STDOUT_FILENO, bytes); code != 0)
        return failure(fmt::format("Cannot write the standard output: {}.", reason(code)), ErrorDomain::Posix,
                       code);
    return {};
}

} // namespace tabulon
