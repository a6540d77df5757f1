// The real file store, over the POSIX calls.
#pragma once

#include "platform/FileStore.h"
#include "platform/linux/FileReading.h"

#include <cstddef>
#include <optional>

namespace tabulon {

/// What becomes of devices, pipes and sockets. The command-line tool uses those that it is told to, and waits
/// for the other end; the desktop program refuses them, because nothing in it may wait.
enum class SpecialFiles { Refused, Used };

class PosixFileStore : public FileStore {
public:
    explicit PosixFileStore(SpecialFiles special = SpecialFiles::Refused, const ReadLimits& limits = {})
        : special_(special), limits_(limits) {}
    Result<std::string> readFile(const std::string& path) override;
    Result<std::string> readBeginning(const std::string& path, std::size_t size) override;
    Result<void> writeFileAtomically(const std::string& path, std::string_view bytes) override;
    Result<void> writeBack(const std::string& path, std::string_view bytes) override;
    bool fileExists(const std::string& path) override;
    PathKind kindOf(const std::string& path) override;
    std::optional<FileIdentity> identityOf(const std::string& path) override;
    Result<void> copyFile(const std::string& from, const std::string& to) override;
    Result<void> removeFile(const std::string& path) override;
    Result<void> makeFolder(const std::string& path) override;
    std::vector<std::string> namesInFolder(const std::string& path) override;

private:
    Result<std::string> read(const std::string& path, std::optional<std::size_t> size);

    const SpecialFiles special_;
    const ReadLimits limits_;
};

/// Everything that standard input holds. Fails with EFBIG where that is more than 64 MiB from a device or 2
/// GiB from a pipe.
Result<std::string> readStandardInput();

/// Writes to standard output and flushes it; fails when the reader has gone or the disk behind it is full.
Result<void> writeStandardOutput(std::string_view bytes);

} // namespace tabulon
