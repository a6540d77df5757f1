#include "model/Finder.h"

#include "model/Collation.h"
#include "model/TreeWalk.h"

namespace tabulon {
namespace {

// The next sibling of the node or of its nearest ancestor that has one.
Bookmark* afterSubtree(const Bookmark& node) {
    for (const Bookmark* each = &node; each; each = each->getParent())
        if (Bookmark* next = each->nextBookmark())
            return next;
    return nullptr;
}

} // namespace

void FindPhases::initSearch() {
    namePending = tagsPending = notePending = true;
    foundInNote = foundInTags = false;
}

bool Finder::matches(const Text& text) const {
    return !text.isNull() && collation_.standardContains(text.view(), searchString_);
}

bool Finder::matchesName(const Bookmark& node) const {
    return matches(node.itemName()) || matches(node.itemURL()) ||
           (phases_.tagsWithName && matches(node.itemTags()));
}

std::size_t Finder::countIn(const Bookmark& node) const {
    const bool inTags = !phases_.tagsWithName && matches(node.itemTags());
    return std::size_t{matchesName(node)} + std::size_t{inTags} + std::size_t{matches(node.itemNote())};
}

Finder::Start Finder::findText(const Bookmark& root, std::string text) {
    searchString_ = std::move(text);
    phases_.initSearch();
    Start start;
    Bookmark* first = nullptr;
    walkBelow(root, [&](Bookmark& node) {
        const std::size_t count = countIn(node);
        if (start.count == 0 && count > 0)
            first = &node;
        start.count += count;
        return node.isFolder();
    });
    if (first)
        setFoundBookmark(findFrom(first));
    start.matched = first != nullptr;
    return start;
}

Bookmark* Finder::findNext(Bookmark& root) {
    if (!found_ || !isInTree(*found_, root)) {
        setFoundBookmark(&root);
        phases_.initSearch();
    }
    Bookmark* start = found_.get();
    if (!phases_.tagsPending && !phases_.notePending) {
        phases_.namePending = phases_.tagsPending = phases_.notePending = true;
        start = found_->getChild() ? found_->getChild() : afterSubtree(*found_);
    }
    setFoundBookmark(findFrom(start));
    return found_.get();
}

// The phases that are pending are those of the first node; every node after it is looked at as a whole.
Bookmark* Finder::findFrom(Bookmark* start) {
    for (Bookmark* node = start; node;) {
        if (test(*node))
            return node;
        phases_.namePending = phases_.tagsPending = phases_.notePending = true;
        Bookmark* inside = node->isFolder() ? node->getChild() : nullptr;
        node = inside ? inside : afterSubtree(*node);
    }
    return nullptr;
}

bool Finder::test(const Bookmark& node) {
    if (phases_.namePending) {
        phases_.namePending = false;
        if (phases_.tagsWithName)
            phases_.tagsPending = false;
        phases_.foundInNote = phases_.foundInTags = false;
        if (matchesName(node))
            return true;
    }
    if (phases_.tagsPending) {
        phases_.tagsPending = false;
        phases_.foundInTags = matches(node.itemTags());
        if (phases_.foundInTags) {
            phases_.notePending = false;
            return true;
        }
    }
    if (phases_.notePending) {
        phases_.notePending = false;
        phases_.foundInNote = matches(node.itemNote());
        if (phases_.foundInNote)
            return true;
    }
    return false;
}

} // namespace tabulon
