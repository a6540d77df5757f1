// The dates of XBEL files.
#pragma once

#include "base/Date.h"

#include <string_view>

namespace tabulon {

/// Returns the date in a text of the pattern yyyy-MM-dd'T'HH:mm:ssZZZZZ, such as 2020-05-01T10:20:30+02:00 or
/// 2020-05-01T08:20:30Z. The colon in the offset may be missing. Days before October 1582 are those of the
/// Julian calendar. Returns the null date for any other text, including impossible dates, a missing offset
/// and more than 64 bytes.
Date dateOfXBEL(std::string_view text);

} // namespace tabulon
