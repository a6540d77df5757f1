// Dates as people write them. ICU does the work.
#pragma once

#include "base/Date.h"

#include <string>
#include <string_view>

namespace tabulon {

/// `date` by a pattern such as "yyyy-MM-dd" (Unicode's letters), in the language and calendar of `locale`
/// ("de_DE") and in the time zone of that name ("Europe/Berlin"; empty: the machine's). UTF-8. Empty for null
/// and for a date that no calendar can write.
std::string formatDate(Date date, std::string_view pattern, const std::string& locale,
                       std::string_view timeZone);

} // namespace tabulon
