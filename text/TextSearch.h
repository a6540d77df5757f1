// One part that is looked for in very many texts, regardless of the case of ASCII letters.
#pragma once

#include "base/ByteBlock.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// Made for texts that are short, mostly ASCII, and mostly without the part. All work is linear in the size
/// of the text, whatever both hold.
class TextSearch {
public:
    TextSearch() = default;
    /// `part` holds no capital ASCII letters. The empty part is in every text.
    explicit TextSearch(std::string part);

    /// Whether all bytes of the part are ASCII.
    bool isAscii() const { return isAscii_; }

    /// Whether the part stands in a text; none where what becomes of the characters decides that which are
    /// not ASCII. A part of ASCII that stands there is there whatever becomes of them.
    std::optional<bool> isIn(std::string_view text) const;
    /// Whether the bytes of the part stand in `text`, which has no capital ASCII letters.
    bool inSmallLetters(std::string_view text) const;
    /// Where they stand there first; none where they do not.
    std::optional<std::size_t> placeInSmallLetters(std::string_view text) const;

    /// How many bytes the part has.
    std::size_t size() const { return part_.size(); }

private:
    class Scan;

    /// What makes a place a candidate: the part's first byte, and its last one or the sixteenth of a longer
    /// part.
    struct Ends {
        ByteBlock first{};
        ByteBlock firstCase{}; ///< the bit of a letter's case
        ByteBlock last{};
        ByteBlock lastCase{};
        std::size_t reach = 0; ///< from the first to the last
    };

    std::string part_;
    Ends ends_;
    bool isAscii_ = true;
};

} // namespace tabulon
