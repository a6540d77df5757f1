#include "html/HtmlOpenElements.h"

#include <utility>

namespace tabulon::html {
namespace {

bool bounds(const Node& node, Scope scope) {
    if (node.space != Namespace::Html)
        return scope != Scope::Table && isSpecial(node);
    switch (scope) {
    case Scope::Table:
        return node.tag == Tag::Html || node.tag == Tag::Table || node.tag == Tag::Template;
    case Scope::ListItem:
        return has(node.tag, kBoundsScope) || node.tag == Tag::Ol || node.tag == Tag::Ul;
    case Scope::Button:
        return has(node.tag, kBoundsScope) || node.tag == Tag::Button;
    case Scope::Normal:
        break;
    }
    return has(node.tag, kBoundsScope);
}

} // namespace

bool isMathTextIntegrationPoint(const Node& node) {
    return node.space == Namespace::MathML &&
           (node.tag == Tag::Mi || node.tag == Tag::Mo || node.tag == Tag::Mn || node.tag == Tag::Ms ||
            node.tag == Tag::Mtext);
}

bool isHtmlIntegrationPoint(const Node& node) {
    if (node.space == Namespace::Svg)
        return node.tag == Tag::ForeignObject || node.tag == Tag::Desc || node.tag == Tag::Title;
    return node.holdsHtml;
}

bool isSpecial(const Node& node) {
    switch (node.space) {
    case Namespace::Html:
        return has(node.tag, kSpecial);
    case Namespace::Svg:
        return isHtmlIntegrationPoint(node);
    case Namespace::MathML:
        break;
    }
    return isMathTextIntegrationPoint(node) || node.tag == Tag::AnnotationXml;
}

void OpenElements::push(Node& node) {
    const std::size_t index = entries_.size();
    Entry entry{&node, npos, {npos, npos, npos, npos}};
    for (std::size_t scope = 0; scope < entry.bounds.size(); ++scope) {
        if (bounds(node, static_cast<Scope>(scope)))
            entry.bounds[scope] = index;
        else if (!entries_.empty())
            entry.bounds[scope] = entries_.back().bounds[scope];
    }
    if (node.space == Namespace::Html)
        entry.previousOfTag = std::exchange(last_[static_cast<std::size_t>(node.tag)], index);
    node.isOpen = true;
    entries_.push_back(entry);
}

void OpenElements::pop() {
    const Entry& entry = entries_.back();
    if (entry.node->space == Namespace::Html)
        last_[static_cast<std::size_t>(entry.node->tag)] = entry.previousOfTag;
    entry.node->isOpen = false;
    entries_.pop_back();
}

void OpenElements::popTo(std::size_t index) {
    while (entries_.size() > index)
        pop();
}

void OpenElements::removeAt(std::size_t index) {
    std::vector<Node*> above;
    for (std::size_t i = index + 1; i < entries_.size(); ++i)
        above.push_back(entries_[i].node);
    popTo(index);
    for (Node* node : above)
        push(*node);
}

void OpenElements::insertAt(std::size_t index, Node& node) {
    std::vector<Node*> above;
    for (std::size_t i = index; i < entries_.size(); ++i)
        above.push_back(entries_[i].node);
    popTo(index);
    push(node);
    for (Node* other : above)
        push(*other);
}

std::size_t OpenElements::indexOf(const Node& node) const {
    std::size_t index = entries_.size() - 1;
    while (entries_[index].node != &node)
        --index;
    return index;
}

bool OpenElements::isInScope(Tag tag, Scope scope) const {
    const std::size_t found = lastIndexOf(tag);
    if (found == npos)
        return false;
    const std::size_t bound = entries_.back().bounds[static_cast<std::size_t>(scope)];
    return bound == npos || found >= bound;
}

bool OpenElements::isInScope(std::size_t index) const {
    const std::size_t bound = entries_.back().bounds[static_cast<std::size_t>(Scope::Normal)];
    return bound == npos || index >= bound;
}

} // namespace tabulon::html
