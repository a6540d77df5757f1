// Reading of a classic document, in a packed big-endian layout that is never written: the next save writes
// the current format. docs/file-format.md describes the layout byte by byte.
#pragma once

#include "base/BaseServices.h"
#include "base/Error.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// Returns true if `data` has the classic layout: its first two bytes, as a big-endian number, are below 4.
/// Returns false for fewer than two bytes.
bool classicFile(std::string_view data);

/// Returns a new root folder "Master", expanded, with the bookmarks of a classic document. Texts are decoded
/// as Shift-JIS if the country of the services' locale is JP, else as Mac OS Roman; malformed bytes become
/// U+FFFD. A node without an added-date in the file has the current time of the services.
///
/// Fails with ErrorDomain::OSStatus, code 256, for data shorter than the header, a header with no bookmarks
/// or with too high a version (both with the title and message of their alert), records that extend beyond
/// the end, texts without their zero byte, and bytes after the last record that may be more records. Reads
/// nothing beyond the data. Linear in its size.
Result<Ref<Bookmark>> readClassic(std::string_view data, const BaseServices& services);

} // namespace tabulon
