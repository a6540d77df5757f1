// Writing of a binary property list, object by object. The caller decides which objects there are and refers
// to them by number. docs/file-format.md describes the layout.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// Appends objects to a file in memory. Each `write…` returns the number of the object that it has written.
/// The numbers are consecutive from 0. No objects are shared: equal values that are written twice are two
/// objects. Arguments are copied. Takes memory for the file and for eight bytes an object; each function is
/// linear in the bytes that it writes. Throws std::bad_alloc when memory is exhausted.
class PlistWriter {
public:
    /// `mostObjects` determines the size of references; memory for so many offsets is reserved. `bytes` is an
    /// estimate of the file's size. Requires: no more than `mostObjects` objects will be written.
    PlistWriter(std::uint64_t mostObjects, std::size_t bytes);

    /// Writes the object Null, which archives do not use: there a missing value is a uid of 0.
    std::uint64_t writeNull();
    std::uint64_t writeBoolean(bool value);
    /// Writes an integer of 1, 2, 4 or 8 bytes. A negative one has 8 bytes, since shorter ones have no sign.
    std::uint64_t writeInteger(std::int64_t value);
    /// Writes a real number of eight bytes, bit by bit, also an infinity or a NaN.
    std::uint64_t writeReal(double value);
    /// Writes a date, in seconds since 2001-01-01 00:00 UTC, bit by bit.
    std::uint64_t writeDate(double seconds);
    /// Writes data of any bytes.
    std::uint64_t writeData(std::string_view bytes);
    /// Writes a UTF-8 text as ASCII, or as UTF-16 if it contains other characters. Malformed parts become
    /// U+FFFD.
    std::uint64_t writeText(std::string_view utf8);
    /// Writes a uid of 1, 2, 4 or 8 bytes: `value` is the number of an object of an archive, which is an
    /// index into the archive's list of objects and not a number that this class returns.
    std::uint64_t writeUid(std::uint64_t value);
    /// Writes an array of the objects with these numbers, which may be written later. The numbers in
    /// containers are not checked.
    std::uint64_t writeArray(const std::vector<std::uint64_t>& elements);
    /// Writes an array of `count` objects with consecutive numbers from `first` on, which may be written
    /// later.
    std::uint64_t writeArrayOfConsecutive(std::uint64_t first, std::uint64_t count);
    /// The keys of a dictionary as bytes, prepared once for many dictionaries. Used only with the writer that
    /// made it.
    class Keys {
    public:
        /// Returns the number of keys.
        std::size_t count() const { return count_; }

    private:
        friend class PlistWriter;
        std::string bytes_; // the references as they are written
        std::size_t count_ = 0;
    };
    /// Returns the keys with these object numbers, prepared for `writeDictionary`. Neither their kind nor
    /// repeated keys are checked.
    Keys layOutKeys(std::initializer_list<std::uint64_t> keys) const {
        return layOutKeys(keys.begin(), keys.size());
    }
    /// Returns the `count` keys with the object numbers at `keys`. `keys` may be nullptr if `count` is 0.
    Keys layOutKeys(const std::uint64_t* keys, std::size_t count) const;
    /// Writes a dictionary of `keys` and the objects with the numbers `values`, which may be written later.
    /// Requires: as many values as keys.
    std::uint64_t writeDictionary(const Keys& keys, std::initializer_list<std::uint64_t> values) {
        return writeDictionary(keys, values.begin());
    }
    /// Writes a dictionary like the function above. Requires: `values` are `keys.count()` object numbers. It
    /// may be nullptr if there are no keys.
    std::uint64_t writeDictionary(const Keys& keys, const std::uint64_t* values);

    /// Returns the number of objects written.
    std::uint64_t objectCount() const { return offsets_.size(); }

    /// Appends the offset table and the trailer, and returns the whole file. The writer must not be used
    /// afterwards. Requires: `topObject` and all numbers in containers are numbers of objects that were
    /// written.
    std::string finish(std::uint64_t topObject);

private:
    static constexpr std::size_t kSmall = 1024; // bytes of the longest text that is written through the block

    /// Registers an object that begins at the current end of the file, and returns its number.
    std::uint64_t begin() {
        offsets_.push_back(bytes_.size() + used_);
        return offsets_.size() - 1;
    }
    static char* put(char* at, std::uint64_t value, std::size_t width);
    char* room(std::size_t size);
    /// Adds the bytes before `at` to the file. Requires: `at` is in the room that `room` has returned, or is
    /// its end.
    void endAt(const char* at) { used_ = static_cast<std::size_t>(at - block_.data()); }
    /// Appends the block to `bytes_`, and empties it.
    void flush();
    /// Appends any number of bytes. More than kSmall do not use the block.
    void append(std::string_view bytes);
    void appendByte(std::uint8_t byte);
    /// Appends the marker of a kind with a count; from 15 on the count is an integer after it.
    void appendMarker(std::uint8_t kind, std::uint64_t count);
    void appendNumber(std::uint64_t value, std::size_t width);
    /// Appends the numbers that `number(index)` returns for the indices below `count`, with `width` bytes
    /// each.
    template <class Number>
    void appendNumbers(std::size_t count, std::size_t width, Number number);
    std::uint64_t writeNumber(std::uint8_t marker, std::uint64_t value, std::size_t width);

    std::string bytes_;
    std::array<char, 8 * kSmall> block_; // the end of the file, not yet in `bytes_`
    std::size_t used_ = 0;               // bytes of the block
    std::string units_;                  // buffer for UTF-16, reused for each text
    std::vector<std::uint64_t> offsets_; // by object number: the position of its marker, in bytes
    std::size_t referenceSize_;          // the width of a reference: 1, 2, 4 or 8 bytes
};

} // namespace tabulon
