// Reading access to the objects of a binary property list, without building a tree of them. The meaning of
// the objects is defined by the reader of the file (ArchiveReader). The layout is the published one of
// version "bplist00"; see docs/file-format.md.
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

/// Refers to bytes that it does not own; they must outlive it and all objects from it. Every access is
/// checked: an object that begins outside the object area, extends into the offset table or has an unknown
/// marker is returned as Kind::Damaged, and no byte beyond the data is read. Only the object itself is
/// checked: the references in a container may be out of range, or lead to the container again. A copy refers
/// to the same bytes. Constant time unless a function says otherwise. Safe for use by several threads at
/// once.
class BinaryPlist {
public:
    /// The kinds of objects.
    enum class Kind : std::uint8_t {
        Damaged, ///< not an object, or not one inside the object area
        Null,    ///< also an integer that does not fit into 64 bits
        Boolean,
        Integer,
        Real,
        Date,
        Data,
        Ascii, ///< a text of one byte a character; bytes above 127 are possible in a damaged file
        Utf16, ///< a text in UTF-16, high bytes first
        Utf8,
        Uid,   ///< the number of an object in an archive
        Array, ///< arrays and sets
        Dictionary,
    };

    /// One object: its kind, and a number or a part of the data. Two words, so that it is passed in
    /// registers. An object with bytes is valid as long as the data.
    class Object {
    public:
        constexpr Object() = default; ///< constructs Damaged
        /// Constructs an object without bytes. `value` are the 64 bits of its number, 0 for Null.
        constexpr explicit Object(Kind kind, std::uint64_t value = 0)
            : head_(static_cast<std::uint64_t>(kind)), value_(value) {}
        /// Constructs a Real or a Date.
        Object(Kind kind, double number) : Object(kind, std::bit_cast<std::uint64_t>(number)) {}
        /// Constructs a text, Data or a container, whose first unit or reference is at `bytes`. Requires:
        /// `count` units fit into the data, and so `count` fits into 56 bits.
        Object(Kind kind, std::uint64_t count, const std::uint8_t* bytes)
            : head_(static_cast<std::uint64_t>(kind) | count << 8), bytes_(bytes) {}

        /// Returns the kind, which decides which of the other functions may be called.
        Kind kind() const { return static_cast<Kind>(head_ & 0xFF); }
        /// Returns 0 or 1 of a Boolean, the 64 bits (two's complement) of an Integer, or the number of a Uid.
        /// Requires: one of these kinds.
        std::uint64_t value() const { return value_; }
        /// Returns the number of a Real, or the seconds since 2001-01-01 00:00 UTC of a Date. Requires: one
        /// of these kinds.
        double real() const { return std::bit_cast<double>(value_); }
        /// Returns the number of bytes of Ascii, Utf8 and Data, of 2-byte units of Utf16, of elements of an
        /// Array, or of pairs of a Dictionary; 0 for the other kinds.
        std::uint64_t count() const { return head_ >> 8; }
        /// Returns the bytes of a text or of Data, or the references of a container: of a Dictionary all keys
        /// and then all values. Requires: one of these kinds.
        const std::uint8_t* bytes() const { return bytes_; }

    private:
        std::uint64_t head_ = 0; // kind, and the count above it
        union {
            std::uint64_t value_ = 0;
            const std::uint8_t* bytes_; // of texts, data and containers
        };
    };

    /// Returns access to `data`, after a check of magic, trailer and table sizes. The objects are not
    /// checked. Fails with a sentence, without a code, if this is not a whole binary property list of a known
    /// version.
    static Result<BinaryPlist> open(std::string_view data);

    /// Returns the number of objects.
    std::uint64_t objectCount() const { return objectCount_; }
    /// Returns the number of the top object, which is below `objectCount`.
    std::uint64_t topObject() const { return topObject_; }

