#include "model/Collation.h"

#include "model/Ascii.h"
#include "model/Text.h"

#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/stringpiece.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace tabulon {
namespace {

// What of a text counts for its place; ICU measures its buffers in 32 bits.
constexpr std::size_t kComparedBytes = std::size_t{1} << 28;

icu::StringPiece piece(std::string_view text) {
    return {text.data(), static_cast<std::int32_t>(std::min(text.size(), kComparedBytes))};
}

std::unique_ptr<icu::Collator> makeCollator(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(locale, status));
    if (U_FAILURE(status))
        return nullptr;
    collator->setStrength(icu::Collator::SECONDARY);
    return collator;
}

// A mark that only accents the letter before it. Marks that are part of the letter stay: the nukta of Indic
// scripts, the voicing marks of kana, the virama, and vowel signs (which have no combining class).
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

// Appends `text` as it counts in a search: composed, without diacritics, in lower case. Where ICU fails (it
// lacks memory), the text counts as it stands.
void appendFolded(std::string& result, std::string_view text) {
    if (isAscii(text)) {
        std::ranges::transform(text, std::back_inserter(result), ascii::lower);
        return;
    }
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* decomposing = icu::Normalizer2::getNFDInstance(status);
    const icu::Normalizer2* composing = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status)) {
        result.append(text);
        return;
    }
    const auto decomposed = decomposing->normalize(icu::UnicodeString::fromUTF8(piece(text)), status);
    auto folded = composing->normalize(withoutDiacritics(decomposed), status);
    if (U_FAILURE(status))
        result.append(text);
    else
        folded.foldCase().toUTF8String(result);
}

bool contains(std::string_view text, std::string_view part) {
    // Unlike string_view::find, linear whatever the texts.
    return memmem(text.data(), text.size(), part.data(), part.size()) != nullptr;
}

} // namespace

struct Collation::Implementation {
    std::unique_ptr<icu::Collator> collator;
    // Kept from call to call: a search asks for one part in very many texts.
    std::string part;
    std::string foldedPart;
    std::string foldedText;

    std::string_view foldedForm(std::string_view text) {
        foldedText.clear();
        appendFolded(foldedText, text);
        return foldedText;
    }
};

Collation::Collation(std::string_view locale) : implementation_(std::make_unique<Implementation>()) {
    implementation_->collator = makeCollator(icu::Locale::createCanonical(std::string(locale).c_str()));
    if (!implementation_->collator)
        implementation_->collator = makeCollator(icu::Locale::getRoot());
}

Collation::~Collation() = default;

std::weak_ordering Collation::compareIgnoringCase(std::string_view a, std::string_view b) const {
    if (!implementation_->collator)
        return sortKey(a) <=> sortKey(b);
    UErrorCode status = U_ZERO_ERROR;
    switch (implementation_->collator->compareUTF8(piece(a), piece(b), status)) {
    case UCOL_LESS:
        return std::weak_ordering::less;
    case UCOL_GREATER:
        return std::weak_ordering::greater;
    case UCOL_EQUAL:
        break;
    }
    return std::weak_ordering::equivalent;
}

std::string Collation::sortKey(std::string_view text) const {
    if (!implementation_->collator)
        return std::string(implementation_->foldedForm(text));
    const icu::UnicodeString wide = icu::UnicodeString::fromUTF8(piece(text));
    std::array<std::uint8_t, 512> buffer;
    const auto capacity = static_cast<std::int32_t>(buffer.size());
    const std::int32_t size = implementation_->collator->getSortKey(wide, buffer.data(), capacity);
    // ICU ends a key with a zero byte, which no key has inside.
    if (size <= capacity)
        return {reinterpret_cast<const char*>(buffer.data()),
                static_cast<std::size_t>(std::max(size, 1) - 1)};
    std::string key(static_cast<std::size_t>(size), '\0');
    implementation_->collator->getSortKey(wide, reinterpret_cast<std::uint8_t*>(key.data()), size);
    key.pop_back();
    return key;
}

bool Collation::standardContains(std::string_view text, std::string_view part) const {
    Implementation& implementation = *implementation_;
    if (part != implementation.part) {
        implementation.part = part;
        implementation.foldedPart.clear();
        appendFolded(implementation.foldedPart, part);
    }
    return contains(implementation.foldedForm(text), implementation.foldedPart);
}

} // namespace tabulon
