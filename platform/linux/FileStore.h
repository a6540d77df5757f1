// The real file store, over the POSIX calls.
#pragma once

#include "platform/FileStore.h"

namespace tabulon {

class PosixFileStore : public FileStore {
public:
    Result<std::string> readFile(const std::string& path) override;
    Result<void> writeFileAtomically(const std::string& path, std::string_view bytes) override;
    bool fileExists(const std::string& path) override;
    PathKind kindOf(const std::string& path) override;
    std::optional<FileIdentity> identityOf(const std::string& path) override;
    Result<void> copyFile(const std::string& from, const std::string& to) override;
    Result<void> removeFile(const std::string& path) override;
    Result<void> makeFolder(const std::string& path) override;
    std::vector<std::string> namesInFolder(const std::string& path) override;
};

/// Everything that standard input holds.
Result<std::string> readStandardInput();

/// Writes to standard output and flushes it; fails when the reader has gone or the disk behind it is full.
Result<void> writeStandardOutput(std::string_view bytes);

} // namespace tabulon