    /// Returns object number `id`. Returns Damaged if the number is out of range, or the object does not fit
    /// between the header and the offset table. Every object whose count is not 0 therefore has all of its
    /// bytes.
    Object object(std::uint64_t id) const {
        const std::uint8_t* const bytes = objectBytes(id);
        if (!bytes)
            return {};
        const auto position = static_cast<std::uint64_t>(bytes - data_);
        const std::uint8_t marker = *bytes;
        // Half of the objects of an archive are uids, so they are decoded first.
        if ((marker & 0xF8) == 0x80 && fits(position + 1, (marker & 7) + 1))
            return Object(Kind::Uid, bigEndian(data_ + position + 1, (marker & 7) + 1));
        return objectAt(position, marker);
    }

    /// Returns reference number `index` of a container. It is an object number, which may be out of range.
    /// Requires: `index` is below the count of an Array, or below twice the count of a Dictionary.
    std::uint64_t reference(Object container, std::uint64_t index) const {
        return word(container.bytes() + index * referenceSize_) >> referenceShift_;
    }

    // Fast forms of `object` for the most frequent objects of documents: short texts, and dates, which are
    // dictionaries of a few pairs with a number. Where one returns Damaged or `nullopt`, the object may be
    // sound, and the caller must use `object`.

    /// Returns a text in ASCII or UTF-16 of fewer than 256 units, or Damaged for every other object.
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

    /// Returns a dictionary of fewer than 15 pairs, or Damaged for every other object.
    Object shortDictionary(std::uint64_t id) const {
        const std::uint8_t* const at = objectBytes(id);
        const std::uint64_t count = at ? *at & 0x0FU : 0;
        if (!at || *at != (0xD0 | count) || count == 0x0F ||
            !fits(static_cast<std::uint64_t>(at + 1 - data_), 2 * count * referenceSize_))
            return {};
        return Object(Kind::Dictionary, count, at + 1);
    }

    /// Returns the number of a Real of eight bytes, or `nullopt` for every other object.
    std::optional<double> longReal(std::uint64_t id) const {
        const std::uint8_t* const at = objectBytes(id);
        if (!at || *at != 0x23 || !fits(static_cast<std::uint64_t>(at + 1 - data_), 8))
            return std::nullopt;
        return std::bit_cast<double>(word(at + 1));
    }

    /// Returns true if the first `count` references of two containers are equal. Linear in `count`. Requires:
    /// both have at least `count` references.
    bool sameReferences(Object a, Object b, std::uint64_t count) const {
        const std::uint64_t size = count * referenceSize_;
        if (size == 0)
            return true;
        if (size <= 8)
            return (word(a.bytes()) ^ word(b.bytes())) >> (64 - 8 * size) == 0;
        return std::memcmp(a.bytes(), b.bytes(), size) == 0;
    }

    /// Returns the position of a container's first reference, in bytes from the beginning of the data.
    /// Requires: an Array or a Dictionary.
    std::size_t positionOf(Object container) const {
        return static_cast<std::size_t>(container.bytes() - data_);
    }
    /// Returns true if another object begins where text `id` begins or inside it, or if the nearest object
    /// that begins before it is a text that extends into it. No writer stores texts that overlap, so this
    /// shows damage. Linear in the number of objects. Requires: `id` is the number of a text.
    bool isOverlapped(std::uint64_t id) const;
    /// Returns the position of object `id`, in bytes from the beginning of the data, or 0 if the number is
    /// out of range or the object does not begin in the object area.
    std::size_t beginOf(std::uint64_t id) const {
        const std::uint8_t* const bytes = objectBytes(id);
        return bytes ? static_cast<std::size_t>(bytes - data_) : 0;
    }
    /// Returns the position in bytes at which the objects end and the offset table begins.
    std::size_t endOfObjects() const { return tableOffset_; }
    /// Returns the size in bytes of all references of a container. Requires: an Array or a Dictionary.
    std::uint64_t referenceBytes(Object container) const {
        return container.count() * referenceSize_ * (container.kind() == Kind::Dictionary ? 2 : 1);
    }

