// Any bytes as the JSON of a tree: they are read or refused, what was read is a sound document of no more
// nodes than the bytes can spell, and its own JSON is the same tree.
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
