#include "plist/BinaryPlist.h"

#include "base/Utf8.h"

#include <unicode/utf16.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace tabulon {
namespace {

constexpr std::string_view kMagic = "bplist00";
constexpr std::size_t kTrailerSize = 32;

/// A character below U+10000 in UTF-8, at most three bytes.
struct ShortUtf8 {
    std::array<char, 3> bytes;
    std::uint8_t length;
};

constexpr ShortUtf8 shortUtf8Of(std::uint32_t unit) {
    const auto [bytes, size] = utf8::encoded(unit);
    return {{bytes[0], bytes[1], bytes[2]}, size};
}

// In most scripts letters and blanks differ in length, which a processor cannot predict. A table avoids the
// branch.
constexpr auto kShortUtf8 = [] {
    std::array<ShortUtf8, 0x800> table{};
    for (std::uint32_t unit = 0; unit < table.size(); ++unit)
        table[unit] = shortUtf8Of(unit);
    return table;
}();

// The number of bytes that the conversion from UTF-16 may write after the text.
constexpr std::size_t kUtf8Slack = sizeof(ShortUtf8) - 1;

// Converts `units` units to UTF-8 and returns the size in bytes, at most three a unit. Requires: `text` has
// room for this and for kUtf8Slack bytes more, which may be overwritten.
std::size_t utf8FromBigEndianUtf16(const std::uint8_t* bytes, std::size_t units, char* text) {
    const auto unit = [bytes](std::size_t i) {
        std::uint16_t code = 0;
        std::memcpy(&code, bytes + 2 * i, 2);
        if constexpr (std::endian::native == std::endian::little)
            code = __builtin_bswap16(code);
        return static_cast<std::uint32_t>(code);
    };
    const auto write = [text](std::size_t at, const ShortUtf8& character) {
        std::memcpy(text + at, &character, sizeof(character));
        return at + character.length;
    };
    std::size_t length = 0;
    for (std::size_t i = 0; i < units; ++i) {
        const std::uint32_t first = unit(i);
        if (first < kShortUtf8.size()) {
            length = write(length, kShortUtf8[first]);
        } else if (!U16_IS_SURROGATE(first)) {
            length = write(length, shortUtf8Of(first));
        } else if (U16_IS_LEAD(first) && i + 1 < units && U16_IS_TRAIL(unit(i + 1))) {
            const char32_t character = U16_GET_SUPPLEMENTARY(first, unit(++i));
            const utf8::Encoded encoded = utf8::encoded(character);
            std::memcpy(text + length, encoded.bytes.data(), encoded.bytes.size());
            length += encoded.bytes.size();
        } else {
            length = write(length, shortUtf8Of(0xFFFD));
        }
    }
    return length;
}

Text textFromBigEndianUtf16(const std::uint8_t* bytes, std::size_t units) {
    std::array<char, 1024> buffer;
    if (units <= (buffer.size() - kUtf8Slack) / 3)
        return Text(std::string_view(buffer.data(), utf8FromBigEndianUtf16(bytes, units, buffer.data())));
    std::string utf8(units * 3 + kUtf8Slack, '\0');
    utf8.resize(utf8FromBigEndianUtf16(bytes, units, utf8.data()));
    return Text(utf8);
}

// Returns true if the upper eight of sixteen bytes are all zeros, or are the sign of the lower eight.
bool fitsInto64Bits(const std::uint8_t* bytes) {
    const bool zeros = std::all_of(bytes, bytes + 8, [](std::uint8_t byte) { return byte == 0; });
    const bool sign = std::all_of(bytes, bytes + 8, [](std::uint8_t byte) { return byte == 0xFF; });
    return zeros || (sign && bytes[8] >= 0x80);
}

} // namespace

Result<BinaryPlist> BinaryPlist::open(std::string_view data) {
    if (!data.starts_with(kMagic.substr(0, data.size())))
        return failure("The file is a property list of a version that this program does not know.");
    if (data.size() < kHeaderSize + kTrailerSize)
        return failure("The file is not a whole binary property list; it may have been cut off.");
    BinaryPlist plist;
    plist.data_ = reinterpret_cast<const std::uint8_t*>(data.data());
    const std::uint8_t* trailer = plist.data_ + data.size() - kTrailerSize;
    plist.offsetSize_ = trailer[6];
    plist.referenceSize_ = trailer[7];
    plist.objectCount_ = bigEndian(trailer + 8, 8);
    plist.topObject_ = bigEndian(trailer + 16, 8);
    plist.tableOffset_ = bigEndian(trailer + 24, 8);
    const auto width = [](std::size_t size) { return size >= 1 && size <= 8; };
    if (!width(plist.offsetSize_) || !width(plist.referenceSize_))
        return failure("The file is damaged: its property list has impossible number widths.");
    const std::uint64_t tableEnd = data.size() - kTrailerSize;
    if (plist.tableOffset_ < kHeaderSize || plist.tableOffset_ > tableEnd ||
        plist.objectCount_ > (tableEnd - plist.tableOffset_) / plist.offsetSize_)
        return failure("The file is damaged: the tables of its property list overlap or are cut off.");
    plist.table_ = plist.data_ + plist.tableOffset_;
    plist.offsetShift_ = shiftFor(plist.offsetSize_);
    plist.referenceShift_ = shiftFor(plist.referenceSize_);
    plist.unitSizes_.fill(1);
    plist.unitSizes_[static_cast<std::size_t>(Kind::Utf16)] = 2;
    plist.unitSizes_[static_cast<std::size_t>(Kind::Array)] = trailer[7];
    plist.unitSizes_[static_cast<std::size_t>(Kind::Dictionary)] = static_cast<std::uint8_t>(2 * trailer[7]);
    if (plist.topObject_ >= plist.objectCount_)
        return failure("The file is damaged: its property list has no top object.");
    return plist;
}

