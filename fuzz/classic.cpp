// Any bytes as a classic document: they are read or refused, and what was read is written as a current
// document and read again to the same.
#include "model/ArchiveReader.h"
#include "model/ArchiveWriter.h"
#include "model/ClassicReader.h"
#include "platform/fake/FakeBaseServices.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tabulon::FakeBaseServices fake;
    const auto master = tabulon::readClassic({reinterpret_cast<const char*>(data), size}, fake.services());
    if (!master)
        return 0;
    const std::string written = tabulon::writeDocumentArchive(**master);
    const auto again = tabulon::readDocumentArchive(written);
    if (!again || tabulon::writeDocumentArchive(**again) != written)
        std::abort();
    return 0;
}
