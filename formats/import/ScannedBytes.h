// The bytes of a file that is being scanned: searches that never leave them and count what they cost. What is
// searched for, and in which order, is the scanner's affair.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace tabulon {

/// What may stand around a name or a tag.
constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// Positions count from the first byte; every position may lie beyond the end, where nothing is found.
class ScannedBytes {
public:
    static constexpr std::size_t npos = std::string_view::npos;

    /// `bytes` must outlive this object.
    explicit ScannedBytes(std::string_view bytes) : bytes_(bytes) {}

    std::size_t size() const { return bytes_.size(); }
    /// The byte at `position`, or a zero byte beyond the end.
    char at(std::size_t position) const { return position < bytes_.size() ? bytes_[position] : '\0'; }
    /// Whether a literal stands at `position`.
    template <std::size_t Size>
    bool startsAt(std::size_t position, const char (&pattern)[Size]) const {
        constexpr std::size_t length = Size - 1;
        return position < bytes_.size() && bytes_.size() - position >= length &&
               std::memcmp(bytes_.data() + position, pattern, length) == 0;
    }
    /// Requires from <= to <= size().
    std::string_view range(std::size_t from, std::size_t to) const { return bytes_.substr(from, to - from); }

    /// The first place at or after `from` and before `to` where `byte` stands, or npos.
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
    /// The same for a literal that stands whole before `to`.
    template <std::size_t Size>
    std::size_t find(const char (&pattern)[Size], std::size_t from, std::size_t to = npos) const {
        constexpr std::size_t length = Size - 1;
        std::size_t found = from;
        while (found != npos && !(startsAt(found, pattern) && found + length <= to))
            found = find(pattern[0], found + 1, to);
        return found;
    }
    /// The last place at or after `from` and before `to` where `byte` stands, or npos. Requires
    /// from <= to <= size().
    std::size_t findBackwards(char byte, std::size_t to, std::size_t from) const {
        const std::size_t found = range(from, to).rfind(byte);
        countExamined(found == npos ? from : from + found, to + 1);
        return found == npos ? npos : from + found;
    }

    /// Counts the bytes of a range that were looked at by other means than these searches.
    void countExamined(std::size_t from, std::size_t to) const {
        const std::size_t end = std::min(to, bytes_.size());
        examined_ += end > from ? end - from : 0;
    }
    /// How many bytes were gone over so far, those counted twice that were gone over twice.
    std::size_t examined() const { return examined_; }

private:
    std::string_view bytes_;
    mutable std::size_t examined_ = 0;
};

/// Remembers the last answer of a forward search: what is found at p from s is found from everywhere in
/// between. So searches from ever later places go over no byte twice.
class RememberedSearch {
public:
    /// The answer of `search(from)`, which is called only where it is not known yet.
    template <class Search>
    std::size_t find(std::size_t from, Search search) {
        if (from < from_ || from > found_) {
            from_ = from;
            found_ = search(from);
        }
        return found_;
    }

private:
    std::size_t from_ = 1; // later than the answer: nothing is remembered yet
    std::size_t found_ = 0;
};

} // namespace tabulon
