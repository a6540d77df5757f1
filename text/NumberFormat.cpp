#include "text/NumberFormat.h"

#include <unicode/numberformatter.h>

namespace tabulon {

std::string numberText(std::uint64_t number, const std::string& locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::string digits;
    icu::number::NumberFormatter::withLocale(icu::Locale(locale.c_str()))
        .formatInt(static_cast<std::int64_t>(number), status)
        .toString(status)
        .toUTF8String(digits);
    return U_SUCCESS(status) ? digits : std::to_string(number);
}

} // namespace tabulon
