// Any bytes as the JSON of a tree. They are read or refused. A tree that was read is a valid document with no
// more nodes than the bytes can contain, and its JSON is read to the same tree.
#include "cli/JsonTree.h"
#include "fuzz/RoundTrip.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tabulon;
    const auto tree = cli::treeFromJson({reinterpret_cast<const char*>(data), size});
    if (!tree)
        return 0;
    requireRoundTrip(**tree);
    if (bytesHeldBy(**tree) > 64 * (size + 64))
        std::abort();
    const std::string json = cli::jsonFromTree(**tree);
    const auto again = cli::treeFromJson(json);
    if (!again || cli::jsonFromTree(**again) != json)
        std::abort();
    return 0;
}
