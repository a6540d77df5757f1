// Reading access to the objects of a binary property list, without building a tree of them. What the objects
// mean is the caller's business (ArchiveReader). The layout is the published one of version "bplist00"; see
// docs/file-format.md.
#pragma once

#include "base/Error.h"
#include "base/Text.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// Looks at bytes that it does not own. Every access is checked: an object that lies outside the object area,
/// reaches into the offset table or has an unknown marker comes back as Kind::Damaged, and nothing is read
/// beyond the data.
class BinaryPlist {
public:
    enum class Kind : std::uint8_t {
        Damaged,
        Null,
        Boolean,
        Integer,
        Real,
        Date,
        Data,
        Ascii,
        Utf16,
        Utf8,
        Uid,
        Array, ///< arrays and sets
        Dictionary,
    };

    /// One object: its kind, and a number or a piece of the data. Two words, so that it travels in registers.
    class Object {
    public:
        constexpr Object() = default; ///< Damaged
        constexpr explicit Object(Kind kind, std::uint64_t value = 0)
            : head_(static_cast<std::uint64_t>(kind)), value_(value) {}
        Object(Kind kind, double number) : Object(kind, std::bit_cast<std::uint64_t>(number)) {}
        /// Requires a count that fits into the data, and so into 56 bits.
        Object(Kind kind, std::uint64_t count, const std::uint8_t* bytes)
            : head_(static_cast<std::uint64_t>(kind) | count << 8), bytes_(bytes) {}

        Kind kind() const { return static_cast<Kind>(head_ & 0xFF); }
        /// Boolean 0 or 1, Integer (64 bits, two's complement), Uid: the value.
        std::uint64_t value() const { return value_; }
        /// Real: the number. Date: seconds since 2001-01-01 00:00 UTC.
        double real() const { return std::bit_cast<double>(value_); }
        /// Texts and Data: units (bytes, or 2-byte units for Utf16). Array: elements. Dictionary: pairs.
        std::uint64_t count() const { return head_ >> 8; }
        /// The text's or data's bytes, or the references of a container (keys first, then values).
        const std::uint8_t* bytes() const { return bytes_; }

    private:
        std::uint64_t head_ = 0; // kind, and the count above it
        union {
            std::uint64_t value_ = 0;
            const std::uint8_t* bytes_; // of texts, data and containers
        };
    };

    /// Checks magic, trailer and tables. Fails with a sentence when this is not a whole binary property list.
    static Result<BinaryPlist> open(std::string_view data);

    std::uint64_t objectCount() const { return objectCount_; }
    std::uint64_t topObject() const { return topObject_; }
    std::size_t referenceSize() const { return referenceSize_; }

    /// Object number `id`; Damaged when the number is out of range.
    Object object(std::uint64_t id) const {
        const std::uint8_t* const bytes = objectBytes(id);
        if (!bytes)
            return {};
        const auto position = static_cast<std::uint64_t>(bytes - data_);
        const std::uint8_t marker = *bytes;
        // References are half of an archive: they go straight through.
        if ((marker & 0xF8) == 0x80 && fits(position + 1, (marker & 7) + 1))
            return Object(Kind::Uid, bigEndian(data_ + position + 1, (marker & 7) + 1));
        return objectAt(position, marker);
    }

    /// Reference number `index` of a container: an object number, not yet checked. Requires an index below
    /// the count of an Array, or below twice the count of a Dictionary.
    std::uint64_t reference(Object container, std::uint64_t index) const {
        return word(container.bytes() + index * referenceSize_) >> referenceShift_;
    }

    // Quick looks at the objects that documents are full of: short texts, and dates, which are dictionaries
    // of a few pairs with a number. Each gives Damaged, or nothing, for everything that `object` has to look
    // at.

    /// A text in ASCII or UTF-16 of fewer than 256 units.
    Object shortText(std::uint64_t id) const {
        const std::uint8_t* const at = objectBytes(id);
        const unsigned high = at ? *at & 0xF0U : 0;
        if (high != 0x50 && high != 0x60)
            return {};
        const bool countFollows = (*at & 0x0F) == 0x0F;
        if (countFollows && at[1] != 0x10)
            return {};
        const std::uint64_t count = countFollows ? at[2] : *at & 0x0F;
        const std::uint8_t* const units = at + (countFollows ? 3 : 1);
        if (!fits(static_cast<std::uint64_t>(units - data_), high == 0x60 ? 2 * count : count))
            return {};
        return Object(high == 0x60 ? Kind::Utf16 : Kind::Ascii, count, units);
    }

