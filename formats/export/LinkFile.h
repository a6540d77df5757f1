// One link → the file in which desktops store a link: an XML property list with the one key "URL".
#pragma once

#include "base/Error.h"
#include "model/Bookmark.h"

#include <string>
#include <string_view>

namespace tabulon {

/// Returns the extension of the link's file, without a dot, by the type of the link: "mailloc" for mail,
/// "ftploc" for FTP, "webloc" for all other types.
std::string_view linkFileExtension(const Bookmark& link);

/// Returns the bytes of the file, UTF-8. Fails with a sentence if the URL of `link` is null or empty, or if
/// it contains characters that XML cannot represent.
Result<std::string> exportToLinkFile(const Bookmark& link);

} // namespace tabulon
