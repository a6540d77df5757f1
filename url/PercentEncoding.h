// Percent-encoding by the rules for each part of an address. The plain encoding is in text/PercentCoding.h.
#pragma once

#include <string>
#include <string_view>

namespace tabulon::url {

/// The percent-encode sets of the URL standard, with three characters that Chromium encodes in addition: "'"
/// in every query and in user names and passwords, and "|" in paths. Each set contains the control characters
/// and all bytes above "~".
enum class EscapeSet { Controls, Fragment, Query, Path, UserInfo };

/// Appends the bytes of `text` to `result`; bytes in `set` are percent-encoded with capital digits. An
/// existing
/// "%" is unchanged.
void appendEscaped(std::string_view text, EscapeSet set, std::string& result);

/// Converts `text` to `encoding`, an ICU name, and appends the bytes like `appendEscaped`. A character that
/// the encoding does not contain becomes its decimal HTML reference, percent-encoded ("%26%238364%3B"). Uses
/// UTF-8 if ICU does not know the encoding. Requires: `text` is well-formed UTF-8.
void appendEscapedIn(std::string_view encoding, std::string_view text, EscapeSet set, std::string& result);

} // namespace tabulon::url
