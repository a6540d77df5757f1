// A number and any bytes as content that another program has copied or drags: the bytes in the media type of
// that number, or in all types. The items are not larger than a small multiple of the bytes.
#include "platform/fake/FakeBaseServices.h"
#include "platform/fake/MemoryFileStore.h"
#include "window/MimeItems.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tabulon;
    if (size == 0)
        return 0;
    const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    MimeContent content;
    for (std::size_t i = 0; i < kReadMimeTypes.size(); ++i)
        if (data[0] == i || data[0] >= kReadMimeTypes.size())
            content.set(std::string(kReadMimeTypes[i]), bytes);
    MemoryFileStore files;
    FakeBaseServices base;
    NodeRecords records;
    std::size_t held = 0;
    for (const PasteboardItem& item :
         pasteboardItems(content, {.records = records, .files = files, .services = base.services()}))
        for (const auto& [type, value] : item.values())
            held += value.size();
    if (held > 64 * size + 4096)
        std::abort();
    return 0;
}
