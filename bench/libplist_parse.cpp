// libplist_parse FILE RUNS: reads a document's archive with libplist and prints the fastest time in processor
// seconds and the number of nodes. It contains no code of Tabulon, and not its allocator.
#include "bench/Measure.h"
#include "bench/Plist.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

using namespace tabulon::bench;

namespace {

/// Returns the number of objects of the archive with a URL key, which every node has. Uses an iterator:
/// libplist searches for an index from the beginning of a list.
std::size_t nodesIn(plist_t archive) {
    const plist_t objects = plist_dict_get_item(archive, "$objects");
    plist_array_iter iterator = nullptr;
    plist_array_new_iter(objects, &iterator);
    std::size_t nodes = 0;
    for (plist_t item = nullptr; plist_array_next_item(objects, iterator, &item), item;)
        if (plist_get_node_type(item) == PLIST_DICT && plist_dict_get_item(item, "URL"))
            ++nodes;
    std::free(iterator);
    return nodes;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    std::ifstream file(argv[1], std::ios::binary);
    const std::string archive{std::istreambuf_iterator<char>(file), {}};
    const double seconds = fastest(std::atoi(argv[2]), [&] { return plistOf(archive); });
    std::printf("%.6f %zu\n", seconds, nodesIn(plistOf(archive).get()));
    return 0;
}
