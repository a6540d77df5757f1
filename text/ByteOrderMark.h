// Byte-order marks: U+FEFF at the beginning of a file, which declares the file's encoding. Conversion is in
// text/EncodingConversion.h.
#pragma once

#include <cstdint>
#include <string_view>

namespace tabulon {

/// The marks that the program recognises. Those of UTF-32 are not among them.
enum class ByteOrderMark : std::uint8_t { None, Utf8, Utf16LittleEndian, Utf16BigEndian };

/// Returns the bytes of a mark, two or three; empty for None.
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

/// Returns the mark that `bytes` begins with, or None. For little-endian UTF-32 the result is
/// Utf16LittleEndian, since its mark begins with the same two bytes.
constexpr ByteOrderMark byteOrderMarkOf(std::string_view bytes) {
    for (const ByteOrderMark mark :
         {ByteOrderMark::Utf8, ByteOrderMark::Utf16LittleEndian, ByteOrderMark::Utf16BigEndian})
        if (bytes.starts_with(bytesOf(mark)))
            return mark;
    return ByteOrderMark::None;
}

/// Returns `bytes` without one UTF-8 mark at the beginning. Other marks are not removed. The result is a part
/// of `bytes`.
constexpr std::string_view withoutUtf8Mark(std::string_view bytes) {
    const std::string_view mark = bytesOf(ByteOrderMark::Utf8);
    return bytes.starts_with(mark) ? bytes.substr(mark.size()) : bytes;
}

} // namespace tabulon
