// Reading and writing of little-endian numbers and UTF-16 texts in binary formats.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tabulon {

/// Appends the low 32 bits of `number` as four bytes, low byte first.
void appendNumber(std::string& bytes, std::size_t number);

/// Appends a UTF-8 text as UTF-16, low byte first, without a byte-order mark. Malformed parts become U+FFFD.
/// Requires: fewer than 2^31 bytes.
void appendUtf16(std::string& bytes, std::string_view utf8);

/// Reads a sequence of bytes from its beginning on. The bytes must outlive the reader. A read beyond their
/// end consumes nothing; it and every later read return empty bytes or 0.
class LittleEndianReader {
public:
    explicit LittleEndianReader(std::string_view bytes) : rest_(bytes) {}

    /// Returns the next `size` bytes as a part of the sequence. Returns an empty part if there are fewer.
    std::string_view take(std::size_t size);
    /// Returns the next four bytes as an unsigned number, low byte first. Returns 0 if there are fewer;
    /// `isWhole` distinguishes that from a stored 0.
    std::size_t number();
    /// Returns false after a read beyond the end.
    bool isWhole() const { return whole_; }
    /// Returns the number of bytes that are not yet read.
    std::size_t size() const { return rest_.size(); }

private:
    std::string_view rest_;
    bool whole_ = true;
};

} // namespace tabulon
