// The bytes of a file that is scanned: bounded searches that count the bytes they examine. The scanner
// decides what to search for.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace tabulon {

/// Returns whether `c` is a character that may surround a name or a tag.
constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// The bytes of a file, with searches in them. Positions are offsets in bytes. Every position may be beyond
/// the end, where no search finds anything, unless a function requires otherwise.
class ScannedBytes {
public:
    static constexpr std::size_t npos = std::string_view::npos;

    /// `bytes` must outlive this object.
    explicit ScannedBytes(std::string_view bytes) : bytes_(bytes) {}

    std::size_t size() const { return bytes_.size(); }
    /// Returns the byte at `position`, or a zero byte beyond the end.
    char at(std::size_t position) const { return position < bytes_.size() ? bytes_[position] : '\0'; }
    /// Returns whether the bytes at `position` are `pattern`.
    template <std::size_t Size>
    bool startsAt(std::size_t position, const char (&pattern)[Size]) const {
        constexpr std::size_t length = Size - 1;
        return position < bytes_.size() && bytes_.size() - position >= length &&
               std::memcmp(bytes_.data() + position, pattern, length) == 0;
    }
    /// Returns the bytes from `from` to before `to`. Requires: from <= to <= size().
    std::string_view range(std::size_t from, std::size_t to) const { return bytes_.substr(from, to - from); }

    /// Returns the first position of `byte` at or after `from` and before `to`, or npos. Linear.
    std::size_t find(char byte, std::size_t from, std::size_t to = npos) const {
        const std::size_t end = std::min(to, bytes_.size());
        if (from >= end)
            return npos;
        if (bytes_[from] == byte) {
            ++examined_;
            return from;
        }
        const void* place = std::memchr(bytes_.data() + from, byte, end - from);
        const std::size_t found =
            place ? static_cast<std::size_t>(static_cast<const char*>(place) - bytes_.data()) : npos;
        examined_ += (place ? found + 1 : end) - from;
        return found;
    }
    /// Returns the first position of `pattern` at or after `from`, or npos where it does not end before or at
    /// `to`.
    template <std::size_t Size>
    std::size_t find(const char (&pattern)[Size], std::size_t from, std::size_t to = npos) const {
        constexpr std::size_t length = Size - 1;
        std::size_t found = from;
        while (found != npos && !(startsAt(found, pattern) && found + length <= to))
            found = find(pattern[0], found + 1, to);
        return found;
    }
    /// Returns the last position of `byte` at or after `from` and before `to`, or npos. Requires: from <= to
    /// <= size().
    std::size_t findBackwards(char byte, std::size_t to, std::size_t from) const {
        const std::size_t found = range(from, to).rfind(byte);
        countExamined(found == npos ? from : from + found, to + 1);
        return found == npos ? npos : from + found;
    }

    /// Counts the bytes of a range that other code has examined.
    void countExamined(std::size_t from, std::size_t to) const {
        const std::size_t end = std::min(to, bytes_.size());
        examined_ += end > from ? end - from : 0;
    }
    /// Returns the number of bytes examined, each counted as often as it was examined.
    std::size_t examined() const { return examined_; }

private:
    std::string_view bytes_;
    mutable std::size_t examined_ = 0;
};

/// Caches the last result of a forward search. The result p of a search from s is also that of a search from
/// every position between s and p. So searches from increasing positions examine each byte once.
class RememberedSearch {
public:
    /// Returns the result of `search(from)`, which is called only if the result is not cached.
    template <class Search>
    std::size_t find(std::size_t from, Search search) {
        if (from < from_ || from > found_) {
            from_ = from;
            found_ = search(from);
        }
        return found_;
    }

private:
    std::size_t from_ = 1; // greater than `found_`: nothing is cached yet
    std::size_t found_ = 0;
};

} // namespace tabulon
