#include "model/PlistWriter.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstring>

namespace tabulon {
namespace {

// The widths that writers of the format use: 1, 2, 4 or 8 bytes.
std::size_t widthFor(std::uint64_t value) {
    if (value <= 0xFF)
        return 1;
    if (value <= 0xFFFF)
        return 2;
    return value <= 0xFFFFFFFFu ? 4 : 8;
}

std::uint8_t logarithm(std::size_t width) {
    return static_cast<std::uint8_t>(std::countr_zero(width));
}

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string bigEndianUtf16(std::string_view utf8) {
    std::string units;
    units.reserve(utf8.size() * 2);
    const auto append = [&units](std::uint32_t unit) {
        units += static_cast<char>(unit >> 8);
        units += static_cast<char>(unit & 0xFF);
    };
    const auto* data = reinterpret_cast<const std::uint8_t*>(utf8.data());
    for (std::size_t i = 0; i < utf8.size();) {
        UChar32 character = 0;
        U8_NEXT_OR_FFFD(data, i, utf8.size(), character);
        if (U_IS_BMP(character)) {
            append(static_cast<std::uint32_t>(character));
        } else {
            append(U16_LEAD(character));
            append(U16_TRAIL(character));
        }
    }
    return units;
}

} // namespace

PlistWriter::PlistWriter(std::uint64_t mostObjects, std::size_t bytes)
    : referenceSize_(widthFor(mostObjects)) {
    bytes_.reserve(bytes);
    offsets_.reserve(mostObjects);
    bytes_ = "bplist00";
}

void PlistWriter::appendNumber(std::uint64_t value, std::size_t width) {
    std::uint64_t word = value << (64 - 8 * width);
    if constexpr (std::endian::native == std::endian::little)
        word = __builtin_bswap64(word);
    char bytes[8];
    std::memcpy(bytes, &word, 8);
    bytes_.append(bytes, width);
}

void PlistWriter::appendMarker(std::uint8_t kind, std::uint64_t count) {
    if (count < 15) {
        bytes_ += static_cast<char>(kind | count);
        return;
    }
    const std::size_t width = widthFor(count);
    bytes_ += static_cast<char>(kind | 0x0F);
    bytes_ += static_cast<char>(0x10 | logarithm(width));
    appendNumber(count, width);
}

std::uint64_t PlistWriter::writeBoolean(bool value) {
    const std::uint64_t id = begin();
    bytes_ += static_cast<char>(value ? 0x09 : 0x08);
    return id;
}

std::uint64_t PlistWriter::writeInteger(std::int64_t value) {
    const std::uint64_t id = begin();
    // Integers of fewer than eight bytes are unsigned in this format.
    const std::size_t width = value < 0 ? 8 : widthFor(static_cast<std::uint64_t>(value));
    bytes_ += static_cast<char>(0x10 | logarithm(width));
    appendNumber(static_cast<std::uint64_t>(value), width);
    return id;
}

std::uint64_t PlistWriter::writeReal(double value) {
    const std::uint64_t id = begin();
    bytes_ += '\x23';
    appendNumber(std::bit_cast<std::uint64_t>(value), 8);
    return id;
}

std::uint64_t PlistWriter::writeDate(double seconds) {
    const std::uint64_t id = begin();
    bytes_ += '\x33';
    appendNumber(std::bit_cast<std::uint64_t>(seconds), 8);
    return id;
}

std::uint64_t PlistWriter::writeData(std::string_view bytes) {
    const std::uint64_t id = begin();
    appendMarker(0x40, bytes.size());
    bytes_ += bytes;
    return id;
}

std::uint64_t PlistWriter::writeText(std::string_view utf8) {
    const std::uint64_t id = begin();
    if (isAscii(utf8)) {
        appendMarker(0x50, utf8.size());
        bytes_ += utf8;
        return id;
    }
    const std::string units = bigEndianUtf16(utf8);
    appendMarker(0x60, units.size() / 2);
    bytes_ += units;
    return id;
}

std::uint64_t PlistWriter::writeUid(std::uint64_t value) {
    const std::uint64_t id = begin();
    const std::size_t width = widthFor(value);
    bytes_ += static_cast<char>(0x80 | (width - 1));
    appendNumber(value, width);
    return id;
}

std::uint64_t PlistWriter::writeArray(const std::vector<std::uint64_t>& elements) {
    const std::uint64_t id = begin();
    appendMarker(0xA0, elements.size());
    for (const std::uint64_t element : elements)
        appendReference(element);
    return id;
}

std::uint64_t PlistWriter::writeArrayOfConsecutive(std::uint64_t first, std::uint64_t count) {
    const std::uint64_t id = begin();
    appendMarker(0xA0, count);
    for (std::uint64_t i = 0; i < count; ++i)
        appendReference(first + i);
    return id;
}

std::uint64_t PlistWriter::writeDictionary(const std::uint64_t* keys, const std::uint64_t* values,
                                           std::size_t count) {
    const std::uint64_t id = begin();
    appendMarker(0xD0, count);
    for (std::size_t i = 0; i < count; ++i)
        appendReference(keys[i]);
    for (std::size_t i = 0; i < count; ++i)
        appendReference(values[i]);
    return id;
}

std::string PlistWriter::finish(std::uint64_t topObject) {
    const std::uint64_t tableOffset = bytes_.size();
    const std::size_t offsetSize = widthFor(tableOffset);
    bytes_.reserve(bytes_.size() + offsets_.size() * offsetSize + 32);
    for (const std::uint64_t offset : offsets_)
        appendNumber(offset, offsetSize);
    bytes_.append(6, '\0');
    bytes_ += static_cast<char>(offsetSize);
    bytes_ += static_cast<char>(referenceSize_);
    appendNumber(offsets_.size(), 8);
    appendNumber(topObject, 8);
    appendNumber(tableOffset, 8);
    return std::move(bytes_);
}

} // namespace tabulon
