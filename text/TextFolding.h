// Texts as they count in a search: composed, without diacritics, without case.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// Appends the folded form of `text`, by ICU alone. Marks that are part of a letter stay: the nukta of Indic
/// scripts, the voicing marks of kana, the virama, vowel signs. Where ICU fails (it lacks memory) the text
/// counts as it stands.
void appendFoldedByICU(std::string& result, std::string_view text);

/// Whether I is the capital of i, or of the dotless ı as in Turkish and Azerbaijani, where i has the capital
/// İ.
enum class LetterI { Common, Turkish };

/// Gives the same, many times faster: it remembers what becomes of each character. Texts in which characters
/// act on their neighbours go to ICU. The letters of Turkish are told apart before.
class TextFolder {
public:
    explicit TextFolder(LetterI letterI = LetterI::Common) : letterI_(letterI) {}

    LetterI letterI() const { return letterI_; }

    void appendFolded(std::string& result, std::string_view text);

    /// Whether every character of `text` that is not ASCII stays something that is not ASCII. Then a part of
    /// ASCII stands in the folded form where it stands in the text, but for case, and nowhere else. False for
    /// some texts of which that is true, and for what is not UTF-8.
    bool keepsFromAscii(std::string_view text);

private:
    /// What becomes of one character: up to seven bytes, or one of the two marks in place of their number.
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

    /// Which of sixty-four characters in a row stay something that is not ASCII.
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
