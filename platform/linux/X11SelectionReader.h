// Reading of a selection of another X11 program without the toolkit, which converts some types.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace tabulon::x11 {

/// Returns the bytes of `selection` ("CLIPBOARD", "XdndSelection") in the type `target`. Returns `nullopt`
/// where its owner does not provide the type, does not answer or continue within two seconds, takes more than
/// ten seconds in all, or sends more than `largest` bytes. Uses a connection of its own, so no event of the
/// toolkit is handled meanwhile. Requires: the owner is another process, since this one cannot answer while
/// it waits.
std::optional<std::string> readSelection(const char* selection, const char* target, std::size_t largest);

} // namespace tabulon::x11
