// Reading of open files: the whole file or its beginning.
#pragma once

#include <cstddef>
#include <string>

namespace tabulon {

/// Limits in bytes, since files are read into memory, and pipes and devices have no size in advance and may
/// never end. A regular file with a size may have as many bytes as its limit; other input must have fewer. A
/// limit on input without a size is rounded up to a power of two of at least 64 KiB.
struct ReadLimits {
    /// For regular files.
    std::size_t file = std::size_t{1} << 32;
    /// For pipes and sockets, and for regular files of size 0, such as those of /proc.
    std::size_t pipe = std::size_t{1} << 31;
    /// For character devices.
    std::size_t device = std::size_t{1} << 26;
};

/// Replaces `bytes` by the rest of an open file, pipe or device. Waits for the other end of a pipe. Returns
/// 0, or errno; EFBIG for input that exceeds `limits`. `bytes` is undefined after an error. Does not close
/// the descriptor.
int readAll(int descriptor, std::string& bytes, const ReadLimits& limits);

/// Replaces `bytes` by the next `size` bytes, or by fewer where the file ends. Returns 0, or errno; `bytes`
/// is then what was read before. Takes memory for `size` bytes, also where the file is shorter.
int readSome(int descriptor, std::string& bytes, std::size_t size);

} // namespace tabulon
