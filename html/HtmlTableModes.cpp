#include "html/HtmlTableModes.h"

#include "html/HtmlText.h"

#include <algorithm>

namespace tabulon::html {
namespace {

bool isPart(Tag tag) {
    switch (tag) {
    case Tag::Caption:
    case Tag::Col:
    case Tag::Colgroup:
    case Tag::Tbody:
    case Tag::Td:
    case Tag::Tfoot:
    case Tag::Th:
    case Tag::Thead:
    case Tag::Tr:
        return true;
    default:
        return false;
    }
}

bool isSection(Tag tag) {
    return tag == Tag::Tbody || tag == Tag::Tfoot || tag == Tag::Thead;
}

bool isCell(Tag tag) {
    return tag == Tag::Td || tag == Tag::Th;
}

// Returns true for the end tags that have no effect in a mode, unless it has a rule of its own for one.
bool isIgnoredEnd(Tag tag) {
    return isPart(tag) || tag == Tag::Body || tag == Tag::Html;
}

} // namespace

void TableModes::clearBackTo(std::initializer_list<Tag> tags) {
    const auto stays = [&](const Node& node) {
        return node.space == Namespace::Html && (node.tag == Tag::Html || node.tag == Tag::Template ||
                                                 std::ranges::find(tags, node.tag) != tags.end());
    };
    while (!stays(state_.open.top()))
        state_.open.pop();
}

Step TableModes::startPart(const Token& token, Mode mode) {
    state_.insertElement(token);
    state_.mode = mode;
    return Step::Done;
}

Step TableModes::fostering(const Token& token) {
    state_.fosters = true;
    const Step step = body_.process(token);
    state_.fosters = false;
    return step;
}

Step TableModes::inTable(const Token& token) {
    if (token.kind == Token::Kind::StartTag)
        return startInTable(token);
    if (token.kind == Token::Kind::EndTag)
        return endInTable(token);
    if (token.kind != Token::Kind::Text)
        return body_.process(token);
    const Node& node = state_.open.top();
    if (!node.isHtml(Tag::Table) && !node.isHtml(Tag::Template) && !node.isHtml(Tag::Tr) &&
        !(node.space == Namespace::Html && isSection(node.tag)))
        return fostering(token);
    texts_.clear();
    modeBeforeText_ = state_.mode;
    state_.mode = Mode::InTableText;
    return Step::Again;
}

Step TableModes::startInTable(const Token& token) {
    switch (token.tag) {
    case Tag::Caption:
        clearBackTo({Tag::Table});
        state_.formatting.addMarker();
        return startPart(token, Mode::InCaption);
    case Tag::Colgroup:
        clearBackTo({Tag::Table});
        return startPart(token, Mode::InColumnGroup);
    case Tag::Col:
        clearBackTo({Tag::Table});
        state_.insertNamed(Tag::Colgroup);
        state_.mode = Mode::InColumnGroup;
        return Step::Again;
    case Tag::Tbody:
    case Tag::Tfoot:
    case Tag::Thead:
        clearBackTo({Tag::Table});
        return startPart(token, Mode::InTableBody);
    case Tag::Td:
    case Tag::Th:
    case Tag::Tr:
        clearBackTo({Tag::Table});
        state_.insertNamed(Tag::Tbody);
        state_.mode = Mode::InTableBody;
        return Step::Again;
    case Tag::Table:
        return endTable();
    case Tag::Style:
    case Tag::Script:
    case Tag::Template:
        head_.start(token);
        return Step::Done;
    case Tag::Input:
        if (const std::string* type = token.attribute("type");
            type && ascii::equalsIgnoringCase(*type, "hidden")) {
            state_.insertVoid(token);
            return Step::Done;
        }
        return fostering(token);
    case Tag::Form:
        if (!state_.form && !state_.open.contains(Tag::Template)) {
            state_.form = &state_.insertElement(token);
            state_.open.pop();
        }
        return Step::Done;
    default:
        return fostering(token);
    }
}

Step TableModes::endInTable(const Token& token) {
    if (token.tag == Tag::Table) {
        endTable();
        return Step::Done;
    }
    if (token.tag == Tag::Template) {
        templates_.end();
        return Step::Done;
    }
    if (isIgnoredEnd(token.tag))
        return Step::Done;
    return fostering(token);
}

Step TableModes::endTable() {
    if (!state_.closeInScope(Tag::Table, Scope::Table))
        return Step::Done;
    templates_.resetMode();
    return Step::Again;
}

// Collects the texts in a table. They are inserted into the table if all are blank, else before it.
Step TableModes::inTableText(const Token& token) {
    if (token.kind == Token::Kind::Text) {
        texts_.push_back(state_.withoutNuls(token.text));
        return Step::Done;
    }
    const bool stays = std::ranges::all_of(texts_, isBlank);
    for (const std::string_view text : texts_) {
        if (stays) {
            state_.insertText(text);
        } else {
            state_.fosters = true;
            body_.insertText(text);
            state_.fosters = false;
        }
    }
    texts_.clear();
    state_.mode = modeBeforeText_;
    return Step::Again;
}

Step TableModes::endCaption() {
    if (!state_.closeInScope(Tag::Caption, Scope::Table))
        return Step::Done;
    state_.formatting.clearToMarker();
    state_.mode = Mode::InTable;
    return Step::Again;
}

Step TableModes::inCaption(const Token& token) {
    const bool isEnd = token.kind == Token::Kind::EndTag;
    if (isEnd && token.tag == Tag::Caption) {
        endCaption();
        return Step::Done;
    }
    if ((token.kind == Token::Kind::StartTag && isPart(token.tag)) || (isEnd && token.tag == Tag::Table))
        return endCaption();
    if (isEnd && (isIgnoredEnd(token.tag)))
        return Step::Done;
    return body_.process(token);
}

Step TableModes::inColumnGroup(Token& token) {
    if (token.kind == Token::Kind::End)
        return body_.process(token);
    if (token.isStart(Tag::Col)) {
        state_.insertVoid(token);
        return Step::Done;
    }
    if (token.isStart(Tag::Template)) {
        templates_.start(token);
        return Step::Done;
    }
    if (token.isEnd(Tag::Template)) {
        templates_.end();
        return Step::Done;
    }
    if (token.isStart(Tag::Html) || token.isEnd(Tag::Col))
        return Step::Done;
    if (token.kind == Token::Kind::Text && state_.insertBlanks(token))
        return Step::Done;
    if (!state_.open.top().isHtml(Tag::Colgroup))
        return Step::Done;
    state_.open.pop();
    state_.mode = Mode::InTable;
    return token.isEnd(Tag::Colgroup) ? Step::Done : Step::Again;
}

Step TableModes::endSections() {
    if (!state_.open.isInScope(Tag::Tbody, Scope::Table) &&
        !state_.open.isInScope(Tag::Thead, Scope::Table) && !state_.open.isInScope(Tag::Tfoot, Scope::Table))
        return Step::Done;
    clearBackTo({Tag::Tbody, Tag::Tfoot, Tag::Thead});
    state_.open.pop();
    state_.mode = Mode::InTable;
    return Step::Again;
}

Step TableModes::inTableBody(const Token& token) {
    if (token.kind == Token::Kind::StartTag) {
        if (token.tag == Tag::Tr) {
            clearBackTo({Tag::Tbody, Tag::Tfoot, Tag::Thead});
            return startPart(token, Mode::InRow);
        }
        if (isCell(token.tag)) {
            clearBackTo({Tag::Tbody, Tag::Tfoot, Tag::Thead});
            state_.insertNamed(Tag::Tr);
            state_.mode = Mode::InRow;
            return Step::Again;
        }
        return isPart(token.tag) ? endSections() : inTable(token);
    }
    if (token.kind == Token::Kind::EndTag) {
        if (isSection(token.tag)) {
            if (state_.open.isInScope(token.tag, Scope::Table))
                endSections();
            return Step::Done;
        }
        if (token.tag == Tag::Table)
            return endSections();
        if (isIgnoredEnd(token.tag))
            return Step::Done;
    }
    return inTable(token);
}

Step TableModes::endRow() {
    if (!state_.open.isInScope(Tag::Tr, Scope::Table))
        return Step::Done;
    clearBackTo({Tag::Tr});
    state_.open.pop();
    state_.mode = Mode::InTableBody;
    return Step::Again;
}

Step TableModes::inRow(const Token& token) {
    if (token.kind == Token::Kind::StartTag) {
        if (isCell(token.tag)) {
            clearBackTo({Tag::Tr});
            startPart(token, Mode::InCell);
            state_.formatting.addMarker();
            return Step::Done;
        }
        return isPart(token.tag) ? endRow() : inTable(token);
    }
    if (token.kind == Token::Kind::EndTag) {
        if (token.tag == Tag::Tr) {
            endRow();
            return Step::Done;
        }
        if (token.tag == Tag::Table)
            return endRow();
        if (isSection(token.tag))
            return state_.open.isInScope(token.tag, Scope::Table) ? endRow() : Step::Done;
        if (isIgnoredEnd(token.tag))
            return Step::Done;
    }
    return inTable(token);
}

Step TableModes::endCell() {
    const bool isTd = state_.open.isInScope(Tag::Td, Scope::Table);
    if (!isTd && !state_.open.isInScope(Tag::Th, Scope::Table))
        return Step::Done;
    state_.open.popTo(state_.open.lastIndexOf(isTd ? Tag::Td : Tag::Th));
    state_.formatting.clearToMarker();
    state_.mode = Mode::InRow;
    return Step::Again;
}

Step TableModes::inCell(const Token& token) {
    if (token.kind == Token::Kind::StartTag && isPart(token.tag))
        return endCell();
    if (token.kind == Token::Kind::EndTag) {
        if (isCell(token.tag)) {
            if (state_.open.isInScope(token.tag, Scope::Table))
                endCell();
            return Step::Done;
        }
        if (token.tag == Tag::Table || token.tag == Tag::Tr || isSection(token.tag))
            return state_.open.isInScope(token.tag, Scope::Table) ? endCell() : Step::Done;
        if (isIgnoredEnd(token.tag))
            return Step::Done;
    }
    return body_.process(token);
}

} // namespace tabulon::html
