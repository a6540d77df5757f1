#include "model/OutputLimit.h"

#include "model/TreeWalk.h"

#include <algorithm>
#include <unordered_set>

namespace tabulon {

std::uint64_t bytesHeldBy(const Bookmark& root) {
    constexpr std::uint64_t kNode = 64;
    std::unordered_set<const char*> seen; // of the shared texts
    std::uint64_t bytes = 0;
    const auto add = [&](const Bookmark& node) {
        bytes += kNode;
        for (const Text* text : {&node.itemName(), &node.itemURL(), &node.itemNote(), &node.itemTags()})
            if (!text->isShared() || seen.insert(text->view().data()).second)
                bytes += text->view().size();
        return true;
    };
    add(root);
    walkBelow(root, add);
    return bytes;
}

bool OutputLimit::isReallyPassedBy(std::uint64_t bytes) {
    if (!isKnown_)
        allowed_ = std::max(kAlways, kFactor * bytesHeldBy(root_));
    isKnown_ = true;
    return bytes > allowed_;
}

tl::unexpected<Error> OutputLimit::failure() {
    return tabulon::failure(
        "The bookmarks share texts that are too long to be written out for each of them, or "
        "are nested too deep.");
}

} // namespace tabulon
