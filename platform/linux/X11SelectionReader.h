// Reading a selection of another X11 program as it is, past the toolkit, which changes some types on the way.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace tabulon::x11 {

/// Returns the bytes that the owner of `selection` ("CLIPBOARD", "XdndSelection") has for `target`. Returns
/// nullopt when it has none, does not answer or go on within two seconds, takes more than ten in all, or
/// sends more than `largest` bytes. Asks on a connection of its own, so no event of the toolkit is handled
/// meanwhile. Requires that the owner is another process: this one could not answer.
std::optional<std::string> readSelection(const char* selection, const char* target, std::size_t largest);

} // namespace tabulon::x11
