// Formatting of numbers for the user, with ICU.
#pragma once

#include <cstdint>
#include <string>

namespace tabulon {

/// Returns `number` with the digits and thousands separators of `locale`, an identifier such as "de_DE";
/// UTF-8. Returns plain decimal digits if ICU fails. Requires: `number` is below 2^63.
std::string numberText(std::uint64_t number, const std::string& locale);

} // namespace tabulon
