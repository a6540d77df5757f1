// Files as the program needs them: read whole, written whole or not at all. Everything that touches the disk
// goes through here, so that a test can fill the disk or take a folder away.
#pragma once

#include "base/Error.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// What tells one state of a file from another: which file it is, and how it was when someone looked.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;
    /// Nanoseconds since 1970-01-01 00:00 UTC.
    std::int64_t modified = 0;

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// What a path leads to, symbolic links followed.
enum class PathKind {
    Nothing, ///< not there, or hidden from the user
    File,
    Folder,
    Other, ///< a device, a pipe or a socket: reading it may never end
};

class FileStore {
public:
    virtual ~FileStore() = default;

    /// The whole content of the file at `path`, which is in the file system's encoding. A pipe or a device is
    /// refused, or read to its end, which may be long in coming; one that gives ever more fails with EFBIG.
    /// Fails with errno and a sentence that names the file.
    virtual Result<std::string> readFile(const std::string& path) = 0;

    /// The first `size` bytes of that content, or all of it where there are no more. Fails like `readFile`,
    /// but not because the rest is too much.
    virtual Result<std::string> readBeginning(const std::string& path, std::size_t size) = 0;

    /// Replaces the file at `path`, or makes it: the bytes go to a temporary file in the same folder, are
    /// flushed to the disk and renamed over the old file, whose permissions, access control list and extended
    /// attributes they keep, and its owner and group, where the system allows it; where it does not, nobody
    /// may do more with it than before. A symbolic link of this user or of the system's is followed to its
    /// target, which need not be there; one of another user is refused. A device or a pipe is written into or
    /// refused. On failure the old file is untouched and no temporary file stays; the error has errno and a
    /// sentence that names the file.
    virtual Result<void> writeFileAtomically(const std::string& path, std::string_view bytes) = 0;

    /// The same for the file that was opened by this path: a link is followed to it whomever it belongs to.
    virtual Result<void> writeBack(const std::string& path, std::string_view bytes) {
        return writeFileAtomically(path, bytes);
    }

    virtual bool fileExists(const std::string& path) = 0;

    virtual PathKind kindOf(const std::string& path) = 0;

    /// How the file at `path` is now, symbolic links followed; nothing when there is none or it cannot be
    /// looked at.
    virtual std::optional<FileIdentity> identityOf(const std::string& path) = 0;

    /// Makes a copy of the file at `from`, with the care of `writeFileAtomically` and the access of the
    /// original, so that what others must not read stays so. A symbolic link at `to` is replaced, not
    /// followed.
    virtual Result<void> copyFile(const std::string& from, const std::string& to) = 0;

    /// Removes the file at `path`; no error when there is none.
    virtual Result<void> removeFile(const std::string& path) = 0;

    /// Makes the folder and those above it that are missing; readable by the user alone where it makes them.
    virtual Result<void> makeFolder(const std::string& path) = 0;

    /// The names of the files in a folder, sorted; empty when it cannot be read.
    virtual std::vector<std::string> namesInFolder(const std::string& path) = 0;
};

/// True when both paths lead to one file, whatever they are spelled like and whatever links are in between.
/// Of files that are not there it can only compare the spelling.
bool isSameFile(FileStore& files, const std::string& a, const std::string& b);

} // namespace tabulon
