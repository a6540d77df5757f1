#include "html/HtmlNode.h"

namespace tabulon::html {

void insert(Node& parent, Node& child, Node* before) {
    child.parent = &parent;
    child.next = before;
    child.previous = before ? before->previous : parent.last;
    (child.previous ? child.previous->next : parent.first) = &child;
    (before ? before->previous : parent.last) = &child;
}

void detach(Node& child) {
    if (!child.parent)
        return;
    (child.previous ? child.previous->next : child.parent->first) = child.next;
    (child.next ? child.next->previous : child.parent->last) = child.previous;
    child.parent = child.previous = child.next = nullptr;
}

std::size_t moveChildren(Node& from, Node& to) {
    std::size_t count = 0;
    while (Node* child = from.first) {
        detach(*child);
        insert(to, *child);
        ++count;
    }
    return count;
}

} // namespace tabulon::html
