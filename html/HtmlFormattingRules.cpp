#include "html/HtmlFormattingRules.h"

namespace tabulon::html {

void FormattingRules::reopen() {
    std::size_t index = state_.formatting.size();
    while (index > 0 && state_.formatting[index - 1].node && !state_.formatting[index - 1].node->isOpen)
        --index;
    state_.spend(Construction::kStepsPerCopy * (state_.formatting.size() - index));
    for (; index < state_.formatting.size() && !state_.isStopped; ++index) {
        Node& node = state_.cloneOf(*state_.formatting[index].node);
        state_.attach(node, state_.placeFor(state_.open.top()));
        state_.open.push(node);
        state_.formatting[index].node = &node;
    }
}

void FormattingRules::add(const Token& token) {
    state_.formatting.add(state_.insertElement(token), hashOf(token.attributes));
}

void FormattingRules::start(const Token& token) {
    reopen();
    add(token);
}

void FormattingRules::startLink(const Token& token) {
    if (const std::size_t entry = state_.formatting.lastOf(Tag::A); entry != FormattingElements::npos) {
        const Node& before = *state_.formatting[entry].node;
        end(token);
        if (const std::size_t left = state_.formatting.indexOf(before); left != FormattingElements::npos)
            state_.formatting.removeAt(left);
        if (before.isOpen) {
            const std::size_t index = state_.open.indexOf(before);
            state_.spend(Construction::kStepsPerMove * (state_.open.size() - index));
            state_.open.removeAt(index);
        }
    }
    start(token);
}

void FormattingRules::startNobr(const Token& token) {
    reopen();
    if (state_.open.isInScope(Tag::Nobr)) {
        end(token);
        reopen();
    }
    add(token);
}

void FormattingRules::end(const Token& token) {
    const Node& top = state_.open.top();
    if (top.isHtml(token.tag) && state_.formatting.indexOf(top) == FormattingElements::npos) {
        state_.open.pop();
        return;
    }
    constexpr int kMostRounds = 8;
    for (int round = 0; round < kMostRounds && !state_.isStopped; ++round)
        if (!endOnce(token))
            return;
}

// Performs one round of the algorithm. Returns false if no further one is needed.
bool FormattingRules::endOnce(const Token& token) {
    state_.spend(Construction::kStepsPerCopy + state_.formatting.takeSteps());
    const std::size_t entry = state_.formatting.lastOf(token.tag);
    if (entry == FormattingElements::npos) {
        state_.closeNamed(token);
        return false;
    }
    const Node& element = *state_.formatting[entry].node;
    if (!element.isOpen) {
        state_.formatting.removeAt(entry);
        return false;
    }
    const std::size_t index = state_.open.indexOf(element);
    state_.spend(Construction::kStepsPerMove * (state_.open.size() - index));
    if (!state_.open.isInScope(index))
        return false;
    std::size_t furthest = index + 1;
    while (furthest < state_.open.size() && !isSpecial(state_.open[furthest]))
        ++furthest;
    if (furthest == state_.open.size()) {
        state_.open.popTo(index);
        state_.formatting.removeAt(entry);
        return false;
    }
    moveOutOf(index, furthest, entry);
    return true;
}

// Moves the block at `furthest` out of the formatting element at `index`, and the content of the block into a
// copy of that element.
void FormattingRules::moveOutOf(std::size_t index, std::size_t furthest, std::size_t entry) {
    Node& element = state_.open[index];
    Node& common = state_.open[index - 1];
    Node& block = state_.open[furthest];
    std::size_t bookmark = entry;
    Node& last = moveUp(index, furthest, bookmark);
    Place place = state_.placeFor(common);
    detach(last);
    insert(*place.parent, last, place.before);
    Node& clone = state_.cloneOf(element);
    state_.spend(moveChildren(block, clone));
    insert(block, clone);
    const std::size_t old = state_.formatting.indexOf(element);
    const FormattingElements::Entry renewed{&clone, state_.formatting[old].attributes};
    state_.formatting.removeAt(old);
    state_.formatting.insertAt(bookmark > old ? bookmark - 1 : bookmark, renewed);
    const std::size_t below = state_.open.indexOf(block);
    state_.open.insertAt(below + 1, clone);
    state_.open.removeAt(state_.open.indexOf(element));
}

// Moves the block into copies of the formatting elements between both, which replace them, and closes the
// other elements between. Returns the outermost copy, or the block if there is none.
Node& FormattingRules::moveUp(std::size_t index, std::size_t furthest, std::size_t& bookmark) {
    constexpr int kMostCopies = 3;
    const Node* const block = &state_.open[furthest];
    Node* last = &state_.open[furthest];
    int count = 0;
    for (std::size_t at = furthest - 1; at > index && !state_.isStopped; --at) {
        Node& node = state_.open[at];
        std::size_t entry = state_.formatting.indexOf(node);
        state_.spend(Construction::kStepsPerCopy + Construction::kStepsPerMove * (state_.open.size() - at) +
                     state_.formatting.takeSteps());
        if (++count > kMostCopies && entry != FormattingElements::npos) {
            state_.formatting.removeAt(entry);
            bookmark -= entry < bookmark;
            entry = FormattingElements::npos;
        }
        if (entry == FormattingElements::npos) {
            state_.open.removeAt(at);
            continue;
        }
        Node& clone = state_.cloneOf(node);
        state_.formatting[entry].node = &clone;
        state_.open.removeAt(at);
        state_.open.insertAt(at, clone);
        if (last == block)
            bookmark = entry + 1;
        detach(*last);
        insert(clone, *last);
        last = &clone;
    }
    return *last;
}

} // namespace tabulon::html
