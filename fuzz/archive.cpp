// Any bytes as a document: they are read or refused, and what was read is written and read again to the same.
#include "model/ArchiveReader.h"
#include "model/ArchiveWriter.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto master = tabulon::readDocumentArchive({reinterpret_cast<const char*>(data), size});
    if (!master)
        return 0;
    const std::string written = tabulon::writeDocumentArchive(**master);
    const auto again = tabulon::readDocumentArchive(written);
    if (!again || tabulon::writeDocumentArchive(**again) != written)
        std::abort();
    return 0;
}
