// Comparison and search of texts by the rules of a locale, with ICU. The folding is in text/TextFolding.h,
// the search for bytes in text/TextSearch.h.
#pragma once

#include "text/TextSearch.h"

#include <compare>
#include <memory>
#include <string>
#include <string_view>

namespace tabulon {

/// Compares and searches texts for one locale. Texts are UTF-8; malformed parts compare as U+FFFD. Only the
/// first 256 MiB of a text are ordered or folded. One object must not be used by several threads at once,
/// since `const` functions write to buffers.
class Collation {
public:
    /// `locale` is an identifier such as "de_DE" or "sv" (base/Localization.h). An unknown one has ICU's root
    /// order. Where ICU has no collation data at all, texts are ordered by the bytes of their folded form.
    explicit Collation(std::string_view locale);
    ~Collation();
    Collation(const Collation&) = delete;
    Collation& operator=(const Collation&) = delete;

    /// Returns the order of `a` and `b` in the locale. Accents count, case does not: texts that differ only
    /// in case are equivalent.
    std::weak_ordering compareIgnoringCase(std::string_view a, std::string_view b) const;

    /// Returns bytes whose order (memcmp, shorter first) is the order of `compareIgnoringCase`.
    /// Keys are faster than comparisons where many texts are sorted.
    std::string sortKey(std::string_view text) const;
    /// Appends the bytes of `sortKey` to `keys`.
    void appendSortKey(std::string& keys, std::string_view text) const;

    /// Returns true if `text` contains `part`, ignoring case and diacritics. Every text contains the empty
    /// part. Linear in the size of both.
    bool standardContains(std::string_view text, std::string_view part) const;

    /// Returns the search for `part`, which is folded only once for many texts.
    TextSearch searchFor(std::string_view part) const;
    /// Returns the result of `standardContains` for the part of `search`. Requires: `search` was made by
    /// `searchFor` of a Collation for the same locale.
    bool standardContains(std::string_view text, const TextSearch& search) const;

    /// Returns the first part of `text` that matches `part` in the sense of `standardContains`, with its
    /// diacritics, for display. Returns an empty view if there is none. The result may be a few characters
    /// too long or too short where the folding of a character depends on its neighbours. Takes O(n log n)
    /// time for a text of n bytes.
    std::string_view standardMatch(std::string_view text, std::string_view part) const;

private:
    std::size_t placeOfFolded(std::string_view text, std::size_t size) const;

    struct Implementation;
    std::unique_ptr<Implementation> implementation_;
};

} // namespace tabulon
