// Order and likeness of texts as the user's language has them. ICU does the work.
#pragma once

#include "text/TextSearch.h"

#include <compare>
#include <memory>
#include <string>
#include <string_view>

namespace tabulon {

/// Compares texts for one locale. Texts are UTF-8; a null text is given as empty. Not shared between threads.
class Collation {
public:
    /// `locale` is an identifier such as "de_DE" or "sv" (base/Localization.h); an unknown one gets ICU's
    /// root order.
    explicit Collation(std::string_view locale);
    ~Collation();
    Collation(const Collation&) = delete;
    Collation& operator=(const Collation&) = delete;

    /// Localized and case-insensitive: accents count, case does not. Texts that differ only in case are
    /// equivalent.
    std::weak_ordering compareIgnoringCase(std::string_view a, std::string_view b) const;

    /// Bytes whose order (memcmp, shorter first) is the order of `compareIgnoringCase`. For sorting many
    /// texts.
    std::string sortKey(std::string_view text) const;
    /// The same, appended to `keys`.
    void appendSortKey(std::string& keys, std::string_view text) const;

    /// "Standard contains": true when `text` contains `part`, ignoring case and diacritics. Everything
    /// contains the empty text.
    bool standardContains(std::string_view text, std::string_view part) const;

    /// The same in two steps, for one part and very many texts.
    TextSearch searchFor(std::string_view part) const;
    bool standardContains(std::string_view text, const TextSearch& search) const;

    /// What of `text` is like `part` in that sense, at its first place, with all its diacritics: for showing
    /// what was found. Empty where nothing is. Where characters act on their neighbours it may be a little
    /// more or less.
    std::string_view standardMatch(std::string_view text, std::string_view part) const;

private:
    std::size_t placeOfFolded(std::string_view text, std::size_t size) const;

    struct Implementation;
    std::unique_ptr<Implementation> implementation_;
};

} // namespace tabulon
