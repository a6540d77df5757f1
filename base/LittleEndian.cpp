#include "base/LittleEndian.h"

#include <unicode/unistr.h>

#include <cstdint>

namespace tabulon {

void appendNumber(std::string& bytes, std::size_t number) {
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(number >> shift & 0xFF);
}

void appendUtf16(std::string& bytes, std::string_view utf8) {
    const auto units = icu::UnicodeString::fromUTF8({utf8.data(), static_cast<int32_t>(utf8.size())});
    for (int32_t i = 0; i < units.length(); ++i) {
        bytes += static_cast<char>(units[i] & 0xFF);
        bytes += static_cast<char>(units[i] >> 8);
    }
}

std::string_view LittleEndianReader::take(std::size_t size) {
    whole_ = whole_ && size <= rest_.size();
    const std::string_view part = whole_ ? rest_.substr(0, size) : std::string_view();
    rest_.remove_prefix(part.size());
    return part;
}

std::size_t LittleEndianReader::number() {
    std::size_t number = 0;
    int shift = 0;
    for (const char byte : take(4)) {
        number |= std::size_t{static_cast<unsigned char>(byte)} << shift;
        shift += 8;
    }
    return number;
}

} // namespace tabulon
