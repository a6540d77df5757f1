// Any bytes as XBEL: they are read or refused, and what was read is a sound document.
#include "formats/import/XBELReader.h"
#include "fuzz/RoundTrip.h"
#include "platform/fake/FakeBaseServices.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tabulon::FakeBaseServices fake;
    if (const auto master = tabulon::readXBEL({reinterpret_cast<const char*>(data), size}, {fake.services()}))
        tabulon::requireRoundTrip(**master);
    return 0;
}
