// Any bytes as a text with links. It is scanned, and the tree of its links is a valid document.
#include "formats/import/TextScanner.h"
#include "fuzz/RoundTrip.h"
#include "platform/fake/FakeBaseServices.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tabulon::FakeBaseServices fake;
    tabulon::requireRoundTrip(
        *tabulon::readText({reinterpret_cast<const char*>(data), size}, {fake.services()}).value());
    return 0;
}
