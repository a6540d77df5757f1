// Files in memory, with the failures of a disk, for tests.
#pragma once

#include "platform/FileStore.h"

#include <functional>
#include <map>
#include <set>
#include <string>

namespace tabulon {

/// The public members are the disk; a test changes them directly. Differs from a disk in these points: a copy
/// follows a link at its destination, and the names in a folder are those of files only.
class MemoryFileStore : public FileStore {
public:
    Result<std::string> readFile(const std::string& path) override;
    Result<std::string> readBeginning(const std::string& path, std::size_t size) override;
    Result<void> writeFileAtomically(const std::string& path, std::string_view bytes) override;
    bool fileExists(const std::string& path) override { return kindOf(path) != PathKind::Nothing; }
    PathKind kindOf(const std::string& path) override;
    std::optional<FileIdentity> identityOf(const std::string& path) override;
    Result<void> copyFile(const std::string& from, const std::string& to) override;
    Result<void> removeFile(const std::string& path) override;
    Result<void> makeFolder(const std::string& path) override;
    std::vector<std::string> namesInFolder(const std::string& path) override;

    /// Renames a file like another process: its identity does not change. Requires: there is a file at
    /// `from`, which was not moved before.
    void move(const std::string& from, const std::string& to);

    /// Path → content.
    std::map<std::string, std::string, std::less<>> files;
    /// Path of a symbolic link → its target, an absolute path. Without cycles.
    std::map<std::string, std::string, std::less<>> links;
    /// Paths of folders, in addition to the folders of the files.
    std::set<std::string, std::less<>> folders;
    /// Paths of devices and pipes.
    std::set<std::string, std::less<>> devices;
    /// True if every write fails with ENOSPC.
    bool diskFull = false;
    /// Reads of paths that begin with this text fail with EACCES; empty if none does.
    std::string unreadable;
    /// Writes to paths that begin with this text fail with EACCES; empty if none does.
    std::string unwritable;
    /// The number of writes that succeeded.
    int writes = 0;
    /// Path → the number of calls of `readFile`, also of those that failed.
    std::map<std::string, int, std::less<>> reads;
    /// Called with the path before each write that succeeds. May be empty.
    std::function<void(const std::string& path)> willWrite;

private:
    Result<std::string> contentOf(const std::string& path) const;
    const std::string& target(const std::string& path) const;

    std::map<std::string, std::string, std::less<>> firstNames_; // path of a moved file → the path before
};

} // namespace tabulon