    /// A dictionary of fewer than 15 pairs.
    Object shortDictionary(std::uint64_t id) const {
        const std::uint8_t* const at = objectBytes(id);
        const std::uint64_t count = at ? *at & 0x0FU : 0;
        if (!at || *at != (0xD0 | count) || count == 0x0F ||
            !fits(static_cast<std::uint64_t>(at + 1 - data_), 2 * count * referenceSize_))
            return {};
        return Object(Kind::Dictionary, count, at + 1);
    }

    /// The number of a Real of eight bytes.
    std::optional<double> longReal(std::uint64_t id) const {
        const std::uint8_t* const at = objectBytes(id);
        if (!at || *at != 0x23 || !fits(static_cast<std::uint64_t>(at + 1 - data_), 8))
            return std::nullopt;
        return std::bit_cast<double>(word(at + 1));
    }

    /// Whether two containers have the same references in their first `count` places.
    bool sameReferences(Object a, Object b, std::uint64_t count) const {
        const std::uint64_t size = count * referenceSize_;
        if (size == 0)
            return true;
        if (size <= 8)
            return (word(a.bytes()) ^ word(b.bytes())) >> (64 - 8 * size) == 0;
        return std::memcmp(a.bytes(), b.bytes(), size) == 0;
    }

    /// Where the references of a container begin, in bytes from the begin of the file.
    std::size_t positionOf(Object container) const {
        return static_cast<std::size_t>(container.bytes() - data_);
    }
    /// Whether another object begins inside the text with this number or where it does, or the text inside
    /// another one: no writer lays texts over one another. Linear in the number of objects. Requires the
    /// number of a text.
    bool isOverlapped(std::uint64_t id) const;
    /// Where an object begins, in bytes from the begin of the file; 0 when there is none.
    std::size_t beginOf(std::uint64_t id) const {
        const std::uint8_t* const bytes = objectBytes(id);
        return bytes ? static_cast<std::size_t>(bytes - data_) : 0;
    }
    /// Where the objects end and the offset table begins.
    std::size_t endOfObjects() const { return tableOffset_; }
    /// The bytes that a container's references occupy.
    std::uint64_t referenceBytes(Object container) const {
        return container.count() * referenceSize_ * (container.kind() == Kind::Dictionary ? 2 : 1);
    }

    static bool isText(Object object) {
        return object.kind() == Kind::Ascii || object.kind() == Kind::Utf16 || object.kind() == Kind::Utf8;
    }
    /// Requires a text object, or data that holds UTF-8. Malformed parts become U+FFFD.
    static Text text(Object object);
    /// True when the object is a text of exactly these ASCII characters.
    static bool textEquals(Object object, std::string_view ascii);

private:
    static constexpr std::size_t kHeaderSize = 8;

    /// Where the object begins; null when the number is out of range.
    const std::uint8_t* objectBytes(std::uint64_t id) const {
        if (id >= objectCount_)
            return nullptr;
        const std::uint64_t position = word(table_ + id * offsetSize_) >> offsetShift_;
        return position < kHeaderSize || position >= tableOffset_ ? nullptr : data_ + position;
    }
    Object objectAt(std::uint64_t position, std::uint8_t marker) const;
    // The first of the eight bytes a word reads are the number; the trailer keeps the rest inside the data.
    static unsigned shiftFor(std::size_t width) { return static_cast<unsigned>(64 - 8 * width); }
    static std::uint64_t bigEndian(const std::uint8_t* bytes, std::size_t width) {
        return word(bytes) >> shiftFor(width);
    }
    static std::uint64_t word(const std::uint8_t* bytes) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes, 8);
        if constexpr (std::endian::native == std::endian::little)
            word = __builtin_bswap64(word);
        return word;
    }
    Object sized(Kind kind, std::uint64_t position, std::uint8_t marker) const;
    Object number(std::uint64_t position, std::uint8_t marker) const;
    bool fits(std::uint64_t position, std::uint64_t size) const {
        return position <= tableOffset_ && size <= tableOffset_ - position;
    }

    const std::uint8_t* data_ = nullptr;
    const std::uint8_t* table_ = nullptr;
    std::uint64_t tableOffset_ = 0; // also the end of the object area
    std::uint64_t objectCount_ = 0;
    std::uint64_t topObject_ = 0;
    std::size_t offsetSize_ = 0;
    std::size_t referenceSize_ = 0;
    unsigned offsetShift_ = 0;
    unsigned referenceShift_ = 0;
    std::array<std::uint8_t, 16> unitSizes_{}; // by kind: the bytes of one unit, element or pair
};

} // namespace tabulon
