// Reading and atomic writing of whole files. The layers above read and write files only by this interface, so
// that tests can simulate a full disk or a missing folder. The searches for browsers' files and for recovery
// folders have interfaces of their own.
#pragma once

#include "base/Error.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// The identity and state of a file at one time. Two values differ if the file was replaced or changed
/// between them.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    /// In bytes.
    std::uint64_t size = 0;
    /// The last change, in nanoseconds since 1970-01-01 00:00 UTC.
    std::int64_t modified = 0;

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// The kind of the object at a path, after symbolic links.
enum class PathKind {
    Nothing, ///< does not exist, or the user has no access to it
    File,
    Folder,
    Other, ///< a device, a pipe or a socket: reading it may never end
};

/// Paths are in the file system's encoding. Errors have ErrorDomain::Posix, errno as their code, and a
/// sentence that names the file. All operations block the calling thread.
class FileStore {
public:
    virtual ~FileStore() = default;

    /// Returns the whole content of the file at `path`. Symbolic links are followed. Fails with EFBIG for a
    /// file above the limit of the store. A pipe or a device is refused with ENODEV or read to its end, which
    /// may take very long; an endless one fails with EFBIG.
    virtual Result<std::string> readFile(const std::string& path) = 0;

    /// Returns the first `size` bytes of the content, or all of it if it is shorter. Fails like `readFile`,
    /// but not because of the size of the file. May take memory for `size` bytes, also for a shorter file.
    virtual Result<std::string> readBeginning(const std::string& path, std::size_t size) = 0;

    /// Replaces the content of the file at `path`, or makes the file. After a failure the old file is
    /// unchanged and there is no temporary file.
    ///
    /// The bytes are written to a temporary file in the same folder, flushed to the disk, and renamed to the
    /// old file. The new file has the permissions, access control list and extended attributes of the old
    /// one, and its owner and group if the system allows it. If not, no user has more access than before. A
    /// file that did not exist has the permissions of new files of the process. Missing folders are not made.
    ///
    /// A symbolic link of this user or of the system is followed to its target, which need not exist. A link
    /// of another user is refused with EPERM. A device or a pipe is refused with ENODEV, or the bytes are
    /// written to it.
    virtual Result<void> writeFileAtomically(const std::string& path, std::string_view bytes) = 0;

    /// Does the same as `writeFileAtomically`, but follows the symbolic links of every user. For a file that
    /// was opened by this path.
    virtual Result<void> writeBack(const std::string& path, std::string_view bytes) {
        return writeFileAtomically(path, bytes);
    }

    /// Returns true if there is a file, folder or other object at `path`, after symbolic links.
    virtual bool fileExists(const std::string& path) = 0;

    /// Returns the kind of the object at `path`, after symbolic links.
    virtual PathKind kindOf(const std::string& path) = 0;

    /// Returns the current identity of the file at `path`, after symbolic links. Returns `nullopt` if it does
    /// not exist or the user has no access to it.
    virtual std::optional<FileIdentity> identityOf(const std::string& path) = 0;

    /// Makes a copy of the file at `from`, atomically like `writeFileAtomically`. The copy has the
    /// permissions of the original, so that no other user can read more than before. A symbolic link at `to`
    /// is replaced, not followed. Fails like `readFile` for `from`, also because of its size.
    virtual Result<void> copyFile(const std::string& from, const std::string& to) = 0;

    /// Removes the file at `path`. Does nothing if there is none. A symbolic link is removed itself. Fails
    /// for a folder.
    virtual Result<void> removeFile(const std::string& path) = 0;

    /// Makes the folder at `path` and missing folders above it. Only the user can read a folder that is made
    /// here. Does nothing if the folder exists, and fails if another object exists at `path`. After a failure
    /// some of the folders above may have been made.
    virtual Result<void> makeFolder(const std::string& path) = 0;

    /// Returns the names of the entries of a folder, sorted by their bytes; empty if it cannot be read. An
    /// entry of the disk may be a folder too.
    virtual std::vector<std::string> namesInFolder(const std::string& path) = 0;
};

/// Returns true if both paths name the same file, after symbolic links. If a file does not exist, compares
/// the paths byte by byte.
bool isSameFile(FileStore& files, const std::string& a, const std::string& b);

} // namespace tabulon
