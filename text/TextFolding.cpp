#include "text/TextFolding.h"

#include "base/Ascii.h"
#include "base/Utf8.h"

#include <unicode/normalizer2.h>
#include <unicode/stringpiece.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstring>

namespace tabulon {
namespace {

// The most bytes of a text that are folded by ICU, which counts in 32 bits.
constexpr std::size_t kFoldedBytes = std::size_t{1} << 28;

// Returns true for a mark that only accents the letter before it. False for nukta, voicing mark and virama,
// whose combining classes are 7 to 9, and for vowel signs, whose class is 0.
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

// Returns the text without the diacritics that are characters of their own. Removing them before the
// decomposition does not change the result, and it avoids the ordering of long runs of marks, which takes
// quadratic time. A run of marks that stay is divided as in Unicode's stream-safe text format.
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

// Replaces the capitals of the two Turkish letters: I by ı, and İ, also in its decomposed form, by i.
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

// Returns the decomposition of a character without its diacritics.
icu::UnicodeString keptOf(UChar32 character, const icu::Normalizer2& decomposing) {
    icu::UnicodeString decomposed;
    if (!decomposing.getDecomposition(character, decomposed))
        decomposed = character;
    return withoutDiacritics(decomposed);
}

// Returns true if the character without its diacritics does not compose with a character before it. Then its
// folded form does not depend on its neighbours.
bool standsAlone(UChar32 character) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* decomposing = icu::Normalizer2::getNFDInstance(status);
    const icu::Normalizer2* composing = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status))
        return false;
    const icu::UnicodeString kept = keptOf(character, *decomposing);
    return kept.isEmpty() || composing->hasBoundaryBefore(kept.char32At(0));
}

// Returns true if the folded form of a non-ASCII character is not empty and contains no ASCII.
bool staysFromAscii(UChar32 character) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* decomposing = icu::Normalizer2::getNFDInstance(status);
    if (U_FAILURE(status))
        return false;
    const icu::UnicodeString folded = keptOf(character, *decomposing).foldCase();
    return !folded.isEmpty() && std::all_of(folded.getBuffer(), folded.getBuffer() + folded.length(),
                                            [](char16_t unit) { return unit >= 0x80; });
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

void TextFolding::appendFolded(std::string& result, std::string_view text) {
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

bool TextFolding::keepsFromAscii(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (static_cast<unsigned char>(text[at]) < 0x80) {
            ++at;
            continue;
        }
        const utf8::Decoded decoded = utf8::decodedAt(text, at);
        if (decoded.size == 0)
            return false;
        const std::size_t entry = decoded.character / kKeptPerEntry;
        const std::size_t place = decoded.character % kKeptPerEntry;
        const bool isKept = entry < kept_.size() && (kept_[entry].characters >> place & 1) != 0;
        if (!isKept && !learnKept(entry, place))
            return false;
        at += decoded.size;
    }
    return true;
}

// Computes the bits of an entry if they are not known, and returns the bit of the character.
bool TextFolding::learnKept(std::size_t entry, std::size_t place) {
    if (kept_.size() <= entry)
        kept_.resize(entry + 1);
    Kept& kept = kept_[entry];
    for (std::size_t i = 0; !kept.isKnown && i < kKeptPerEntry; ++i)
        kept.characters |= std::uint64_t{staysFromAscii(static_cast<UChar32>(entry * kKeptPerEntry + i))}
                           << i;
    kept.isKnown = true;
    return (kept.characters >> place & 1) != 0;
}

// Returns false if the form of a character depends on its neighbours, or for malformed UTF-8. What was
// appended is then invalid.
bool TextFolding::appendByTable(std::string& result, std::string_view text) {
    std::array<char, 256> folded;
    std::size_t size = 0;
    for (std::size_t i = 0; i < text.size();) {
        if (size + sizeof(Folded::bytes) > folded.size()) {
            result.append(folded.data(), size);
            size = 0;
        }
        const char byte = text[i];
        if (static_cast<unsigned char>(byte) < 0x80) {
            folded[size++] = ascii::lower(byte);
            ++i;
            continue;
        }
        UChar32 character = 0;
        U8_NEXT(text.data(), i, text.size(), character); // a seventh faster here than `utf8::decodedAt`
        if (character < 0)
            return false;
        const Folded& one = foldedFor(static_cast<char32_t>(character));
        if (one.size == kNeedsICU)
            return false;
        // Copying all seven bytes is faster than copying `size` of them. The next character overwrites the
        // rest.
        std::memcpy(&folded[size], one.bytes.data(), one.bytes.size());
        size += one.size;
    }
    result.append(folded.data(), size);
    return true;
}

const TextFolding::Folded& TextFolding::foldedFor(char32_t character) {
    const std::size_t page = character / kPageSize;
    if (page < pages_.size() && pages_[page])
        if (const Folded& folded = (*pages_[page])[character % kPageSize]; folded.size != kUnknown)
            return folded;
    return learn(character);
}

const TextFolding::Folded& TextFolding::learn(char32_t character) {
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
