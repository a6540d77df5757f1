// File paths as URIs and back: the form in which programs hand files to each other.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// Returns true for "scheme:…" with a scheme of at least two characters and "//" after it, and for "file:/…".
bool looksLikeUri(std::string_view text);

/// Returns "file:///…" for an absolute path, whatever bytes it has: other bytes than those of URIs are
/// percent-encoded.
std::string fileUri(std::string_view absolutePath);

/// Returns the absolute path of a file URI of this computer ("file:///…", "file:/…", "file://localhost/…"),
/// percent-decoded, without query and fragment. Returns `nullopt` for every other text, and for a path with a
/// zero.
std::optional<std::string> pathOfFileUri(std::string_view uri);

} // namespace tabulon
