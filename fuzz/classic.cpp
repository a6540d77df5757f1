// Any bytes as a classic document, in both encodings. They are read or refused, and a document that was read
// is written as a current document and read again to the same.
#include "fuzz/RoundTrip.h"
#include "model/ClassicReader.h"
#include "platform/fake/FakeBaseServices.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (const char* locale : {"en_US", "ja_JP"}) {
        tabulon::FakeBaseServices fake;
        fake.texts = tabulon::EnglishLocalization(locale);
        if (const auto master =
                tabulon::readClassic({reinterpret_cast<const char*>(data), size}, fake.services()))
            tabulon::requireRoundTrip(**master);
    }
    return 0;
}
