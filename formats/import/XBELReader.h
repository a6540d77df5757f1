// XBEL, the XML Bookmark Exchange Language → tree. The writer of such files is export/XBEL.h.
#pragma once

#include "base/Error.h"
#include "formats/ReadOptions.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// The new root folder "Master" with what stands in the "xbel" element, which is looked for from the second
/// top-level node on (the first is normally the XML declaration). Encodings by byte-order mark or declaration
/// as XML has them; malformed UTF-8 decodes to U+FFFD. Elements that XBEL has and this program has not are
/// passed over, so are tags of any owner but ".../tags". Dates that cannot be read are none. Fails with a
/// sentence for what is no XML or has no second top-level node. Linear, without recursion.
Result<Ref<Bookmark>> readXBEL(std::string_view bytes, const ReadOptions& options);

} // namespace tabulon
