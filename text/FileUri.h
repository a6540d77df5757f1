// Conversion between file paths and file URIs, in which programs pass files to each other. Other URLs are
// parsed in url/.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// Returns true if `text` begins with a scheme of at least two characters and "://", or with "file:/" in any
/// case. A path that begins with a drive letter ("c:/") is no URI.
bool looksLikeUri(std::string_view text);

/// Returns the URI "file:///…" of a path. Bytes that URIs do not allow in a path are percent-encoded, so the
/// path may have any encoding. Requires: `absolutePath` begins with "/".
std::string fileUri(std::string_view absolutePath);

/// Returns the absolute path of a file URI of this computer ("file:///…", "file:/…", "file://localhost/…"),
/// percent-decoded, without query and fragment. The path is in the encoding of the URI's author and need not
/// be UTF-8. Returns `nullopt` for every other text, and for a path that contains a zero byte.
std::optional<std::string> pathOfFileUri(std::string_view uri);

} // namespace tabulon
