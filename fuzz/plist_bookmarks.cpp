// Any bytes as a browser's property list. They are read or refused, and a tree that was read is a valid
// document.
#include "formats/import/PlistBookmarks.h"
#include "fuzz/RoundTrip.h"
#include "platform/fake/FakeBaseServices.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tabulon::FakeBaseServices fake;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const auto read : {tabulon::readSafariBookmarks, tabulon::readICabBookmarks})
        if (const auto master = read(bytes, {fake.services()}))
            tabulon::requireRoundTrip(**master);
    return 0;
}
