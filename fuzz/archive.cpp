// Any bytes as a document. They are read or refused, and a document that was read is written and read again
// to the same.
#include "fuzz/RoundTrip.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (const auto master = tabulon::readDocumentArchive({reinterpret_cast<const char*>(data), size}))
        tabulon::requireRoundTrip(**master);
    return 0;
}
