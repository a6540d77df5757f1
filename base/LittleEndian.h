// Numbers and texts of binary forms that are stored low byte first.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tabulon {

/// Appends the low 32 bits of `number` as four bytes.
void appendNumber(std::string& bytes, std::size_t number);

/// Appends valid UTF-8 as UTF-16, without a byte-order mark.
void appendUtf16(std::string& bytes, std::string_view utf8);

/// Reads from the beginning of bytes, which must outlive it. After the first read beyond their end every read
/// returns empty bytes and 0.
class LittleEndianReader {
public:
    explicit LittleEndianReader(std::string_view bytes) : rest_(bytes) {}

    /// Returns the next `size` bytes.
    std::string_view take(std::size_t size);
    /// Returns the next four bytes as an unsigned number.
    std::size_t number();
    /// Returns false after a read beyond the end.
    bool isWhole() const { return whole_; }
    /// Returns how many bytes are left.
    std::size_t size() const { return rest_.size(); }

private:
    std::string_view rest_;
    bool whole_ = true;
};

} // namespace tabulon
