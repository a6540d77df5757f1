// Bytes of a classic document → nodes. The classic layout is packed, big-endian, and read only: the next save
// writes the current format. docs/file-format.md gives it byte by byte.
#pragma once

#include "base/BaseServices.h"
#include "base/Error.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// The first two bytes, as a big-endian number, are below 4: a file of the classic layout. False for data of
/// fewer than two bytes.
bool classicFile(std::string_view data);

/// Reads a classic document into a new root folder "Master". Texts are Shift-JIS when the country of the
/// services' locale is JP, Mac OS Roman otherwise; undecodable bytes become U+FFFD. Nodes without a date of
/// their own carry the time of the reading, as every new node does.
///
/// Fails with ErrorDomain::OSStatus, code 256: for empty and short data, a header that says there are no
/// bookmarks or has too high a version (both with the title and text of their alert), records that run past
/// the end, texts without their zero byte, and bytes behind the last record that may be more of them. Nothing
/// is read beyond the data, and the work is linear in its size.
Result<Ref<Bookmark>> readClassic(std::string_view data, const BaseServices& services);

} // namespace tabulon
