// The command lines that pass addresses to a program, as pure functions.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// Returns whether an address can be an argument of a program: it is not empty, does not begin with "-",
/// which would make it an option, contains no control character, and has at most 100,000 bytes, because the
/// system has a limit for one argument.
bool canBeArgument(std::string_view address);

/// Returns `command` with the addresses at its end, distributed among as many commands as needed so that the
/// bytes of each do not exceed `mostBytes`. A command has at least one address. The order is kept. Requires:
/// the addresses are not empty.
std::vector<std::vector<std::string>> commandsWithAddresses(const std::vector<std::string>& command,
                                                            std::span<const std::string> addresses,
                                                            std::size_t mostBytes);

} // namespace tabulon
