// Any bytes as XBEL. They are read or refused, and a tree that was read is a valid document.
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
