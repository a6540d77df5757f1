// Addresses as they are shown to the user. What is stored, edited and opened is not changed.
#pragma once

#include "base/Text.h"

#include <cstddef>

namespace tabulon {

/// Returns `address` with the controls of writing direction percent-encoded, so that it reads in the order in
/// which it is stored: U+061C, U+200E, U+200F, U+202A to U+202E and U+2066 to U+2069. A null address stays
/// null.
Text shownAddress(const Text& address);

/// Returns the same for the longest beginning of `address` that has whole characters and at most
/// `kLongestShownLine` bytes. A line shows no more of it.
Text shownAddressLine(const Text& address);
/// In bytes.
inline constexpr std::size_t kLongestShownLine = 4096;

} // namespace tabulon
