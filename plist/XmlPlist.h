// The XML form of a property list → its binary form, so that one reader serves both.
#pragma once

#include "base/Error.h"
#include "base/Progress.h"

#include <string>
#include <string_view>

namespace tabulon {

/// The same objects as a binary property list for BinaryPlist. A dictionary of the one key "CF$UID" becomes a
/// uid, as archives in XML have it. Encodings by byte-order mark or declaration as XML has them; entities
/// other than XML's own are not expanded. Fails with a sentence for what is not well-formed or not a property
/// list. Linear, not recursive.
/// `progress` may be null.
Result<std::string> binaryPlistFromXml(std::string_view xml, Progress* progress = nullptr);

} // namespace tabulon
