// Files in memory, and the ways in which a disk can fail.
#pragma once

#include "platform/FileStore.h"

#include <functional>
#include <map>
#include <string>

namespace tabulon {

class MemoryFileStore : public FileStore {
public:
    Result<std::string> readFile(const std::string& path) override;
    Result<void> writeFileAtomically(const std::string& path, std::string_view bytes) override;
    bool fileExists(const std::string& path) override { return files.contains(path); }
    std::optional<FileIdentity> identityOf(const std::string& path) override;
    Result<void> copyFile(const std::string& from, const std::string& to) override;
    Result<void> removeFile(const std::string& path) override;
    Result<void> makeFolder(const std::string& path) override;
    std::vector<std::string> namesInFolder(const std::string& path) override;

    /// Path → content.
    std::map<std::string, std::string, std::less<>> files;
    /// From now on every write fails as on a full disk.
    bool diskFull = false;
    /// Writes to paths that begin with this fail for lack of permission; empty for none.
    std::string unwritable;
    int writes = 0;
};

} // namespace tabulon
