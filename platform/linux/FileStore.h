// The file store of the POSIX system calls, and the standard streams.
#pragma once

#include "platform/FileStore.h"
#include "platform/linux/FileReading.h"

#include <cstddef>
#include <optional>

namespace tabulon {

/// Whether devices, pipes and sockets are used as files. The command-line tool uses those it is given, and
/// waits for the other end. The desktop program must not wait, and refuses them with ENODEV.
enum class SpecialFiles { Refused, Used };

/// The files of the system. See platform/FileStore.h for the contracts.
class PosixFileStore : public FileStore {
public:
    /// `limits` are those of reading a whole file.
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

/// Returns the bytes of standard input up to its end. Fails with errno and a sentence; with EFBIG for 64 MiB
/// from a device, 2 GiB from a pipe, or more than 4 GiB from a file.
Result<std::string> readStandardInput();

/// Writes `bytes` to standard output, unbuffered. Fails with errno and a sentence, for example with EPIPE
/// where its reader has ended, or ENOSPC where the disk is full.
Result<void> writeStandardOutput(std::string_view bytes);

} // namespace tabulon
