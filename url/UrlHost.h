// Parsing of the host of an address: names in any script, and IP addresses. UrlParser finds it in the
// address.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tabulon::url {

/// Returns `text` as the host of a serialised address, or `nullopt` if it is no valid host.
///
/// With `isSpecial`, `text` is a domain name or an IP address. It is percent-decoded and a name is converted
/// to ASCII by IDNA; a name that is not ASCII fails above 16 KiB. Otherwise it is any text without the
/// characters that end a host. Text in brackets must be an IPv6 address in both cases.
std::optional<std::string> parseHost(std::string_view text, bool isSpecial);

} // namespace tabulon::url
