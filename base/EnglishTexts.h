// The program's texts in English: the compiled-in table that every other language is translated from.
#pragma once

#include "base/Localization.h"

#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// The English text for a localizable key, UTF-8, or nothing for a key that is not in the table.
std::optional<std::string_view> englishText(std::string_view key);

/// The English texts, whatever the locale that collation and numbers follow.
class EnglishLocalization : public Localization {
public:
    /// `locale` is a name as `localeIdentifier` takes it.
    explicit EnglishLocalization(std::string_view locale = "en_US") : locale_(localeIdentifier(locale)) {}
    std::string text(std::string_view key) const override;
    std::string locale() const override { return locale_; }

private:
    std::string locale_;
};

} // namespace tabulon
