// The byte layout of a binary property list, object by object. The caller decides what objects there are and
// refers to them by number; docs/file-format.md gives the layout.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// Appends objects to a growing file. Each `write…` gives the number of the object it wrote; numbers count
/// from 0.
class PlistWriter {
public:
    /// `mostObjects` is an upper bound for the number of objects, `bytes` a guess of the file's size.
    PlistWriter(std::uint64_t mostObjects, std::size_t bytes);

    std::uint64_t writeNull();
    std::uint64_t writeBoolean(bool value);
    std::uint64_t writeInteger(std::int64_t value);
    std::uint64_t writeReal(double value);
    /// `seconds` since 2001-01-01 00:00 UTC.
    std::uint64_t writeDate(double seconds);
    std::uint64_t writeData(std::string_view bytes);
    /// UTF-8 in; ASCII or UTF-16 in the file. What is not UTF-8 becomes U+FFFD.
    std::uint64_t writeText(std::string_view utf8);
    std::uint64_t writeUid(std::uint64_t value);
    /// Elements by number; they may be written later.
    std::uint64_t writeArray(const std::vector<std::uint64_t>& elements);
    /// `count` elements with consecutive numbers from `first`.
    std::uint64_t writeArrayOfConsecutive(std::uint64_t first, std::uint64_t count);
    /// The keys of dictionaries that come often, laid out once. Made by the writer that it is used with.
    class Keys {
    public:
        std::size_t count() const { return count_; }

    private:
        friend class PlistWriter;
        std::string bytes_;
        std::size_t count_ = 0;
    };
    Keys layOutKeys(std::initializer_list<std::uint64_t> keys) const {
        return layOutKeys(keys.begin(), keys.size());
    }
    Keys layOutKeys(const std::uint64_t* keys, std::size_t count) const;
    /// As many values, by number, as there are keys.
    std::uint64_t writeDictionary(const Keys& keys, std::initializer_list<std::uint64_t> values) {
        return writeDictionary(keys, values.begin());
    }
    std::uint64_t writeDictionary(const Keys& keys, const std::uint64_t* values);

    std::uint64_t objectCount() const { return offsets_.size(); }

    /// Appends the offset table and the trailer and gives the whole file. The writer is used up.
    std::string finish(std::uint64_t topObject);

private:
    static constexpr std::size_t kSmall = 1024; // texts up to here go by the block

    std::uint64_t begin() {
        offsets_.push_back(bytes_.size() + used_);
        return offsets_.size() - 1;
    }
    static char* put(char* at, std::uint64_t value, std::size_t width);
    char* room(std::size_t size);
    void endAt(const char* at) { used_ = static_cast<std::size_t>(at - block_.data()); }
    void flush();
    void append(std::string_view bytes);
    void appendByte(std::uint8_t byte);
    void appendMarker(std::uint8_t kind, std::uint64_t count);
    void appendNumber(std::uint64_t value, std::size_t width);
    template <class Number>
    void appendNumbers(std::size_t count, std::size_t width, Number number);
    std::uint64_t writeNumber(std::uint8_t marker, std::uint64_t value, std::size_t width);

    std::string bytes_;
    std::array<char, 8 * kSmall> block_; // what comes after them
    std::size_t used_ = 0;               // of the block
    std::string units_;                  // of the text that is being written; its memory is kept
    std::vector<std::uint64_t> offsets_;
    std::size_t referenceSize_;
};

} // namespace tabulon
