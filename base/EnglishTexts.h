// The program's texts in English, compiled in. Translations to other languages are made from this table.
#pragma once

#include "base/Localization.h"

#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// Returns the English text for `key`, UTF-8, or `nullopt` for a key that is not in the table. The text is
/// valid as long as the program runs. Linear in the size of the table.
std::optional<std::string_view> englishText(std::string_view key);

/// English texts with the collation and numbers of any locale.
class EnglishLocalization : public Localization {
public:
    /// `locale` is the name of a locale in any form that `localeIdentifier` accepts.
    explicit EnglishLocalization(std::string_view locale = "en_US") : locale_(localeIdentifier(locale)) {}
    /// Linear in the size of the table.
    std::string text(std::string_view key) const override;
    /// Returns the locale of the constructor, as `localeIdentifier` returns it.
    std::string locale() const override { return locale_; }

private:
    std::string locale_;
};

} // namespace tabulon
