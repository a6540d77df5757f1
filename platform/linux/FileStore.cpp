#include "platform/linux/FileStore.h"

#include "base/Utf8.h"
#include "platform/linux/FileAccess.h"
#include "platform/linux/FileReading.h"
#include "platform/linux/TemporaryFile.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <system_error>

namespace tabulon {
namespace {

enum class LinksOfOthers { Followed, Refused };

std::string reason(int code) {
    return std::generic_category().message(code);
}

tl::unexpected<Error> problem(std::string_view what, const std::string& path, int code) {
    return failure(fmt::format("{} “{}”: {}.", what, decodeUtf8Leniently(path), reason(code)),
                   ErrorDomain::Posix, code);
}

// Returns 0 when everything was written, or errno.
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

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// Returns the file to which a chain of symbolic links leads; it need not exist. Returns the path itself where
// it is no link, or the links form a circle. Returns `nullopt` where a link belongs to another user and
// `links` is Refused.
std::optional<std::string> target(const std::string& path, LinksOfOthers links) {
    constexpr int kMostLinks = 40;
    std::string file = path;
    char buffer[PATH_MAX];
    for (int link = 0; link < kMostLinks; ++link) {
        struct stat status = {};
        if (::lstat(file.c_str(), &status) != 0 || !S_ISLNK(status.st_mode))
            return file;
        const bool isTrusted = status.st_uid == ::geteuid() || status.st_uid == 0;
        if (!isTrusted && links == LinksOfOthers::Refused)
            return std::nullopt;
        const ssize_t size = ::readlink(file.c_str(), buffer, sizeof buffer);
        if (size <= 0)
            return file;
        const std::string_view next(buffer, static_cast<std::size_t>(size));
        file = next.starts_with('/') ? std::string(next) : fmt::format("{}/{}", folderOf(file), next);
    }
    return path;
}

// Returns the permissions of a new file.
mode_t modeOfNewFiles() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

// EINVAL: some file systems cannot flush.
int flush(int descriptor) {
    return ::fsync(descriptor) == 0 || errno == EINVAL ? 0 : errno;
}

// Writes the bytes to the file and sets `access` on it, or the permissions of a new file. Returns 0, or
// errno.
int fill(const TemporaryFile& temporary, std::string_view bytes, const std::optional<FileAccess>& access) {
    if (!temporary.isOpen())
        return errno;
    const int descriptor = temporary.descriptor();
    if (const int code = writeAll(descriptor, bytes); code != 0)
        return code;
    if (access)
        takeAccess(descriptor, *access);
    else
        ::fchmod(descriptor, modeOfNewFiles());
    return flush(descriptor);
}

// Replaces `file` by a new file with the bytes. Some systems create a file without a name and refuse to name
// it later; there the bytes are written again. Returns 0, or errno.
int putInPlace(const std::string& file, std::string_view bytes, const std::optional<FileAccess>& access) {
    {
        TemporaryFile temporary(folderOf(file), TemporaryFile::Name::AtLast);
        if (const int code = fill(temporary, bytes, access); code != 0)
            return code;
        if (temporary.giveName() == 0)
            return temporary.rename(file);
    }
    TemporaryFile temporary(folderOf(file), TemporaryFile::Name::AtOnce);
    const int code = fill(temporary, bytes, access);
    return code != 0 ? code : temporary.rename(file);
}

void flushFolder(const std::string& folder) {
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isOpen())
        ::fsync(descriptor.get());
}

tl::unexpected<Error> refusal(std::string_view what, const std::string& path, std::string_view why,
                              int code) {
    return failure(fmt::format("{} “{}”: {}.", what, decodeUtf8Leniently(path), why), ErrorDomain::Posix,
                   code);
}

constexpr std::string_view kIsNoFile = "It is a device or a pipe, not a file";

// Returns the descriptor of this process that a path such as "/dev/stdout" names, or `nullopt`.
std::optional<int> descriptorNamed(std::string_view path) {
    if (path == "/dev/stdout")
        return STDOUT_FILENO;
    if (path == "/dev/stderr")
        return STDERR_FILENO;
    for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
        int number = -1;
        const char* const end = path.data() + path.size();
        if (path.starts_with(folder) &&
            std::from_chars(path.data() + folder.size(), end, number).ptr == end && number >= 0)
            return number;
    }
    return std::nullopt;
}

