// Formatting elements: reopened after other elements have closed them, and moved when their end tag is before
// that of a block inside them (the standard's adoption agency algorithm).
#include "html/HtmlTreeBuilder.h"

namespace tabulon::html {

// Opens copies of the formatting elements after the last one that is open and after the last marker.
void TreeBuilder::reopenFormatting() {
    std::size_t index = formatting_.size();
    while (index > 0 && formatting_[index - 1].node && !formatting_[index - 1].node->isOpen)
        --index;
    spend(kStepsPerCopy * (formatting_.size() - index));
    for (; index < formatting_.size() && !isStopped_; ++index) {
        Node& node = cloneOf(*formatting_[index].node);
        attach(node, placeFor(open_.top()));
        open_.push(node);
        formatting_[index].node = &node;
    }
}

void TreeBuilder::addFormatting(Node& node, const Token& token) {
    formatting_.add(node, hashOf(token.attributes));
}

TreeBuilder::Step TreeBuilder::startFormatting(const Token& token) {
    reopenFormatting();
    addFormatting(insertElement(token), token);
    return Step::Done;
}

// A start tag "a" closes a link that is still open, because links cannot be nested.
TreeBuilder::Step TreeBuilder::startLink(const Token& token) {
    if (const std::size_t entry = formatting_.lastOf(Tag::A); entry != FormattingElements::npos) {
        const Node& before = *formatting_[entry].node;
        endFormatting(token);
        if (const std::size_t left = formatting_.indexOf(before); left != FormattingElements::npos)
            formatting_.removeAt(left);
        if (before.isOpen) {
            const std::size_t index = open_.indexOf(before);
            spend(kStepsPerMove * (open_.size() - index));
            open_.removeAt(index);
        }
    }
    return startFormatting(token);
}

TreeBuilder::Step TreeBuilder::startNobr(const Token& token) {
    reopenFormatting();
    if (open_.isInScope(Tag::Nobr)) {
        endFormatting(token);
        reopenFormatting();
    }
    addFormatting(insertElement(token), token);
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::endFormatting(const Token& token) {
    const Node& top = open_.top();
    if (top.isHtml(token.tag) && formatting_.indexOf(top) == FormattingElements::npos) {
        open_.pop();
        return Step::Done;
    }
    constexpr int kMostRounds = 8;
    Step step = Step::Done;
    for (int round = 0; round < kMostRounds && !isStopped_; ++round)
        if (!endFormattingOnce(token, step))
            break;
    return step;
}

// Performs one round of the algorithm. Returns false if no further one is needed.
bool TreeBuilder::endFormattingOnce(const Token& token, Step& step) {
    spend(kStepsPerCopy + formatting_.takeSteps());
    const std::size_t entry = formatting_.lastOf(token.tag);
    if (entry == FormattingElements::npos) {
        step = endAny(token);
        return false;
    }
    const Node& element = *formatting_[entry].node;
    if (!element.isOpen) {
        formatting_.removeAt(entry);
        return false;
    }
    const std::size_t index = open_.indexOf(element);
    spend(kStepsPerMove * (open_.size() - index));
    if (!open_.isInScope(index))
        return false;
    std::size_t furthest = index + 1;
    while (furthest < open_.size() && !isSpecial(open_[furthest]))
        ++furthest;
    if (furthest == open_.size()) {
        open_.popTo(index);
        formatting_.removeAt(entry);
        return false;
    }
    moveOutOf(index, furthest, entry);
    return true;
}

// Moves the block at `furthest` out of the formatting element at `index`, and the content of the block into a
// copy of that element.
void TreeBuilder::moveOutOf(std::size_t index, std::size_t furthest, std::size_t entry) {
    Node& element = open_[index];
    Node& common = open_[index - 1];
    Node& block = open_[furthest];
    std::size_t bookmark = entry;
    Node& last = moveUp(index, furthest, bookmark);
    Place place = placeFor(common);
    detach(last);
    insert(*place.parent, last, place.before);
    Node& clone = cloneOf(element);
    spend(moveChildren(block, clone));
    insert(block, clone);
    const std::size_t old = formatting_.indexOf(element);
    const FormattingElements::Entry renewed{&clone, formatting_[old].attributes};
    formatting_.removeAt(old);
    formatting_.insertAt(bookmark > old ? bookmark - 1 : bookmark, renewed);
    const std::size_t below = open_.indexOf(block);
    open_.insertAt(below + 1, clone);
    open_.removeAt(open_.indexOf(element));
}

// Moves the block into copies of the formatting elements between both, which replace them, and closes the
// other elements between. Returns the outermost copy, or the block if there is none.
Node& TreeBuilder::moveUp(std::size_t index, std::size_t furthest, std::size_t& bookmark) {
    constexpr int kMostCopies = 3;
    const Node* const block = &open_[furthest];
    Node* last = &open_[furthest];
    int count = 0;
    for (std::size_t at = furthest - 1; at > index && !isStopped_; --at) {
        Node& node = open_[at];
        std::size_t entry = formatting_.indexOf(node);
        spend(kStepsPerCopy + kStepsPerMove * (open_.size() - at) + formatting_.takeSteps());
        if (++count > kMostCopies && entry != FormattingElements::npos) {
            formatting_.removeAt(entry);
            bookmark -= entry < bookmark;
            entry = FormattingElements::npos;
        }
        if (entry == FormattingElements::npos) {
            open_.removeAt(at);
            continue;
        }
        Node& clone = cloneOf(node);
        formatting_[entry].node = &clone;
        open_.removeAt(at);
        open_.insertAt(at, clone);
        if (last == block)
            bookmark = entry + 1;
        detach(*last);
        insert(clone, *last);
        last = &clone;
    }
    return *last;
}

} // namespace tabulon::html
