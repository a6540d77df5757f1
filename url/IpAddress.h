// IP addresses as hosts, in all forms that the URL standard accepts. Host names are in UrlHost.h.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tabulon::url {

/// Returns true if the last label of `host` is a decimal, octal or hexadecimal number. The host is then
/// either an IPv4 address or invalid. A dot at the end is ignored.
bool endsInNumber(std::string_view host);

/// Returns the IPv4 address of `host` in decimal form, such as "192.168.0.1", or `nullopt` if it is none.
/// Accepts one to four numbers in decimal, octal ("0250") or hexadecimal ("0xC0") form; the last one fills
/// the remaining bytes.
std::optional<std::string> parseIPv4(std::string_view host);

/// Returns the IPv6 address of `text` in its shortest form, with small letters, or `nullopt` if it is none.
/// `text` and the result are without brackets.
std::optional<std::string> parseIPv6(std::string_view text);

} // namespace tabulon::url
