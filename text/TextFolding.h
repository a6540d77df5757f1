// The form of texts in which a search compares them ("folded"): composed, without diacritics and without
// case. The comparison itself is in text/Collation.h.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// Appends the folded form of `text`, UTF-8, as ICU computes it. Marks that are part of a letter stay: the
/// nukta of Indic scripts, the voicing marks of kana, the virama, vowel signs. Malformed parts become U+FFFD.
/// Only the first 256 MiB of `text` are used. Appends `text` unchanged if ICU fails, which it does where it
/// lacks memory.
void appendFoldedByICU(std::string& result, std::string_view text);

/// The small letter of I: i (Common), or the dotless ı as in Turkish and Azerbaijani, where the capital of i
/// is İ.
enum class LetterI { Common, Turkish };

/// Folds like `appendFoldedByICU`, but many times faster, because it caches the folded form of each
/// character. A text in which a form depends on neighbouring characters is folded by ICU. The cache has a
/// page for each 256 characters of which one was folded. Not safe for use by several threads at once.
class TextFolding {
public:
    /// With LetterI::Turkish, I becomes ı and İ becomes i before anything else.
    explicit TextFolding(LetterI letterI = LetterI::Common) : letterI_(letterI) {}

    LetterI letterI() const { return letterI_; }

    /// Appends the folded form of `text`, UTF-8. The result is that of `appendFoldedByICU` for
    /// LetterI::Common.
    void appendFolded(std::string& result, std::string_view text);

    /// Returns true if the folded form of every non-ASCII character of `text` contains only non-ASCII
    /// characters, and at least one. Then the folded form contains an ASCII part exactly where `text`
    /// contains it, ignoring case. May return false although this is true. Returns false for malformed UTF-8.
    bool keepsFromAscii(std::string_view text);

private:
    /// The folded form of one character: up to seven bytes of UTF-8. `size` is their number, or one of the
    /// two special values below.
    struct Folded {
        std::uint8_t size = kUnknown;
        std::array<char, 7> bytes{};
    };
    static constexpr std::uint8_t kUnknown = 0xFF;
    static constexpr std::uint8_t kNeedsICU = 0xFE;
    static constexpr std::size_t kPageSize = 256;
    using Page = std::array<Folded, kPageSize>;

    bool appendByTable(std::string& result, std::string_view text);
    const Folded& foldedFor(char32_t character);
    const Folded& learn(char32_t character);

    /// Of 64 consecutive characters, a bit for each whose folded form is non-ASCII (see `keepsFromAscii`).
    struct Kept {
        std::uint64_t characters = 0;
        bool isKnown = false;
    };
    static constexpr std::size_t kKeptPerEntry = 64;

    bool learnKept(std::size_t entry, std::size_t place);

    LetterI letterI_;
    std::vector<std::unique_ptr<Page>> pages_;
    std::vector<Kept> kept_;
};

} // namespace tabulon
