// Any bytes as a page. Its links are read, or refused with a sentence, and their tree is a valid document. An
// address that was read is parsed again to the same.
#include "formats/import/PageBookmarks.h"
#include "fuzz/RoundTrip.h"
#include "platform/fake/FakeBaseServices.h"
#include "url/Url.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tabulon::FakeBaseServices fake;
    const auto root = tabulon::readPageFile({reinterpret_cast<const char*>(data), size}, {fake.services()});
    if (!root)
        return 0;
    tabulon::requireRoundTrip(**root);
    if (!(*root)->getChildren())
        return 0;
    for (const tabulon::Bookmark* link : *(*root)->getChildren()) {
        const auto once = tabulon::url::parse(link->itemURL().view());
        if (!once)
            continue;
        const auto twice = tabulon::url::parse(once->text());
        if (!twice || twice->text() != once->text())
            std::abort();
    }
    return 0;
}
