// One part that is looked for in very many texts, regardless of the case of ASCII letters.
#pragma once

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
    explicit TextSearch(std::string part) : part_(std::move(part)) {}

    /// Whether the part stands in a text of ASCII; none for a text with other bytes.
    std::optional<bool> inAscii(std::string_view text) const;
    /// Whether the bytes of the part stand in `text`, which has no capital ASCII letters.
    bool inSmallLetters(std::string_view text) const;
    /// Where they stand there first; none where they do not.
    std::optional<std::size_t> placeInSmallLetters(std::string_view text) const;

    /// How many bytes the part has.
    std::size_t size() const { return part_.size(); }

private:
    class Scan;

    std::string part_;
};

} // namespace tabulon
