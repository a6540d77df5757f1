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

/// The files of the system. See platform/FileStore.h for the contracts. A relative path is relative to the
/// working directory. Not for several threads at once, since a write reads the process's umask by changing it
/// for a moment.
class PosixFileStore : public FileStore {
public:
    /// `limits` are those of reading a whole file.
    explicit PosixFileStore(SpecialFiles special = SpecialFiles::Refused, const ReadLimits& limits = {})
        : special_(special), limits_(limits) {}
    /// Returns the bytes of a file. Fails with EFBIG where a limit is exceeded.
    Result<std::string> readFile(const std::string& path) override;
    /// Returns the first `size` bytes of a file, or all of a smaller one.
    Result<std::string> readBeginning(const std::string& path, std::size_t size) override;
    /// Replaces a file; a link of another user is refused with EPERM. Writes directly to a device or a pipe
    /// where they are used, also to an open descriptor named "/dev/stdout" or "/dev/fd/3"; such a target may
    /// have received some of the bytes after a failure.
    Result<void> writeFileAtomically(const std::string& path, std::string_view bytes) override;
    /// Replaces a file as `writeFileAtomically`, and follows every link.
    Result<void> writeBack(const std::string& path, std::string_view bytes) override;
    /// Returns whether the target of `path` exists, of any kind.
    bool fileExists(const std::string& path) override;
    /// Returns the kind of the target of `path`.
    PathKind kindOf(const std::string& path) override;
    /// Returns the identity of the target of `path`, or `nullopt` where it cannot be read.
    std::optional<FileIdentity> identityOf(const std::string& path) override;
    /// Copies a file with its access. A link at `to` is replaced.
    Result<void> copyFile(const std::string& from, const std::string& to) override;
    /// Removes a file or link. Succeeds where there is none.
    Result<void> removeFile(const std::string& path) override;
    /// Creates a folder, and those above it, with the mode 0700. Succeeds where it exists.
    Result<void> makeFolder(const std::string& path) override;
    /// Returns the sorted names in a folder; empty where it cannot be read.
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
