#include "model/Finder.h"

#include "model/TreeWalk.h"
#include "text/Collation.h"

#include <array>
#include <limits>
#include <utility>

namespace tabulon {
namespace {

constexpr std::size_t kNodesAhead = 16;

// Returns the next sibling of the node or of its nearest ancestor that has one, or nullptr.
Bookmark* afterSubtree(const Bookmark& node) {
    for (const Bookmark* each = &node; each; each = each->getParent())
        if (Bookmark* next = each->nextBookmark())
            return next;
    return nullptr;
}

// Returns the next node in document order, or nullptr.
Bookmark* following(const Bookmark& node) {
    Bookmark* inside = node.isFolder() ? node.getChild() : nullptr;
    return inside ? inside : afterSubtree(node);
}

} // namespace

void FindPhases::initSearch() {
    namePending = tagsPending = notePending = true;
    foundInNote = foundInTags = false;
}

void Finder::setSearchString(std::string text) {
    search_ = collation_.searchFor(text);
    longTexts_.clear();
    searchString_ = std::move(text);
}

bool Finder::matches(const Text& text) const {
    if (text.isNull())
        return false;
    if (!text.isShared() || text.view().size() < kLong)
        return collation_.standardContains(text.view(), search_);
    const auto [known, isNew] = longTexts_.try_emplace(text.view().data(), text, false);
    if (isNew)
        known->second.second = collation_.standardContains(text.view(), search_);
    return known->second.second;
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
    begin(root, std::move(text));
    return *goOn(root, std::numeric_limits<std::size_t>::max());
}

void Finder::begin(const Bookmark& root, std::string text) {
    setSearchString(std::move(text));
    phases_.initSearch();
    ongoing_ = Search{.next = Ref<Bookmark>(root.getChild())};
}

std::optional<Finder::Start> Finder::goOn(const Bookmark& root, std::size_t nodes) {
    if (!ongoing_)
        return std::nullopt;
    const auto hasLeft = [&root](const Ref<Bookmark>& node) { return node && !isInTree(*node, root); };
    if (hasLeft(ongoing_->next) || hasLeft(ongoing_->first))
        ongoing_ = Search{.next = Ref<Bookmark>(root.getChild())};
    std::array<Bookmark*, kNodesAhead> ahead{};
    Bookmark* node = ongoing_->next.get();
    std::size_t entered = 0;
    for (; node && entered < nodes; node = following(*node)) {
        prefetchTexts(*node);
        if (Bookmark* due = std::exchange(ahead[entered++ % kNodesAhead], node))
            look(*due);
    }
    for (std::size_t i = 0; i < kNodesAhead; ++i)
        if (Bookmark* due = ahead[(entered + i) % kNodesAhead])
            look(*due);
    ongoing_->next = Ref<Bookmark>(node);
    if (node)
        return std::nullopt;
    const Search search = std::move(*ongoing_);
    ongoing_.reset();
    phases_.initSearch(); // a search in another window may have changed them
    // The texts of the node, and of those after it, may have changed since they were tested.
    Bookmark* const match = search.first ? findFrom(search.first.get()) : nullptr;
    if (match)
        setFoundBookmark(match);
    return Start{.count = search.count, .matched = match != nullptr};
}

void Finder::look(Bookmark& node) {
    const std::size_t count = countIn(node);
    if (count > 0 && !ongoing_->first)
        ongoing_->first = Ref<Bookmark>(&node);
    ongoing_->count += count;
}

Bookmark* Finder::findNext(Bookmark& root) {
    if (!found_ || !isInTree(*found_, root)) {
        setFoundBookmark(&root);
        phases_.initSearch();
    }
    return findFurther();
}

Bookmark* Finder::findFurther() {
    Bookmark* start = found_.get();
    if (!phases_.tagsPending && !phases_.notePending) {
        phases_.namePending = phases_.tagsPending = phases_.notePending = true;
        start = found_->getChild() ? found_->getChild() : afterSubtree(*found_);
    }
    setFoundBookmark(findFrom(start));
    return found_.get();
}

// Returns the first node from `start` on with a match. Of `start` only the pending texts are tested.
Bookmark* Finder::findFrom(Bookmark* start) {
    for (Bookmark* node = start; node;) {
        if (test(*node))
            return node;
        phases_.namePending = phases_.tagsPending = phases_.notePending = true;
        node = following(*node);
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
