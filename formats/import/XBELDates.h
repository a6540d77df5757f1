// The dates of XBEL files.
#pragma once

#include "base/Date.h"

#include <string_view>

namespace tabulon {

/// A date of the pattern yyyy-MM-dd'T'HH:mm:ssZZZZZ (2020-05-01T10:20:30+02:00, or Z for the offset); none
/// for anything else, an impossible date or a missing offset included.
Date dateOfXBEL(std::string_view text);

} // namespace tabulon
