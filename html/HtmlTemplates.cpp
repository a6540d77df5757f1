#include "html/HtmlTemplates.h"

namespace tabulon::html {

void Templates::start(const Token& token) {
    state_.insertElement(token);
    state_.formatting.addMarker();
    state_.allowsFrameset = false;
    state_.mode = Mode::InTemplate;
    modes_.push_back(Mode::InTemplate);
}

void Templates::end() {
    if (!state_.open.contains(Tag::Template))
        return;
    state_.open.popTo(state_.open.lastIndexOf(Tag::Template));
    state_.formatting.clearToMarker();
    modes_.pop_back();
    resetMode();
}

Step Templates::endOfPage() {
    if (!state_.open.contains(Tag::Template)) {
        state_.stop();
        return Step::Done;
    }
    end();
    return Step::Again;
}

Step Templates::continueIn(Mode mode) {
    modes_.back() = state_.mode = mode;
    return Step::Again;
}

void Templates::resetMode() {
    struct Row {
        Tag tag;
        Mode mode;
    };
    static constexpr Row kRows[] = {
        {Tag::Td, Mode::InCell},
        {Tag::Th, Mode::InCell},
        {Tag::Tr, Mode::InRow},
        {Tag::Tbody, Mode::InTableBody},
        {Tag::Thead, Mode::InTableBody},
        {Tag::Tfoot, Mode::InTableBody},
        {Tag::Caption, Mode::InCaption},
        {Tag::Colgroup, Mode::InColumnGroup},
        {Tag::Table, Mode::InTable},
        {Tag::Template, Mode::InTemplate},
        {Tag::Head, Mode::InHead},
        {Tag::Body, Mode::InBody},
        {Tag::Frameset, Mode::InFrameset},
    };
    const Row* innermost = nullptr;
    for (const Row& row : kRows) {
        const bool isOpen = state_.open.contains(row.tag);
        if (isOpen &&
            (!innermost || state_.open.lastIndexOf(row.tag) > state_.open.lastIndexOf(innermost->tag)))
            innermost = &row;
    }
    if (!innermost)
        state_.mode = state_.head ? Mode::AfterHead : Mode::BeforeHead;
    else if (innermost->mode == Mode::InTemplate && !modes_.empty())
        state_.mode = modes_.back();
    else
        state_.mode = innermost->mode;
}

} // namespace tabulon::html
