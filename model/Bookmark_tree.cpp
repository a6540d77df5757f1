// The tree operations of a node: children, ancestors, document link, deep copy and destruction. None
// recurses.
#include "model/Bookmark.h"
#include "model/Document.h"
#include "model/TreeWalk.h"

#include <utility>

namespace tabulon {

void Bookmark::addChild(Ref<Bookmark> child) {
    if (!children_)
        makeChildList();
    child->parent_ = this;
    children_->append(*child.detach());
}

void Bookmark::addBegin(Ref<Bookmark> child) {
    insertChild(0, std::move(child));
}

void Bookmark::insertChild(std::size_t index, Ref<Bookmark> child) {
    if (!children_)
        makeChildList();
    child->parent_ = this;
    children_->insert(index, *child.detach());
}

void Bookmark::removeLast() {
    if (!hasChildren())
        return;
    const auto last = Ref<Bookmark>::adopt(children_->back());
    children_->eraseAt(children_->size() - 1);
}

void Bookmark::remove(SystemLog& log) {
    if (!parent_) {
        log.log("parent is nil");
        return;
    }
    ChildList* list = parent_->children_.get();
    const Ref<Bookmark> self(this);
    while (list && list->contains(*this)) {
        list->eraseAt(list->indexOf(*this));
        release();
    }
}

void Bookmark::detachMe() {
    ChildList* list = parent_ ? parent_->children_.get() : nullptr;
    const std::size_t index = list ? list->indexOf(*this) : ChildList::npos;
    if (index == ChildList::npos)
        return;
    list->eraseAt(index);
    release();
}

void Bookmark::setChildren(const std::vector<Ref<Bookmark>>& children) {
    // The argument has a count of each node, so nodes that are also in the old list are not destroyed with
    // it.
    makeChildList(children.size());
    for (const Ref<Bookmark>& child : children) {
        child->retain();
        children_->append(*child);
    }
}

void Bookmark::makeChildList(std::size_t count) {
    std::vector<Bookmark*> dying;
    releaseChildrenInto(dying);
    for (Bookmark* node : dying)
        destroy(node);
    children_ = std::make_unique<ChildList>();
    children_->reserve(count);
}

void Bookmark::makeParent() {
    folder_ = true;
    makeChildList();
    icon_ = ItemIcon::Folder;
}

bool Bookmark::offSpring(const Bookmark& node) const {
    for (const Bookmark* each = &node; each; each = each->parent_)
        if (each == this)
            return true;
    return false;
}

int Bookmark::getLevel() const {
    int level = 0;
    for (const Bookmark* each = parent_; each; each = each->parent_)
        ++level;
    return level;
}

bool Bookmark::containsURL(const Bookmark& node) const {
    if (!children_ || node.url_.isNull())
        return false;
    for (const Bookmark* child : *children_)
        if (child->url_ == node.url_)
            return true;
    return false;
}

void Bookmark::setDocument(Document* document) {
    const Ref<DocumentAnchor> anchor = document ? document->anchor() : Ref<DocumentAnchor>();
    document_ = anchor;
    if (!folder_)
        return;
    walkBelow(*this, [&](Bookmark& node) {
        node.document_ = anchor;
        return node.folder_;
    });
}

Ref<Bookmark> deepCopy(const Bookmark& source) {
    Ref<Bookmark> top = Bookmark::initWithBookmark(source);
    if (!source.isFolder())
        return top;
    Bookmark* folder = top.get();
    walkBelow(
        source,
        [&](Bookmark& node) {
            Ref<Bookmark> copy = Bookmark::initWithBookmark(node);
            Bookmark* added = copy.get();
            folder->addChild(std::move(copy));
            const bool descend = node.isFolder() && node.getChildren();
            if (descend)
                folder = added;
            return descend;
        },
        [&](Bookmark&) { folder = folder->getParent(); });
    return top;
}

// Removes the child list. Children without another count are appended to `dying`; the others keep their
// parent.
void Bookmark::releaseChildrenInto(std::vector<Bookmark*>& dying) noexcept {
    if (!children_)
        return;
    const std::unique_ptr<ChildList> list = std::move(children_);
    std::vector<Bookmark*> children(list->begin(), list->end());
    list->clear();
    for (Bookmark* child : children)
        if (--child->references_ == 0)
            dying.push_back(child);
}

void Bookmark::destroyOne(Bookmark* node) noexcept {
    if (node->bookmark2_)
        delete static_cast<Bookmark2*>(node);
    else
        delete node;
}

void Bookmark::destroy(Bookmark* node) noexcept {
    std::vector<Bookmark*> dying{node};
    while (!dying.empty()) {
        Bookmark* each = dying.back();
        dying.pop_back();
        if (each->children_)
            for (Bookmark* child : *each->children_)
                if (child->parent_ == each)
                    child->parent_ = nullptr;
        each->releaseChildrenInto(dying);
        destroyOne(each);
    }
}

Bookmark::~Bookmark() {
    using RowList = ChunkedList<Bookmark, RowLink>;
    if (rowChunk_)
        RowList::eraseFromItsList(*this);
}

} // namespace tabulon
