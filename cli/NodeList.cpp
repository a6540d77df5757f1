#include "cli/NodeList.h"

#include "cli/NodePath.h"
#include "model/OutputLimit.h"

namespace tabulon::cli {
namespace {

std::uint64_t bytesOf(const Bookmark& node) {
    std::uint64_t bytes = 0;
    for (const Text* text : {&node.itemName(), &node.itemURL(), &node.itemNote(), &node.itemTags()})
        bytes += text->view().size();
    return bytes;
}

void visit(const Bookmark& root, const std::vector<const Bookmark*>& nodes, const AddLine& add) {
    auto next = nodes.begin();
    walkWithPaths(root, [&](const Bookmark& node, const std::string& path) {
        bool goesOn = true;
        for (; goesOn && next != nodes.end() && *next == &node; ++next)
            goesOn = add(node, path);
        return goesOn && next != nodes.end();
    });
}

} // namespace

Result<void> addNodes(const Bookmark& root, const std::vector<const Bookmark*>& nodes, const AddLine& add) {
    std::uint64_t bytes = 0;
    visit(root, nodes, [&](const Bookmark& node, const std::string& path) {
        bytes += bytesOf(node) + path.size();
        return true;
    });
    if (OutputLimit(root).isPassedBy(bytes))
        return OutputLimit::failure();
    visit(root, nodes, add);
    return {};
}

} // namespace tabulon::cli
