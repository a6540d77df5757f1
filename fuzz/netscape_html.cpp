// Any bytes as a bookmark file. They are scanned in linear time into a valid tree, whose export is scanned
// again.
#include "base/Utf8.h"
#include "formats/export/NetscapeHTML.h"
#include "formats/import/NetscapeScan.h"
#include "model/TreeWalk.h"
#include "platform/fake/FakeBaseServices.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace tabulon;

// The name of a folder begins up to 512 bytes before its closing tag, and a folder has at least eleven bytes.
// The bytes of names are therefore examined up to 512 / 11 times: once to find each name and once to decode
// it. The rest is for the other searches.
constexpr std::size_t kMostPasses = 512 / 11 + 20;

void require(bool condition) {
    if (!condition)
        std::abort();
}

// Every node has at least the four bytes of its tag.
void requireSoundTree(const Bookmark& root, std::size_t size) {
    std::size_t nodes = 0;
    walkBelow(root, [&](const Bookmark& node) {
        ++nodes;
        require(isValidUtf8(node.itemName().view()) && isValidUtf8(node.itemURL().view()) &&
                isValidUtf8(node.itemNote().view()));
        require(node.isFolder() || node.isSeparator() || !node.itemURL().isNull());
        return true;
    });
    require(nodes <= size / 4);
}

Ref<Bookmark> scanned(std::string_view bytes, Ref<Bookmark>& lastItem) {
    FakeBaseServices fakes;
    const BaseServices services = fakes.services();
    NetscapeScan scan(bytes, services, lastItem);
    const Ref<Bookmark> root = scan.run();
    require(scan.examined() <= kMostPasses * bytes.size());
    requireSoundTree(*root, bytes.size());
    return root;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Ref<Bookmark> lastItem;
    const Ref<Bookmark> root = scanned({reinterpret_cast<const char*>(data), size}, lastItem);
    const std::string html = exportToHTML(*root, {}).value();
    require(isValidUtf8(html));
    scanned(html, lastItem);
    return 0;
}
