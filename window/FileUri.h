// File paths as URIs and back: the form in which programs hand files to each other.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// True for "scheme:…" with a scheme of at least two characters and "//" after it, and for "file:/…".
bool looksLikeUri(std::string_view text);

/// "file:///…" for an absolute path, whatever bytes it has.
std::string fileUri(std::string_view absolutePath);

/// The absolute path of a file URI of this computer ("file:///…", "file:/…", "file://localhost/…"), percent
/// escapes resolved, query and fragment left out. Nothing for every other text.
std::optional<std::string> pathOfFileUri(std::string_view uri);

/// The file URIs of a list of URIs that is one of files, as drags carry it (text/uri-list: lines, # begins a
/// comment). None where any other address stands in the list: then it is one of links.
std::vector<std::string> fileUrisIn(std::string_view uriList);

} // namespace tabulon
