// Any bytes as the property list of a bookmark on a pasteboard, in each type that is read, and as a browser's
// list of links. The result is a valid document or empty.
#include "fuzz/RoundTrip.h"
#include "platform/fake/FakeBaseServices.h"
#include "window/BookmarkPasteboard.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tabulon;
    FakeBaseServices fake;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const std::string_view type : readableTypesForPasteboard())
        if (const Ref<Bookmark> node = initWithPasteboardPropertyListOfType(bytes, type, fake.log))
            requireRoundTrip(*node);
    return 0;
}
