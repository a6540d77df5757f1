// Files in memory, and the ways in which a disk can fail.
#pragma once

#include "platform/FileStore.h"

#include <functional>
#include <map>
#include <set>
#include <string>

namespace tabulon {

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

    /// Renames a file as another program does: it stays the same file.
    void move(const std::string& from, const std::string& to);

    /// Path → content.
    std::map<std::string, std::string, std::less<>> files;
    /// Path → the path that a symbolic link there leads to.
    std::map<std::string, std::string, std::less<>> links;
    /// Paths of folders that are there besides those that the files are in.
    std::set<std::string, std::less<>> folders;
    /// Paths of devices and pipes.
    std::set<std::string, std::less<>> devices;
    /// From now on every write fails as on a full disk.
    bool diskFull = false;
    /// Reading paths that begin with this fails for lack of permission; empty for none.
    std::string unreadable;
    /// Writes to paths that begin with this fail for lack of permission; empty for none.
    std::string unwritable;
    int writes = 0;
    /// How often the whole content of a path was read.
    std::map<std::string, int, std::less<>> reads;
    /// Called before each write that succeeds.
    std::function<void(const std::string& path)> willWrite;

private:
    Result<std::string> contentOf(const std::string& path) const;
    const std::string& target(const std::string& path) const;

    std::map<std::string, std::string, std::less<>> firstNames_; // of files that were moved
};

} // namespace tabulon
