#include "text/TextFolding.h"

#include "base/Ascii.h"
#include "base/Text.h"

#include <unicode/normalizer2.h>
#include <unicode/stringpiece.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstring>

namespace tabulon {
namespace {

// What of a text counts; ICU measures its buffers in 32 bits.
constexpr std::size_t kFoldedBytes = std::size_t{1} << 28;

// A mark that only accents the letter before it: no nukta, no virama, no voicing mark (they have a class
// between), no vowel sign (it has none).
bool isDiacritic(UChar32 character) {
    if (u_charType(character) != U_NON_SPACING_MARK)
        return false;
    constexpr int kNukta = 7;
    constexpr int kVirama = 9;
    const int combiningClass = u_getCombiningClass(character);
    return combiningClass != 0 && (combiningClass < kNukta || combiningClass > kVirama);
}

icu::UnicodeString withoutDiacritics(const icu::UnicodeString& text) {
    icu::UnicodeString kept;
    for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1))
        if (const UChar32 character = text.char32At(i); !isDiacritic(character))
            kept.append(character);
    return kept;
}

// The text without its diacritics before it is decomposed, which gives the same: putting long runs of marks
// in order would take time in the square of their length. A run of marks that stay is cut as the stream-safe
// text form has it.
icu::UnicodeString readyToDecompose(const icu::UnicodeString& text) {
    constexpr int kLongestRun = 30;
    constexpr UChar32 kGraphemeJoiner = 0x34F;
    icu::UnicodeString kept;
    int run = 0;
    for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
        const UChar32 character = text.char32At(i);
        if (isDiacritic(character))
            continue;
        run = u_getCombiningClass(character) == 0 ? 0 : run + 1;
        if (run > kLongestRun) {
            kept.append(kGraphemeJoiner);
            run = 1;
        }
        kept.append(character);
    }
    return kept;
}

// The dotted and the dotless I of Turkish are two letters, each with a capital of its own.
std::string withSmallTurkishI(std::string_view text) {
    constexpr std::string_view kDotlessSmall = "\u0131";
    constexpr std::string_view kDottedCapital = "\u0130";
    constexpr std::string_view kDotAbove = "\u0307";
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::string_view rest = text.substr(at);
        const bool isDotless = rest.front() == 'I' && !rest.substr(1).starts_with(kDotAbove);
        if (rest.front() != 'I' && !rest.starts_with(kDottedCapital)) {
            result += rest.front();
            ++at;
            continue;
        }
        result += isDotless ? kDotlessSmall : "i";
        at += rest.front() == 'I' ? 1 : kDottedCapital.size();
    }
    return result;
}

// A character decomposed, without its diacritics.
icu::UnicodeString keptOf(UChar32 character, const icu::Normalizer2& decomposing) {
    icu::UnicodeString decomposed;
    if (!decomposing.getDecomposition(character, decomposed))
        decomposed = character;
    return withoutDiacritics(decomposed);
}

// Whether a text that begins with this character, once it has lost its diacritics, composes with nothing
// before it. Then what becomes of the character does not depend on its neighbours.
bool standsAlone(UChar32 character) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* decomposing = icu::Normalizer2::getNFDInstance(status);
    const icu::Normalizer2* composing = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status))
        return false;
    const icu::UnicodeString kept = keptOf(character, *decomposing);
    return kept.isEmpty() || composing->hasBoundaryBefore(kept.char32At(0));
}

// Whether a character that is not ASCII stays at least one such and brings in none that is.
bool staysFromAscii(UChar32 character) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* decomposing = icu::Normalizer2::getNFDInstance(status);
    if (U_FAILURE(status))
        return false;
    const icu::UnicodeString folded = keptOf(character, *decomposing).foldCase();
    return !folded.isEmpty() && std::all_of(folded.getBuffer(), folded.getBuffer() + folded.length(),
                                            [](char16_t unit) { return unit >= 0x80; });
}

struct Character {
    std::size_t size = 0; // in bytes; 0 where there is none
    std::size_t code = 0;
};

// The character at a place where no ASCII stands. Some are read that are no characters, but none in place of
// one that is.
Character characterAt(std::string_view text, std::size_t at) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data()) + at;
    const std::size_t left = text.size() - at;
    const std::size_t lead = bytes[0];
    const auto tail = [bytes](std::size_t i) { return std::size_t{bytes[i]} ^ 0x80; };
    if (lead < 0xE0 && lead >= 0xC2 && left >= 2 && tail(1) < 0x40)
        return {2, (lead & 0x1F) << 6 | tail(1)};
    if (lead < 0xF0 && lead >= 0xE0 && left >= 3 && (tail(1) | tail(2)) < 0x40)
        return {3, (lead & 0xF) << 12 | tail(1) << 6 | tail(2)};
    if (lead < 0xF5 && lead >= 0xF0 && left >= 4 && (tail(1) | tail(2) | tail(3)) < 0x40)
        return {4, (lead & 7) << 18 | tail(1) << 12 | tail(2) << 6 | tail(3)};
    return {};
}

} // namespace

