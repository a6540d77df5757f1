#include "text/DateFormat.h"

#include <unicode/udat.h>
#include <unicode/unistr.h>

#include <cmath>
#include <memory>

namespace tabulon {
namespace {

icu::UnicodeString wide(std::string_view utf8) {
    return icu::UnicodeString::fromUTF8(icu::StringPiece(utf8.data(), static_cast<int32_t>(utf8.size())));
}

} // namespace

std::string formatDate(Date date, std::string_view pattern, const std::string& locale,
                       std::string_view timeZone) {
    if (date.isNull() || !std::isfinite(date.unixSeconds()))
        return {};
    const icu::UnicodeString letters = wide(pattern);
    const icu::UnicodeString zone = wide(timeZone);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<void, void (*)(void*)> format(
        udat_open(UDAT_PATTERN, UDAT_PATTERN, locale.c_str(), zone.isEmpty() ? nullptr : zone.getBuffer(),
                  zone.length(), letters.getBuffer(), letters.length(), &status),
        [](void* opened) { udat_close(static_cast<UDateFormat*>(opened)); });
    if (U_FAILURE(status))
        return {};
    UChar buffer[256];
    const int32_t length = udat_format(static_cast<UDateFormat*>(format.get()), date.unixSeconds() * 1000,
                                       buffer, std::size(buffer), nullptr, &status);
    if (U_FAILURE(status) || length > static_cast<int32_t>(std::size(buffer)))
        return {};
    std::string text;
    icu::UnicodeString(buffer, length).toUTF8String(text);
    return text;
}

} // namespace tabulon
