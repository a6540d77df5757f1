// One link → the small file that desktops keep for a link: a property list in XML with the one key "URL".
#pragma once

#include "base/Error.h"
#include "model/Bookmark.h"

#include <string>
#include <string_view>

namespace tabulon {

/// The extension of the link's file, without a dot, by its type: "mailloc" for mail, "ftploc" for FTP,
/// "webloc" for any other.
std::string_view linkFileExtension(const Bookmark& link);

/// The whole file, UTF-8. Fails with a sentence for a node without a URL or with an empty one, and where the
/// URL has characters that XML cannot hold.
Result<std::string> exportToLinkFile(const Bookmark& link);

} // namespace tabulon
