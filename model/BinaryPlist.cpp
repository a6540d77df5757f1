#include "model/BinaryPlist.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>

namespace tabulon {
namespace {

constexpr std::string_view kMagic = "bplist00";
constexpr std::size_t kTrailerSize = 32;

std::string utf8FromBigEndianUtf16(const std::uint8_t* bytes, std::size_t units) {
    const auto unit = [bytes](std::size_t i) {
        return static_cast<char16_t>(bytes[2 * i] << 8 | bytes[2 * i + 1]);
    };
    std::string result(units * 3, '\0');
    std::size_t length = 0;
    for (std::size_t i = 0; i < units; ++i) {
        UChar32 character = unit(i);
        if (U16_IS_LEAD(character) && i + 1 < units && U16_IS_TRAIL(unit(i + 1)))
            character = U16_GET_SUPPLEMENTARY(character, unit(++i));
        else if (U16_IS_SURROGATE(character))
            character = 0xFFFD;
        U8_APPEND_UNSAFE(result.data(), length, character);
    }
    result.resize(length);
    return result;
}

// Whether the upper eight of sixteen bytes say nothing that the lower eight do not: zeros, or the sign.
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
    if (plist.topObject_ >= plist.objectCount_)
        return failure("The file is damaged: its property list has no top object.");
    return plist;
}

BinaryPlist::Object BinaryPlist::objectAt(std::uint64_t position, std::uint8_t marker) const {
    const std::uint8_t nibble = marker & 0x0F;
    switch (marker >> 4) {
    case 0x4:
        return sized(Kind::Data, position, nibble, 1);
    case 0x5:
        return sized(Kind::Ascii, position, nibble, 1);
    case 0x6:
        return sized(Kind::Utf16, position, nibble, 2);
    case 0x7:
        return sized(Kind::Utf8, position, nibble, 1);
    case 0xA:
    case 0xB:
    case 0xC:
        return sized(Kind::Array, position, nibble, referenceSize_);
    case 0xD:
        return sized(Kind::Dictionary, position, nibble, 2 * referenceSize_);
    default:
        return number(position, marker);
    }
}

// Everything that has its value behind the marker.
BinaryPlist::Object BinaryPlist::number(std::uint64_t position, std::uint8_t marker) const {
    const std::uint8_t* value = data_ + position + 1;
    const std::size_t nibble = marker & 0x0F;
    switch (marker >> 4) {
    case 0x0:
        if (marker == 0x08 || marker == 0x09)
            return {Kind::Boolean, nibble & 1};
        return marker == 0x00 ? Object{Kind::Null} : Object{};
    case 0x1:
        if (nibble > 4 || !fits(position + 1, std::uint64_t{1} << nibble))
            return {};
        if (nibble == 4 && !fitsInto64Bits(value))
            return {Kind::Null};
        return {Kind::Integer,
                nibble == 4 ? bigEndian(value + 8, 8) : bigEndian(value, std::size_t{1} << nibble)};
    case 0x2:
        if (marker == 0x22 && fits(position + 1, 4))
            return {Kind::Real, 0, std::bit_cast<float>(static_cast<std::uint32_t>(bigEndian(value, 4)))};
        if (marker == 0x23 && fits(position + 1, 8))
            return {Kind::Real, 0, std::bit_cast<double>(bigEndian(value, 8))};
        return {};
    case 0x3:
        if (marker == 0x33 && fits(position + 1, 8))
            return {Kind::Date, 0, std::bit_cast<double>(bigEndian(value, 8))};
        return {};
    default:
        return {};
    }
}

// An object that begins with a count: in the marker, or as an integer object right behind it.
BinaryPlist::Object BinaryPlist::sized(Kind kind, std::uint64_t position, std::uint8_t nibble,
                                       std::size_t unit) const {
    std::uint64_t count = nibble;
    ++position;
    if (nibble == 0x0F) {
        if (!fits(position, 1) || (data_[position] >> 4) != 0x1)
            return {};
        const Object size = number(position, data_[position]);
        if (size.kind != Kind::Integer)
            return {};
        count = size.value;
        position += 1 + (std::uint64_t{1} << (data_[position] & 0x0F));
    }
    if (position > tableOffset_ || count > (tableOffset_ - position) / unit)
        return {};
    return {kind, count, 0, data_ + position};
}

Text BinaryPlist::text(const Object& object) {
    if (object.kind == Kind::Utf16)
        return Text(utf8FromBigEndianUtf16(object.bytes, object.value));
    return Text::fromBytes({reinterpret_cast<const char*>(object.bytes), object.value});
}

bool BinaryPlist::textEquals(const Object& object, std::string_view ascii) {
    if (object.value != ascii.size())
        return false;
    if (object.kind == Kind::Utf16) {
        for (std::size_t i = 0; i < ascii.size(); ++i)
            if (object.bytes[2 * i] != 0 || object.bytes[2 * i + 1] != static_cast<unsigned char>(ascii[i]))
                return false;
        return true;
    }
    return isText(object) && std::memcmp(object.bytes, ascii.data(), ascii.size()) == 0;
}

} // namespace tabulon