BinaryPlist::Object BinaryPlist::objectAt(std::uint64_t position, std::uint8_t marker) const {
    // By the upper half of the marker. A table, because the kind of the next text is not predictable.
    static constexpr std::array<Kind, 16> kSized = {
        Kind::Damaged, Kind::Damaged,    Kind::Damaged, Kind::Damaged, Kind::Data,  Kind::Ascii,
        Kind::Utf16,   Kind::Utf8,       Kind::Damaged, Kind::Damaged, Kind::Array, Kind::Array,
        Kind::Array,   Kind::Dictionary, Kind::Damaged, Kind::Damaged};
    const Kind kind = kSized[marker >> 4];
    return kind == Kind::Damaged ? number(position, marker) : sized(kind, position, marker);
}

// Returns an object whose value follows its marker or is in it: Null, Boolean, Integer, Real and Date.
BinaryPlist::Object BinaryPlist::number(std::uint64_t position, std::uint8_t marker) const {
    const std::uint8_t* value = data_ + position + 1;
    const std::size_t nibble = marker & 0x0F;
    switch (marker >> 4) {
    case 0x0:
        if (marker == 0x08 || marker == 0x09)
            return Object(Kind::Boolean, nibble & 1);
        return marker == 0x00 ? Object(Kind::Null) : Object();
    case 0x1:
        if (nibble > 4 || !fits(position + 1, std::uint64_t{1} << nibble))
            return {};
        if (nibble == 4 && !fitsInto64Bits(value))
            return Object(Kind::Null);
        return Object(Kind::Integer,
                      nibble == 4 ? bigEndian(value + 8, 8) : bigEndian(value, std::size_t{1} << nibble));
    case 0x2:
        if (marker == 0x22 && fits(position + 1, 4))
            return {Kind::Real,
                    double{std::bit_cast<float>(static_cast<std::uint32_t>(bigEndian(value, 4)))}};
        if (marker == 0x23 && fits(position + 1, 8))
            return Object(Kind::Real, bigEndian(value, 8));
        return {};
    case 0x3:
        if (marker == 0x33 && fits(position + 1, 8))
            return Object(Kind::Date, bigEndian(value, 8));
        return {};
    default:
        return {};
    }
}

// Returns an object with a count, which is in the marker or in an integer object after it.
BinaryPlist::Object BinaryPlist::sized(Kind kind, std::uint64_t position, std::uint8_t marker) const {
    std::uint64_t count = marker & 0x0F;
    ++position;
    if (count == 0x0F) {
        if (!fits(position, 1) || (data_[position] >> 4) != 0x1)
            return {};
        const Object size = number(position, data_[position]);
        if (size.kind() != Kind::Integer)
            return {};
        count = size.value();
        position += 1 + (std::uint64_t{1} << (data_[position] & 0x0F));
    }
    // The limit on the count itself prevents an overflow of the product.
    if (position > tableOffset_ || count > tableOffset_ ||
        count * unitSizes_[static_cast<std::size_t>(kind)] > tableOffset_ - position)
        return {};
    return {kind, count, data_ + position};
}

bool BinaryPlist::isOverlapped(std::uint64_t id) const {
    const auto endOf = [](Object text) {
        return text.bytes() + text.count() * (text.kind() == Kind::Utf16 ? 2 : 1);
    };
    const std::uint8_t* const begin = objectBytes(id);
    const std::uint8_t* const end = endOf(object(id));
    const std::uint8_t* before = nullptr; // the nearest object that begins before the text, and its number
    std::uint64_t idBefore = 0;
    for (std::uint64_t other = 0; other < objectCount_; ++other) {
        const std::uint8_t* const at = objectBytes(other);
        if (other != id && at >= begin && at < end)
            return true;
        if (at && at < begin && (!before || at > before)) {
            before = at;
            idBefore = other;
        }
    }
    const Object neighbour = before ? object(idBefore) : Object();
    return isText(neighbour) && endOf(neighbour) > begin;
}

Text BinaryPlist::text(Object object) {
    if (object.kind() == Kind::Utf16)
        return textFromBigEndianUtf16(object.bytes(), object.count());
    return Text::fromBytes({reinterpret_cast<const char*>(object.bytes()), object.count()});
}

bool BinaryPlist::textEquals(Object object, std::string_view ascii) {
    if (object.count() != ascii.size())
        return false;
    if (object.kind() == Kind::Utf16) {
        for (std::size_t i = 0; i < ascii.size(); ++i)
            if (object.bytes()[2 * i] != 0 ||
                object.bytes()[2 * i + 1] != static_cast<unsigned char>(ascii[i]))
                return false;
        return true;
    }
    return isText(object) && std::memcmp(object.bytes(), ascii.data(), ascii.size()) == 0;
}

} // namespace tabulon
