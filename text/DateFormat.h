// Formatting of dates for the user, with ICU.
#pragma once

#include "base/Date.h"

#include <string>
#include <string_view>

namespace tabulon {

/// Returns `date` in the form of `pattern`, UTF-8.
///
/// `pattern` uses the letters of Unicode's date formats, such as "yyyy-MM-dd". `locale` is an identifier such
/// as "de_DE"; it determines language and calendar. `timeZone` is an IANA name such as "Europe/Berlin", or
/// empty for the time zone of the computer.
///
/// Returns an empty text for a date that is null, infinite or NaN, for a pattern that ICU does not accept,
/// and where the result has more than 256 UTF-16 units.
std::string formatDate(Date date, std::string_view pattern, const std::string& locale,
                       std::string_view timeZone);

} // namespace tabulon
