// Which characters each part of an address percent-encodes.
#pragma once

#include <string>
#include <string_view>

namespace tabulon::url {

/// The sets of the standard, but for what Chromium escapes besides: "'" in every query and in names of users,
/// "|" in paths.
enum class EscapeSet { Controls, Fragment, Query, Path, UserInfo };

/// Appends the bytes of `text`, those of the set as "%XX".
void appendEscaped(std::string_view text, EscapeSet set, std::string& result);

/// The same in another encoding, by ICU's name: a character that it does not have becomes the number of its
/// HTML reference.
void appendEscapedIn(std::string_view encoding, std::string_view text, EscapeSet set, std::string& result);

} // namespace tabulon::url
