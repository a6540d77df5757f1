#include "text/Collation.h"

#include "base/Utf8.h"
#include "text/TextFolding.h"
#include "text/TextSearch.h"

#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/stringpiece.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

namespace tabulon {
namespace {

// The most bytes of a text that are compared: ICU counts in 32 bits.
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

LetterI letterIOf(const icu::Locale& locale) {
    const std::string_view language = locale.getLanguage();
    return language == "tr" || language == "az" ? LetterI::Turkish : LetterI::Common;
}

} // namespace

struct Collation::Implementation {
    explicit Implementation(const icu::Locale& locale)
        : collator(makeCollator(locale)), folding(letterIOf(locale)) {}

    std::unique_ptr<icu::Collator> collator;
    // A buffer that is reused, since a search folds very many texts.
    std::string foldedText;
    TextFolding folding;

    std::string_view foldedForm(std::string_view text) {
        foldedText.clear();
        folding.appendFolded(foldedText, text);
        return foldedText;
    }
};

Collation::Collation(std::string_view locale)
    : implementation_(
          std::make_unique<Implementation>(icu::Locale::createCanonical(std::string(locale).c_str()))) {
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
    std::string key;
    appendSortKey(key, text);
    return key;
}

void Collation::appendSortKey(std::string& keys, std::string_view text) const {
    if (!implementation_->collator) {
        keys += implementation_->foldedForm(text);
        return;
    }
    const icu::UnicodeString wide = icu::UnicodeString::fromUTF8(piece(text));
    std::array<std::uint8_t, 512> buffer;
    const auto capacity = static_cast<std::int32_t>(buffer.size());
    const std::int32_t size = implementation_->collator->getSortKey(wide, buffer.data(), capacity);
    // ICU ends a key with a zero byte, which is no part of the order.
    const std::size_t kept = static_cast<std::size_t>(std::max(size, 1) - 1);
    if (size <= capacity) {
        keys.append(reinterpret_cast<const char*>(buffer.data()), kept);
        return;
    }
    const std::size_t start = keys.size();
    keys.resize(start + kept + 1);
    implementation_->collator->getSortKey(wide, reinterpret_cast<std::uint8_t*>(&keys[start]), size);
    keys.pop_back();
}

TextSearch Collation::searchFor(std::string_view part) const {
    return TextSearch(std::string(implementation_->foldedForm(part)));
}

bool Collation::standardContains(std::string_view text, const TextSearch& search) const {
    // The tests without folding assume that i is the small letter of I, which is not so in Turkish.
    if (implementation_->folding.letterI() == LetterI::Turkish)
        return search.inSmallLetters(implementation_->foldedForm(text));
    if (const std::optional<bool> answer = search.isIn(text))
        return *answer;
    if (search.isAscii() && implementation_->folding.keepsFromAscii(text))
        return false;
    return search.inSmallLetters(implementation_->foldedForm(text));
}

bool Collation::standardContains(std::string_view text, std::string_view part) const {
    return standardContains(text, searchFor(part));
}

std::string_view Collation::standardMatch(std::string_view text, std::string_view part) const {
    const TextSearch search = searchFor(part);
    const auto found = search.placeInSmallLetters(implementation_->foldedForm(text));
    if (!found)
        return {};
    const std::size_t begin = placeOfFolded(text, *found);
    const std::size_t end = placeOfFolded(text, *found + search.size());
    return begin < end ? text.substr(begin, end - begin) : std::string_view();
}

// Returns the longest beginning of `text`, in bytes, whose folded form has at most `size` bytes. Marks after
// a letter add nothing to that form, so they stay with their letter. A binary search, since the form of a
// longer beginning is not shorter.
std::size_t Collation::placeOfFolded(std::string_view text, std::size_t size) const {
    const auto isInside = [text](std::size_t place) {
        return place < text.size() && utf8::isContinuation(text[place]);
    };
    std::size_t low = 0;                // the form of this beginning is short enough
    std::size_t high = text.size() + 1; // the form of this one is too long
    while (high - low > 1) {
        const std::size_t middle = low + (high - low) / 2;
        std::size_t place = middle;
        while (isInside(place))
            --place;
        if (place <= low || implementation_->foldedForm(text.substr(0, place)).size() <= size)
            low = middle;
        else
            high = middle;
    }
    while (isInside(low))
        --low;
    return low;
}

} // namespace tabulon
