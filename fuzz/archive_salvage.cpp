// Any bytes as a damaged document. The result is a valid document with no more bookmarks than are counted.
// From a document that the reader accepts, no bookmark is lost.
#include "fuzz/RoundTrip.h"
#include "model/ArchiveSalvage.h"
#include "model/TreeWalk.h"
#include "platform/fake/FakeBaseServices.h"

#include <cstdint>

namespace {

std::uint64_t nodesBelow(const tabulon::Bookmark& master) {
    std::uint64_t nodes = 0;
    tabulon::walkBelow(master, [&](const tabulon::Bookmark&) {
        ++nodes;
        return true;
    });
    return nodes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tabulon::FakeBaseServices fake;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto left = tabulon::salvageDocumentArchive(bytes, fake.services());
    const auto whole = tabulon::readDocumentArchive(bytes);
    if (whole && left && left->readable != nodesBelow(**whole))
        std::abort();
    if (!left)
        return 0;
    tabulon::requireRoundTrip(*left->master);
    const std::uint64_t nodes = nodesBelow(*left->master);
    // The folder of bookmarks without a folder may be among the nodes.
    if (left->readable > left->records || nodes > left->records + 1 || nodes * 3 > 4 * size + 64)
        std::abort();
    return 0;
}
