// Any bytes as a file with one link. The address and the name are not longer than a small multiple of the
// file, and the address is not empty.
#include "formats/import/LinkFileReader.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto content = tabulon::readLinkFile({reinterpret_cast<const char*>(data), size});
    if (!content)
        return 0;
    // A byte becomes at most three: U+FFFD, or UTF-16 as UTF-8.
    const std::size_t longest = 3 * size;
    if (content->url.isEmpty() || content->url.view().size() > longest ||
        content->name.view().size() > longest)
        std::abort();
    return 0;
}
