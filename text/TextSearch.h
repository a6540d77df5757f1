// The search for one part in very many texts, ignoring the case of ASCII letters. Folding of other characters
// is in text/TextFolding.h; text/Collation.h combines both.
#pragma once

#include "base/ByteBlock.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// Optimised for texts that are short, mostly ASCII and mostly do not contain the part. Every search is
/// linear in the size of the text, for every text and part. Texts are UTF-8. `const` functions are safe for
/// use by several threads at once.
class TextSearch {
public:
    /// Searches for the empty part, which every text contains.
    TextSearch() = default;
    /// Searches for `part`, in its folded form. Requires: no capital ASCII letters.
    explicit TextSearch(std::string part);

    /// Returns true if all bytes of the part are ASCII.
    bool isAscii() const { return isAscii_; }

    /// Returns whether the folded form of `text` contains the part, if this is certain without folding.
    /// Returns `nullopt` if the folded forms of non-ASCII characters decide it. `text` need not be folded.
    /// Not valid for LetterI::Turkish, where the small letter of I is not i.
    std::optional<bool> isIn(std::string_view text) const;
    /// Returns true if `text` contains the bytes of the part. Requires: no capital ASCII letters in `text`.
    bool inSmallLetters(std::string_view text) const;
    /// Returns the position in bytes at which `text` first contains the part, or `nullopt`. Requires: no
    /// capital ASCII letters in `text`.
    std::optional<std::size_t> placeInSmallLetters(std::string_view text) const;

    /// Returns the size of the part in bytes.
    std::size_t size() const { return part_.size(); }

private:
    class Scan;

    /// The two bytes of the part by which candidates are found: the first one, and the last one or the
    /// sixteenth of a longer part.
    struct Ends {
        ByteBlock first{};
        ByteBlock firstCase{}; ///< the bit by which the case of the letter differs, else 0
        ByteBlock last{};
        ByteBlock lastCase{};
        std::size_t reach = 0; ///< the distance from the first to the last, in bytes
    };

    std::string part_;
    Ends ends_;
    bool isAscii_ = true;
};

} // namespace tabulon