// Writes to a device or a pipe, which cannot be replaced.
Result<void> writeInto(const std::string& path, std::string_view bytes) {
    const Descriptor descriptor(::open(path.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC));
    const int code = descriptor.isOpen() ? writeAll(descriptor.get(), bytes) : errno;
    if (code != 0)
        return problem("Cannot write", path, code);
    return {};
}

Result<void> writeIntoDescriptor(int descriptor, const std::string& path, std::string_view bytes) {
    if (const int code = writeAll(descriptor, bytes); code != 0)
        return problem("Cannot write", path, code);
    return {};
}

Result<void> replaceFile(const std::string& path, std::string_view bytes, SpecialFiles special,
                         LinksOfOthers links) {
    const bool usesSpecial = special == SpecialFiles::Used;
    if (const auto descriptor = usesSpecial ? descriptorNamed(path) : std::nullopt)
        return writeIntoDescriptor(*descriptor, path, bytes);
    struct stat old = {};
    const bool isThere = ::stat(path.c_str(), &old) == 0;
    if (isThere && S_ISDIR(old.st_mode))
        return problem("Cannot write", path, EISDIR);
    if (isThere && !S_ISREG(old.st_mode))
        return usesSpecial ? writeInto(path, bytes) : refusal("Cannot write", path, kIsNoFile, ENODEV);
    const std::optional<std::string> file = target(path, links);
    if (!file)
        return refusal("Cannot write", path, "It is a link of another user", EPERM);
    const auto access = isThere ? std::optional(accessOf(path, old)) : std::nullopt;
    if (const int code = putInPlace(*file, bytes, access); code != 0)
        return problem("Cannot write", path, code);
    flushFolder(folderOf(*file));
    return {};
}

} // namespace

Result<std::string> PosixFileStore::readFile(const std::string& path) {
    return read(path, std::nullopt);
}

Result<std::string> PosixFileStore::readBeginning(const std::string& path, std::size_t size) {
    return read(path, size);
}

// Reads the whole file where `size` is `nullopt`.
Result<std::string> PosixFileStore::read(const std::string& path, std::optional<std::size_t> size) {
    // Without O_NONBLOCK, opening a pipe waits for its writer.
    const int waiting = special_ == SpecialFiles::Used ? 0 : O_NONBLOCK;
    const Descriptor descriptor(::open(path.c_str(), O_RDONLY | O_NOCTTY | O_CLOEXEC | waiting));
    struct stat status = {};
    const bool isSpecial = descriptor.isOpen() && ::fstat(descriptor.get(), &status) == 0 &&
                           !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
    if (isSpecial && special_ == SpecialFiles::Refused)
        return refusal("Cannot read", path, kIsNoFile, ENODEV);
    std::string bytes;
    int code = errno;
    if (descriptor.isOpen())
        code = size ? readSome(descriptor.get(), bytes, *size) : readAll(descriptor.get(), bytes, limits_);
    if (code != 0)
        return problem("Cannot read", path, code);
    return bytes;
}

Result<void> PosixFileStore::writeFileAtomically(const std::string& path, std::string_view bytes) {
    return replaceFile(path, bytes, special_, LinksOfOthers::Refused);
}

Result<void> PosixFileStore::writeBack(const std::string& path, std::string_view bytes) {
    return replaceFile(path, bytes, special_, LinksOfOthers::Followed);
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
    struct stat original = {};
    if (::stat(from.c_str(), &original) != 0)
        return problem("Cannot read", from, errno);
    struct stat old = {};
    if (::lstat(to.c_str(), &old) == 0 && S_ISDIR(old.st_mode))
        return problem("Cannot write", to, EISDIR);
    if (const int code = putInPlace(to, *bytes, accessOf(from, original)); code != 0)
        return problem("Cannot write", to, code);
    flushFolder(folderOf(to));
    return {};
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
            break;
    }
    if (kindOf(path) != PathKind::Folder)
        return problem("Cannot make the folder", path, ENOTDIR);
    return {};
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
