// Reading access to the objects of a binary property list, without building a tree of them. What the objects
// mean is the caller's business (ArchiveReader). The layout is the published one of version "bplist00"; see
// docs/file-format.md.
#pragma once

#include "model/Error.h"
#include "model/Text.h"

#include <bit>
#include <cstdint>
#include <cstring>
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

    struct Object {
        Kind kind = Kind::Damaged;
        /// Boolean 0 or 1, Integer (64 bits, two's complement), Uid: the value. Texts and Data: units (bytes,
        /// or 2-byte units for Utf16). Array: elements. Dictionary: pairs.
        std::uint64_t value = 0;
        /// Real: the number. Date: seconds since 2001-01-01 00:00 UTC.
        double real = 0;
        /// The text's or data's bytes, or the references of a container (keys first, then values).
        const std::uint8_t* bytes = nullptr;
    };

    /// Checks magic, trailer and tables. Fails with a sentence when this is not a whole binary property list.
    static Result<BinaryPlist> open(std::string_view data);

    std::uint64_t objectCount() const { return objectCount_; }
    std::uint64_t topObject() const { return topObject_; }
    std::size_t referenceSize() const { return referenceSize_; }

    /// Object number `id`; Damaged when the number is out of range.
    Object object(std::uint64_t id) const {
        if (id >= objectCount_)
            return {};
        const std::uint64_t position = bigEndian(data_ + tableOffset_ + id * offsetSize_, offsetSize_);
        if (position < kHeaderSize || position >= tableOffset_)
            return {};
        const std::uint8_t marker = data_[position];
        // References are half of an archive: they go straight through.
        if ((marker & 0xF8) == 0x80 && fits(position + 1, (marker & 7) + 1))
            return {Kind::Uid, bigEndian(data_ + position + 1, (marker & 7) + 1)};
        return objectAt(position, marker);
    }

    /// Reference number `index` of a container: an object number, not yet checked. Requires an index below
    /// the count of an Array, or below twice the count of a Dictionary.
    std::uint64_t reference(const Object& container, std::uint64_t index) const {
        return bigEndian(container.bytes + index * referenceSize_, referenceSize_);
    }

    /// The bytes that a container's references occupy.
    std::uint64_t referenceBytes(const Object& container) const {
        return container.value * referenceSize_ * (container.kind == Kind::Dictionary ? 2 : 1);
    }

    static bool isText(const Object& object) {
        return object.kind == Kind::Ascii || object.kind == Kind::Utf16 || object.kind == Kind::Utf8;
    }
    /// Requires a text object, or data that holds UTF-8. Malformed parts become U+FFFD.
    static Text text(const Object& object);
    /// True when the object is a text of exactly these ASCII characters.
    static bool textEquals(const Object& object, std::string_view ascii);

private:
    static constexpr std::size_t kHeaderSize = 8;

    Object objectAt(std::uint64_t position, std::uint8_t marker) const;
    // Eight bytes are read whatever the width: the trailer keeps them inside the data.
    static std::uint64_t bigEndian(const std::uint8_t* bytes, std::size_t width) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes, 8);
        if constexpr (std::endian::native == std::endian::little)
            word = __builtin_bswap64(word);
        return word >> (64 - 8 * width);
    }
    Object sized(Kind kind, std::uint64_t position, std::uint8_t nibble, std::size_t unit) const;
    Object number(std::uint64_t position, std::uint8_t marker) const;
    bool fits(std::uint64_t position, std::uint64_t size) const {
        return position <= tableOffset_ && size <= tableOffset_ - position;
    }

    const std::uint8_t* data_ = nullptr;
    std::uint64_t tableOffset_ = 0; // also the end of the object area
    std::uint64_t objectCount_ = 0;
    std::uint64_t topObject_ = 0;
    std::size_t offsetSize_ = 0;
    std::size_t referenceSize_ = 0;
};

} // namespace tabulon
