// Hosts that are numbers, in all the ways that they can be written.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tabulon::url {

/// Whether a name ends in a number, so that it has to be an address of version 4.
bool endsInNumber(std::string_view host);

/// "192.168.0.1" for that and for "0xC0.0250.1" and the like; nothing for what is none.
std::optional<std::string> parseIPv4(std::string_view host);

/// What stands between the brackets, in its shortest form; nothing for what is none.
std::optional<std::string> parseIPv6(std::string_view text);

} // namespace tabulon::url
