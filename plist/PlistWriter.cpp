#include "plist/PlistWriter.h"

#include "base/Utf8.h"

#include <unicode/utf16.h>

#include <algorithm>
#include <cstring>

namespace tabulon {
namespace {

// Returns the size of a number in bytes: 1, 2, 4 or 8, as other writers of the format use them.
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

// Writes UTF-8 as UTF-16, high bytes first, and returns the end. Requires: room for two bytes for each byte.
char* putUtf16(std::string_view text, char* out) {
    const auto put = [&out](std::uint32_t unit) {
        *out++ = static_cast<char>(unit >> 8);
        *out++ = static_cast<char>(unit & 0xFF);
    };
    for (std::size_t i = 0; i < text.size();) {
        const char32_t character = utf8::nextLenient(text, i);
        if (U_IS_BMP(character)) {
            put(character);
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

// Writes the low `width` bytes of a number, high bytes first, and returns their end. Requires: room for eight
// bytes, all of which are overwritten.
char* PlistWriter::put(char* at, std::uint64_t value, std::size_t width) {
    std::uint64_t word = value << (64 - 8 * width);
    if constexpr (std::endian::native == std::endian::little)
        word = __builtin_bswap64(word);
    std::memcpy(at, &word, 8);
    return at + width;
}

// Returns room for `size` bytes in the block, which is appended to the file when it is full. Appending each
// object by itself would take most of the time of a save.
char* PlistWriter::room(std::size_t size) {
    if (block_.size() - used_ < size)
        flush();
    return block_.data() + used_;
}

void PlistWriter::flush() {
    bytes_.append(block_.data(), used_);
    used_ = 0;
}

void PlistWriter::append(std::string_view bytes) {
    if (bytes.size() > kSmall) {
        flush();
        bytes_ += bytes;
        return;
    }
    std::memcpy(room(kSmall), bytes.data(), bytes.size());
    used_ += bytes.size();
}

template <class Number>
void PlistWriter::appendNumbers(std::size_t count, std::size_t width, Number number) {
    constexpr std::size_t kStep = 64;
    for (std::size_t done = 0; done < count;) {
        const std::size_t end = std::min(done + kStep, count);
        char* at = room(kStep * 8 + 8);
        for (; done < end; ++done)
            at = put(at, number(done), width);
        endAt(at);
    }
}

void PlistWriter::appendNumber(std::uint64_t value, std::size_t width) {
    endAt(put(room(8), value, width));
}

void PlistWriter::appendByte(std::uint8_t byte) {
    *room(1) = static_cast<char>(byte);
    ++used_;
}

void PlistWriter::appendMarker(std::uint8_t kind, std::uint64_t count) {
    if (count < 15)
        return appendByte(static_cast<std::uint8_t>(kind | count));
    const std::size_t width = widthFor(count);
    char* at = room(10);
    *at++ = static_cast<char>(kind | 0x0F);
    *at++ = static_cast<char>(0x10 | logarithm(width));
    endAt(put(at, count, width));
}

// Writes an object of a marker byte and a number after it.
std::uint64_t PlistWriter::writeNumber(std::uint8_t marker, std::uint64_t value, std::size_t width) {
    const std::uint64_t id = begin();
    char* at = room(9);
    *at++ = static_cast<char>(marker);
    endAt(put(at, value, width));
    return id;
}

std::uint64_t PlistWriter::writeNull() {
    const std::uint64_t id = begin();
    appendByte(0);
    return id;
}

std::uint64_t PlistWriter::writeBoolean(bool value) {
    const std::uint64_t id = begin();
    appendByte(value ? 0x09 : 0x08);
    return id;
}

std::uint64_t PlistWriter::writeInteger(std::int64_t value) {
    // Integers of fewer than eight bytes are unsigned in this format.
    const std::size_t width = value < 0 ? 8 : widthFor(static_cast<std::uint64_t>(value));
    return writeNumber(0x10 | logarithm(width), static_cast<std::uint64_t>(value), width);
}

std::uint64_t PlistWriter::writeReal(double value) {
    return writeNumber(0x23, std::bit_cast<std::uint64_t>(value), 8);
}

std::uint64_t PlistWriter::writeDate(double seconds) {
    return writeNumber(0x33, std::bit_cast<std::uint64_t>(seconds), 8);
}

std::uint64_t PlistWriter::writeUid(std::uint64_t value) {
    const std::size_t width = widthFor(value);
    return writeNumber(static_cast<std::uint8_t>(0x80 | (width - 1)), value, width);
}

std::uint64_t PlistWriter::writeData(std::string_view bytes) {
    const std::uint64_t id = begin();
    appendMarker(0x40, bytes.size());
    append(bytes);
    return id;
}

std::uint64_t PlistWriter::writeText(std::string_view utf8) {
    const std::uint64_t id = begin();
    if (isAscii(utf8)) {
        appendMarker(0x50, utf8.size());
        append(utf8);
        return id;
    }
    if (units_.size() < utf8.size() * 2)
        units_.resize(utf8.size() * 2);
    const auto size = static_cast<std::size_t>(putUtf16(utf8, units_.data()) - units_.data());
    appendMarker(0x60, size / 2);
    append({units_.data(), size});
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
    laidOut.bytes_.resize(count * referenceSize_ + 8);
    char* at = laidOut.bytes_.data();
    for (std::size_t i = 0; i < count; ++i)
        at = put(at, keys[i], referenceSize_);
    laidOut.bytes_.resize(count * referenceSize_);
    return laidOut;
}

std::uint64_t PlistWriter::writeDictionary(const Keys& keys, const std::uint64_t* values) {
    const std::uint64_t id = begin();
    appendMarker(0xD0, keys.count_);
    append(keys.bytes_);
    appendNumbers(keys.count_, referenceSize_, [&](std::size_t i) { return values[i]; });
    return id;
}

std::string PlistWriter::finish(std::uint64_t topObject) {
    const std::uint64_t tableOffset = bytes_.size() + used_;
    const std::size_t offsetSize = widthFor(tableOffset);
    flush();
    bytes_.reserve(bytes_.size() + offsets_.size() * offsetSize + 32);
    appendNumbers(offsets_.size(), offsetSize, [&](std::size_t i) { return offsets_[i]; });
    append(std::string_view("\0\0\0\0\0\0", 6));
    appendByte(static_cast<std::uint8_t>(offsetSize));
    appendByte(static_cast<std::uint8_t>(referenceSize_));
    for (const std::uint64_t number : {std::uint64_t{offsets_.size()}, topObject, tableOffset})
        appendNumber(number, 8);
    flush();
    return std::move(bytes_);
}

} // namespace tabulon
