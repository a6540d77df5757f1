// Sizes in "chromium/x-bookmark-entries", which its reader and its writer share.
#pragma once

#include <cstddef>

namespace tabulon {

/// Texts are filled up with zero bytes to a multiple of this number of bytes.
inline constexpr std::size_t kChromiumEntryUnit = 4;
/// The size of the identifier of an entry, in bytes.
inline constexpr std::size_t kChromiumIdentifierSize = 8;

} // namespace tabulon
