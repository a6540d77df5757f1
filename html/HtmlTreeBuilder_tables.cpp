// Tables. Content that a table does not allow is inserted before it.
#include "html/HtmlText.h"
#include "html/HtmlTreeBuilder.h"

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

} // namespace

void TreeBuilder::clearBackTo(std::initializer_list<Tag> tags) {
    const auto stays = [&](const Node& node) {
        return node.space == Namespace::Html && (node.tag == Tag::Html || node.tag == Tag::Template ||
                                                 std::ranges::find(tags, node.tag) != tags.end());
    };
    while (!stays(open_.top()))
        open_.pop();
}

TreeBuilder::Step TreeBuilder::startPart(const Token& token, Mode mode) {
    insertElement(token);
    mode_ = mode;
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::fostering(const Token& token) {
    fosters_ = true;
    const Step step = inBody(token);
    fosters_ = false;
    return step;
}

TreeBuilder::Step TreeBuilder::inTable(const Token& token) {
    switch (token.kind) {
    case Token::Kind::Doctype:
    case Token::Kind::Comment:
        return Step::Done;
    case Token::Kind::Text: {
        const Node& node = open_.top();
        if (!node.isHtml(Tag::Table) && !node.isHtml(Tag::Template) && !node.isHtml(Tag::Tr) &&
            !(node.space == Namespace::Html && isSection(node.tag)))
            return fostering(token);
        tableTexts_.clear();
        modeBeforeTableText_ = mode_;
        mode_ = Mode::InTableText;
        return Step::Again;
    }
    case Token::Kind::StartTag:
        return inTableStart(token);
    case Token::Kind::EndTag:
        return inTableEnd(token);
    case Token::Kind::End:
        break;
    }
    return inBody(token);
}

TreeBuilder::Step TreeBuilder::inTableStart(const Token& token) {
    switch (token.tag) {
    case Tag::Caption:
        clearBackTo({Tag::Table});
        formatting_.addMarker();
        return startPart(token, Mode::InCaption);
    case Tag::Colgroup:
        clearBackTo({Tag::Table});
        return startPart(token, Mode::InColumnGroup);
    case Tag::Col:
        clearBackTo({Tag::Table});
        insertNamed(Tag::Colgroup);
        mode_ = Mode::InColumnGroup;
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
        insertNamed(Tag::Tbody);
        mode_ = Mode::InTableBody;
        return Step::Again;
    case Tag::Table:
        return endTable() == Step::Again ? Step::Again : Step::Done;
    case Tag::Style:
    case Tag::Script:
    case Tag::Template:
        return inHeadStart(token);
    case Tag::Input:
        if (const std::string* type = token.attribute("type");
            type && ascii::equalsIgnoringCase(*type, "hidden")) {
            insertVoid(token);
            return Step::Done;
        }
        return fostering(token);
    case Tag::Form:
        if (!form_ && !open_.contains(Tag::Template)) {
            form_ = &insertElement(token);
            open_.pop();
        }
        return Step::Done;
    default:
        return fostering(token);
    }
}

TreeBuilder::Step TreeBuilder::inTableEnd(const Token& token) {
    if (token.tag == Tag::Table) {
        endTable();
        return Step::Done;
    }
    if (token.tag == Tag::Template)
        return endTemplate();
    if (isPart(token.tag) || token.tag == Tag::Body || token.tag == Tag::Html)
        return Step::Done;
    return fostering(token);
}

// Returns Done if none is in scope, else Again, for the token that closes it.
TreeBuilder::Step TreeBuilder::endTable() {
    if (!open_.isInScope(Tag::Table, Scope::Table))
        return Step::Done;
    open_.popTo(open_.lastIndexOf(Tag::Table));
    resetMode();
    return Step::Again;
}

// Collects the texts in a table. They are inserted into the table if all are blank, else before it.
TreeBuilder::Step TreeBuilder::inTableText(const Token& token) {
    if (token.kind == Token::Kind::Text) {
        std::string_view text = token.text;
        if (text.find('\0') != std::string_view::npos) {
            std::string kept(text);
            std::erase(kept, '\0');
            text = tree_.keep(std::move(kept));
        }
        tableTexts_.push_back(text);
        return Step::Done;
    }
    const bool stays = std::ranges::all_of(tableTexts_, isBlank);
    for (const std::string_view text : tableTexts_) {
        if (stays) {
            insertText(text);
        } else {
            fosters_ = true;
            bodyText(text);
            fosters_ = false;
        }
    }
    tableTexts_.clear();
    mode_ = modeBeforeTableText_;
    return Step::Again;
}

TreeBuilder::Step TreeBuilder::endCaption() {
    if (!open_.isInScope(Tag::Caption, Scope::Table))
        return Step::Done;
    open_.popTo(open_.lastIndexOf(Tag::Caption));
    formatting_.clearToMarker();
    mode_ = Mode::InTable;
    return Step::Again;
}

TreeBuilder::Step TreeBuilder::inCaption(const Token& token) {
    const bool isEnd = token.kind == Token::Kind::EndTag;
    if (isEnd && token.tag == Tag::Caption) {
        endCaption();
        return Step::Done;
    }
    if ((token.kind == Token::Kind::StartTag && isPart(token.tag)) || (isEnd && token.tag == Tag::Table))
        return endCaption();
    if (isEnd && (isPart(token.tag) || token.tag == Tag::Body || token.tag == Tag::Html))
        return Step::Done;
    return inBody(token);
}

TreeBuilder::Step TreeBuilder::inColumnGroup(const Token& token) {
    const bool isStart = token.kind == Token::Kind::StartTag;
    const bool isEnd = token.kind == Token::Kind::EndTag;
    if (token.kind == Token::Kind::Comment || token.kind == Token::Kind::Doctype)
        return Step::Done;
    if (token.kind == Token::Kind::End)
        return inBody(token);
    if (isStart && token.tag == Tag::Html)
        return Step::Done;
    if (isStart && token.tag == Tag::Col) {
        insertVoid(token);
        return Step::Done;
    }
    if (token.tag == Tag::Template && (isStart || isEnd))
        return isStart ? startTemplate(token) : endTemplate();
    if (isEnd && token.tag == Tag::Col)
        return Step::Done;
    std::string_view blanks;
    if (token.kind == Token::Kind::Text) {
        blanks = leadingBlanks(token.text);
        insertText(blanks);
        if (blanks.size() == token.text.size())
            return Step::Done;
    }
    if (!open_.top().isHtml(Tag::Colgroup))
        return Step::Done;
    open_.pop();
    mode_ = Mode::InTable;
    if (isEnd && token.tag == Tag::Colgroup)
        return Step::Done;
    if (blanks.empty())
        return Step::Again;
    Token rest;
    rest.kind = Token::Kind::Text;
    rest.text = token.text.substr(blanks.size());
    process(rest);
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::inTableBody(const Token& token) {
    const auto clear = [this] { clearBackTo({Tag::Tbody, Tag::Tfoot, Tag::Thead}); };
    const auto leave = [&] {
        const bool isIn = open_.isInScope(Tag::Tbody, Scope::Table) ||
                          open_.isInScope(Tag::Thead, Scope::Table) ||
                          open_.isInScope(Tag::Tfoot, Scope::Table);
        if (!isIn)
            return Step::Done;
        clear();
        open_.pop();
        mode_ = Mode::InTable;
        return Step::Again;
    };
    if (token.kind == Token::Kind::StartTag) {
        if (token.tag == Tag::Tr) {
            clear();
            return startPart(token, Mode::InRow);
        }
        if (isCell(token.tag)) {
            clear();
            insertNamed(Tag::Tr);
            mode_ = Mode::InRow;
            return Step::Again;
        }
        return isPart(token.tag) ? leave() : inTable(token);
    }
    if (token.kind == Token::Kind::EndTag) {
        if (isSection(token.tag)) {
            if (open_.isInScope(token.tag, Scope::Table))
                leave();
            return Step::Done;
        }
        if (token.tag == Tag::Table)
            return leave();
        if (isPart(token.tag) || token.tag == Tag::Body || token.tag == Tag::Html)
            return Step::Done;
    }
    return inTable(token);
}

// Returns Done if none is in scope, else Again, for the token that closes it.
TreeBuilder::Step TreeBuilder::endRow() {
    if (!open_.isInScope(Tag::Tr, Scope::Table))
        return Step::Done;
    clearBackTo({Tag::Tr});
    open_.pop();
    mode_ = Mode::InTableBody;
    return Step::Again;
}

TreeBuilder::Step TreeBuilder::inRow(const Token& token) {
    if (token.kind == Token::Kind::StartTag) {
        if (isCell(token.tag)) {
            clearBackTo({Tag::Tr});
            startPart(token, Mode::InCell);
            formatting_.addMarker();
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
            return open_.isInScope(token.tag, Scope::Table) ? endRow() : Step::Done;
        if (isPart(token.tag) || token.tag == Tag::Body || token.tag == Tag::Html)
            return Step::Done;
    }
    return inTable(token);
}

// Returns Done if none is in scope, else Again, for the token that closes it.
TreeBuilder::Step TreeBuilder::endCell() {
    const bool isTd = open_.isInScope(Tag::Td, Scope::Table);
    if (!isTd && !open_.isInScope(Tag::Th, Scope::Table))
        return Step::Done;
    open_.popTo(open_.lastIndexOf(isTd ? Tag::Td : Tag::Th));
    formatting_.clearToMarker();
    mode_ = Mode::InRow;
    return Step::Again;
}

TreeBuilder::Step TreeBuilder::inCell(const Token& token) {
    if (token.kind == Token::Kind::StartTag && isPart(token.tag))
        return endCell();
    if (token.kind == Token::Kind::EndTag) {
        if (isCell(token.tag)) {
            if (open_.isInScope(token.tag, Scope::Table))
                endCell();
            return Step::Done;
        }
        if (token.tag == Tag::Table || token.tag == Tag::Tr || isSection(token.tag))
            return open_.isInScope(token.tag, Scope::Table) ? endCell() : Step::Done;
        if (isPart(token.tag) || token.tag == Tag::Body || token.tag == Tag::Html)
            return Step::Done;
    }
    return inBody(token);
}

} // namespace tabulon::html
