// The program's texts in English: the compiled-in table that every other language is translated from.
#pragma once

#include <optional>
#include <string_view>

namespace tabulon {

/// The English text for a localizable key, UTF-8, or nothing for a key that is not in the table.
std::optional<std::string_view> englishText(std::string_view key);

} // namespace tabulon