    /// Returns true for Ascii, Utf16 and Utf8.
    static bool isText(Object object) {
        return object.kind() == Kind::Ascii || object.kind() == Kind::Utf16 || object.kind() == Kind::Utf8;
    }
    /// Returns the text of a text object, or the content of Data as UTF-8; never null. Malformed parts become
    /// U+FFFD, and a text above `Text::kMaximumSize` is cut. Copies the bytes, so the result does not refer
    /// to the data. Linear in the size of the text. Requires: a text or Data.
    static Text text(Object object);
    /// Returns true if the object is a text of exactly these ASCII characters; false for every other kind.
    /// Linear in the size of `ascii` at most.
    static bool textEquals(Object object, std::string_view ascii);

private:
    static constexpr std::size_t kHeaderSize = 8;

    /// Returns the address of the object's marker, or nullptr if the number is out of range or the object
    /// does not begin in the object area.
    const std::uint8_t* objectBytes(std::uint64_t id) const {
        if (id >= objectCount_)
            return nullptr;
        const std::uint64_t position = word(table_ + id * offsetSize_) >> offsetShift_;
        return position < kHeaderSize || position >= tableOffset_ ? nullptr : data_ + position;
    }
    /// Returns the object with this marker at a position in bytes, or Damaged. Requires: the position is in
    /// the object area.
    Object objectAt(std::uint64_t position, std::uint8_t marker) const;
    // A word reads eight bytes, of which the first ones are the number. The others are inside the data,
    // because the trailer follows.
    /// Returns the number of bits by which a word is shifted right to get the number in its first `width`
    /// bytes. Requires: 1 <= width <= 8.
    static unsigned shiftFor(std::size_t width) { return static_cast<unsigned>(64 - 8 * width); }
    /// Returns the number in the first `width` bytes, high bytes first. Requires: 1 <= width <= 8, and eight
    /// readable bytes.
    static std::uint64_t bigEndian(const std::uint8_t* bytes, std::size_t width) {
        return word(bytes) >> shiftFor(width);
    }
    /// Returns eight bytes as a number, high bytes first, at any alignment. Requires: all eight are readable.
    static std::uint64_t word(const std::uint8_t* bytes) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes, 8);
        if constexpr (std::endian::native == std::endian::little)
            word = __builtin_bswap64(word);
        return word;
    }
    /// Returns a text, Data or a container, whose count is in the marker or in an integer after it. Damaged
    /// if its bytes end after the object area, or the count is no integer.
    Object sized(Kind kind, std::uint64_t position, std::uint8_t marker) const;
    /// Returns an object without a count: Null, a Boolean, an Integer, a Real or a Date. Damaged for any
    /// other marker.
    Object number(std::uint64_t position, std::uint8_t marker) const;
    /// Returns true if `size` bytes from `position` on end before the offset table. Both may have any value.
    bool fits(std::uint64_t position, std::uint64_t size) const {
        return position <= tableOffset_ && size <= tableOffset_ - position;
    }

    const std::uint8_t* data_ = nullptr;  // not owned
    const std::uint8_t* table_ = nullptr; // the offset table in the data: offsets of objects, by number
    std::uint64_t tableOffset_ = 0;       // in bytes; also the end of the object area
    std::uint64_t objectCount_ = 0;
    /// The number of the top object, below `objectCount_` after `open`.
    std::uint64_t topObject_ = 0;
    std::size_t offsetSize_ = 0;    // the width of an offset, 1 to 8 bytes
    std::size_t referenceSize_ = 0; // the width of a reference, 1 to 8 bytes
    unsigned offsetShift_ = 0;      // see `shiftFor`
    unsigned referenceShift_ = 0;
    std::array<std::uint8_t, 16> unitSizes_{}; // by kind: the size in bytes of one unit, element or pair
};

} // namespace tabulon
