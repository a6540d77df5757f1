// Reading open files, whole or their beginning.
#pragma once

#include <cstddef>
#include <string>

namespace tabulon {

/// How many bytes are too many, in powers of two: of a file, which is read into memory whole, and of what
/// does not tell its size, whose end may never come.
struct ReadLimits {
    std::size_t file = std::size_t{1} << 32;
    std::size_t pipe = std::size_t{1} << 31;
    std::size_t device = std::size_t{1} << 26;
};

/// Reads what is left of an open file, pipe or device. Returns errno, EFBIG where there is too much: what
/// does not tell its size may have no end.
int readAll(int descriptor, std::string& bytes, const ReadLimits& limits);

/// Reads the next `size` bytes, or as many as there are. Returns errno.
int readSome(int descriptor, std::string& bytes, std::size_t size);

} // namespace tabulon
