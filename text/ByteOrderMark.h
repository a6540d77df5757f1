// Byte-order marks: U+FEFF at the beginning of a file, by which the file declares its encoding.
#pragma once

#include <cstdint>
#include <string_view>

namespace tabulon {

enum class ByteOrderMark : std::uint8_t { None, Utf8, Utf16LittleEndian, Utf16BigEndian };

/// Returns the bytes of a mark, empty for None.
constexpr std::string_view bytesOf(ByteOrderMark mark) {
    switch (mark) {
    case ByteOrderMark::None:
        break;
    case ByteOrderMark::Utf8:
        return "\xEF\xBB\xBF";
    case ByteOrderMark::Utf16LittleEndian:
        return "\xFF\xFE";
    case ByteOrderMark::Utf16BigEndian:
        return "\xFE\xFF";
    }
    return {};
}

/// Returns the mark that `bytes` begins with. The mark of UTF-32, low byte first, begins with that of UTF-16.
constexpr ByteOrderMark byteOrderMarkOf(std::string_view bytes) {
    for (const ByteOrderMark mark :
         {ByteOrderMark::Utf8, ByteOrderMark::Utf16LittleEndian, ByteOrderMark::Utf16BigEndian})
        if (bytes.starts_with(bytesOf(mark)))
            return mark;
    return ByteOrderMark::None;
}

/// Returns `bytes` without one mark of UTF-8 at the beginning; other marks stay.
constexpr std::string_view withoutUtf8Mark(std::string_view bytes) {
    const std::string_view mark = bytesOf(ByteOrderMark::Utf8);
    return bytes.starts_with(mark) ? bytes.substr(mark.size()) : bytes;
}

} // namespace tabulon
