#include "model/PlistWriter.h"

#include "model/Text.h"

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

// Puts UTF-8 as UTF-16, high bytes first, where there is room for two bytes for each one; gives the end.
char* putUtf16(std::string_view utf8, char* out) {
    const auto put = [&out](std::uint32_t unit) {
        *out++ = static_cast<char>(unit >> 8);
        *out++ = static_cast<char>(unit & 0xFF);
    };
    const auto* data = reinterpret_cast<const std::uint8_t*>(utf8.data());
    for (std::size_t i = 0; i < utf8.size();) {
        UChar32 character = 0;
        U8_NEXT_OR_FFFD(data, i, utf8.size(), character);
        if (U_IS_BMP(character)) {
            put(static_cast<std::uint32_t>(character));
        } else {
            put(U16_LEAD(character));
            put(U16_TRAIL(character));
        }
    }
    return out;
}

} // namespace

PlistWriter::PlistWriter(std::uint64_t mostObjects, std::size_t bytes)
    : referenceSize_(widthFor(mostObjects)) {
    bytes_.reserve(bytes);
    offsets_.reserve(mostObjects);
    bytes_ = "bplist00";
}

// Big-endian numbers, gathered in a small buffer: appending each to the file by itself would take most of a
// save.
template <class Number>
void PlistWriter::appendNumbersTo(std::string& out, std::size_t count, std::size_t width, Number number) {
    constexpr std::size_t kStep = 64;
    char buffer[kStep * 8 + 8];
    for (std::size_t done = 0; done < count;) {
        const std::size_t end = std::min(done + kStep, count);
        char* at = buffer;
        for (; done < end; ++done, at += width) {
            std::uint64_t word = number(done) << (64 - 8 * width);
            if constexpr (std::endian::native == std::endian::little)
                word = __builtin_bswap64(word);
            std::memcpy(at, &word, 8);
        }
        out.append(buffer, static_cast<std::size_t>(at - buffer));
    }
}

void PlistWriter::appendNumber(std::uint64_t value, std::size_t width) {
    appendNumbers(1, width, [value](std::size_t) { return value; });
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

std::uint64_t PlistWriter::writeNull() {
    const std::uint64_t id = begin();
    bytes_ += '\0';
    return id;
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
    if (units_.size() < utf8.size() * 2)
        units_.resize(utf8.size() * 2);
    const auto size = static_cast<std::size_t>(putUtf16(utf8, units_.data()) - units_.data());
    appendMarker(0x60, size / 2);
    bytes_.append(units_, 0, size);
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
    appendNumbers(elements.size(), referenceSize_, [&](std::size_t i) { return elements[i]; });
    return id;
}

std::uint64_t PlistWriter::writeArrayOfConsecutive(std::uint64_t first, std::uint64_t count) {
    const std::uint64_t id = begin();
    appendMarker(0xA0, count);
    appendNumbers(count, referenceSize_, [&](std::size_t i) { return first + i; });
    return id;
}

PlistWriter::Keys PlistWriter::layOutKeys(const std::uint64_t* keys, std::size_t count) const {
    Keys laidOut;
    laidOut.count_ = count;
    appendNumbersTo(laidOut.bytes_, count, referenceSize_, [&](std::size_t i) { return keys[i]; });
    return laidOut;
}

std::uint64_t PlistWriter::writeDictionary(const Keys& keys, const std::uint64_t* values) {
    const std::uint64_t id = begin();
    appendMarker(0xD0, keys.count_);
    bytes_ += keys.bytes_;
    appendNumbers(keys.count_, referenceSize_, [&](std::size_t i) { return values[i]; });
    return id;
}

std::string PlistWriter::finish(std::uint64_t topObject) {
    const std::uint64_t tableOffset = bytes_.size();
    const std::size_t offsetSize = widthFor(tableOffset);
    bytes_.reserve(bytes_.size() + offsets_.size() * offsetSize + 32);
    appendNumbers(offsets_.size(), offsetSize, [&](std::size_t i) { return offsets_[i]; });
    bytes_.append(6, '\0');
    bytes_ += static_cast<char>(offsetSize);
    bytes_ += static_cast<char>(referenceSize_);
    appendNumber(offsets_.size(), 8);
    appendNumber(topObject, 8);
    appendNumber(tableOffset, 8);
    return std::move(bytes_);
}

} // namespace tabulon
