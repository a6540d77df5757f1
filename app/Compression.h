// Compressed bytes in the Zstandard format (RFC 8878), which the program zstd reads too. The library does the
// work.
#pragma once

#include "base/Error.h"

#include <string>
#include <string_view>

namespace tabulon {

/// Returns `bytes` as one frame with a checksum. Equal bytes have equal frames.
std::string compress(std::string_view bytes);

/// Returns the bytes of one frame. Fails with a sentence for damaged or incomplete frames, and for one that
/// holds more than `largest` bytes. Memory grows with what was decompressed, not with what a frame announces.
Result<std::string> decompress(std::string_view frame, std::size_t largest);

} // namespace tabulon
