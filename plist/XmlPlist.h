// Conversion of the XML form of a property list to its binary form, so that one reader is used for both.
#pragma once

#include "base/Error.h"
#include "base/Progress.h"

#include <string>
#include <string_view>

namespace tabulon {

/// Returns the objects of `xml`, an XML property list, as a binary property list.
///
/// The encoding is determined as in `xmlForParser`. Entities other than the five of XML are not expanded. A
/// dictionary whose only key is "CF$UID", with an integer that is not negative, becomes a uid, which is the
/// form of uids in XML archives. A number or date that cannot be parsed, and an integer beyond 64 bits with a
/// sign, become Null. A time of 24 hours or more is counted into the days after its date.
///
/// Fails with a sentence if `xml` is not well-formed or is no property list. `progress` may be nullptr; fails
/// with `cancelledByUser` if the user cancels. Linear; not recursive in the conversion.
Result<std::string> binaryPlistFromXml(std::string_view xml, Progress* progress = nullptr);

} // namespace tabulon