void appendFoldedByICU(std::string& result, std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* decomposing = icu::Normalizer2::getNFDInstance(status);
    const icu::Normalizer2* composing = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status)) {
        result.append(text);
        return;
    }
    const icu::StringPiece piece(text.data(), static_cast<std::int32_t>(std::min(text.size(), kFoldedBytes)));
    const auto decomposed =
        decomposing->normalize(readyToDecompose(icu::UnicodeString::fromUTF8(piece)), status);
    auto folded = composing->normalize(withoutDiacritics(decomposed), status);
    if (U_FAILURE(status))
        result.append(text);
    else
        folded.foldCase().toUTF8String(result);
}

void TextFolder::appendFolded(std::string& result, std::string_view text) {
    const std::size_t before = result.size();
    std::string turkish;
    if (letterI_ == LetterI::Turkish) {
        turkish = withSmallTurkishI(text);
        text = turkish;
    }
    if (isAscii(text)) {
        result.resize(before + text.size());
        std::ranges::transform(text, result.data() + before, ascii::lower);
        return;
    }
    if (text.size() <= kFoldedBytes && appendByTable(result, text))
        return;
    result.resize(before);
    appendFoldedByICU(result, text);
}

bool TextFolder::keepsFromAscii(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (static_cast<unsigned char>(text[at]) < 0x80) {
            ++at;
            continue;
        }
        const Character character = characterAt(text, at);
        if (character.size == 0)
            return false;
        const std::size_t entry = character.code / kKeptPerEntry;
        const std::size_t place = character.code % kKeptPerEntry;
        const bool isKept = entry < kept_.size() && (kept_[entry].characters >> place & 1) != 0;
        if (!isKept && !learnKept(entry, place))
            return false;
        at += character.size;
    }
    return true;
}

// Whether a character is kept that is not known to be.
bool TextFolder::learnKept(std::size_t entry, std::size_t place) {
    if (kept_.size() <= entry)
        kept_.resize(entry + 1);
    Kept& kept = kept_[entry];
    for (std::size_t i = 0; !kept.isKnown && i < kKeptPerEntry; ++i)
        kept.characters |= std::uint64_t{staysFromAscii(static_cast<UChar32>(entry * kKeptPerEntry + i))}
                           << i;
    kept.isKnown = true;
    return (kept.characters >> place & 1) != 0;
}

// False where a character acts on its neighbours; what was appended until then does not count.
bool TextFolder::appendByTable(std::string& result, std::string_view text) {
    std::array<char, 256> folded;
    std::size_t size = 0;
    const auto length = static_cast<std::int32_t>(text.size());
    for (std::int32_t i = 0; i < length;) {
        if (size + sizeof(Folded::bytes) > folded.size()) {
            result.append(folded.data(), size);
            size = 0;
        }
        const char byte = text[static_cast<std::size_t>(i)];
        if (static_cast<unsigned char>(byte) < 0x80) {
            folded[size++] = ascii::lower(byte);
            ++i;
            continue;
        }
        UChar32 character = 0;
        U8_NEXT(text.data(), i, length, character);
        if (character < 0)
            return false;
        const Folded& one = foldedFor(static_cast<char32_t>(character));
        if (one.size == kNeedsICU)
            return false;
        // All seven bytes are copied, which is faster than to count them; the next ones go over the rest.
        std::memcpy(&folded[size], one.bytes.data(), one.bytes.size());
        size += one.size;
    }
    result.append(folded.data(), size);
    return true;
}

const TextFolder::Folded& TextFolder::foldedFor(char32_t character) {
    const std::size_t page = character / kPageSize;
    if (page < pages_.size() && pages_[page])
        if (const Folded& folded = (*pages_[page])[character % kPageSize]; folded.size != kUnknown)
            return folded;
    return learn(character);
}

const TextFolder::Folded& TextFolder::learn(char32_t character) {
    const std::size_t page = character / kPageSize;
    if (pages_.size() <= page)
        pages_.resize(page + 1);
    if (!pages_[page])
        pages_[page] = std::make_unique<Page>();
    Folded& folded = (*pages_[page])[character % kPageSize];
    const auto wide = static_cast<UChar32>(character);
    std::string utf8;
    std::string bytes;
    icu::UnicodeString(wide).toUTF8String(utf8);
    appendFoldedByICU(bytes, utf8);
    if (bytes.size() > folded.bytes.size() || !standsAlone(wide)) {
        folded.size = kNeedsICU;
        return folded;
    }
    folded.size = static_cast<std::uint8_t>(bytes.size());
    std::ranges::copy(bytes, folded.bytes.begin());
    return folded;
}

} // namespace tabulon
