// The host of an address: names in any script, addresses in numbers. Where it stands in the address is
// UrlParser's affair.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tabulon::url {

/// The host as it is written in an address, or nothing where it is none. With `isSpecial` it is the name or
/// the number of a machine, else any text without the characters that would end it.
std::optional<std::string> parseHost(std::string_view text, bool isSpecial);

} // namespace tabulon::url
