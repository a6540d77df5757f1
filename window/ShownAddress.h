// Addresses as they are shown to people. What is stored, edited and opened stays as it is.
#pragma once

#include "base/Text.h"

#include <cstddef>

namespace tabulon {

/// `address` with the controls for the direction of writing percent-coded, so that it reads in the order in
/// which it is stored: U+061C, U+200E, U+200F, U+202A to U+202E and U+2066 to U+2069. Null stays null.
Text shownAddress(const Text& address);

/// The same for the first bytes alone, whole characters of at most `kLongestShownLine` bytes of `address`:
/// for one line, which shows no more of it.
Text shownAddressLine(const Text& address);
inline constexpr std::size_t kLongestShownLine = 4096;

} // namespace tabulon
