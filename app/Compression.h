// Compressed bytes in the Zstandard format (RFC 8878), which the program zstd reads as well. The library
// libzstd does the work.
#pragma once

#include "base/Error.h"

#include <string>
#include <string_view>

namespace tabulon {

/// Returns `bytes` as one frame with a checksum. Equal bytes result in equal frames.
std::string compress(std::string_view bytes);

/// Returns the bytes of one frame. Fails with a sentence for a damaged or incomplete frame, and for one that
/// contains more than `largest` bytes. The memory used is limited by what was decompressed, not by the size
/// that the frame declares.
Result<std::string> decompress(std::string_view frame, std::size_t largest);

} // namespace tabulon
