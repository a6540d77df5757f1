// The insertion modes of tables. Content that a table does not allow is inserted before it.
#pragma once

#include "html/HtmlBodyMode.h"

#include <initializer_list>
#include <string_view>
#include <vector>

namespace tabulon::html {

/// Each public function processes a token in the mode of its name.
class TableModes {
public:
    /// The objects must outlive this one.
    TableModes(Construction& state, BodyMode& body, HeadModes& head, Templates& templates)
        : state_(state), body_(body), head_(head), templates_(templates) {}

    Step inTable(const Token& token);
    Step inTableText(const Token& token);
    Step inCaption(const Token& token);
    Step inColumnGroup(Token& token);
    Step inTableBody(const Token& token);
    Step inRow(const Token& token);
    Step inCell(const Token& token);

private:
    Step startInTable(const Token& token);
    Step endInTable(const Token& token);
    Step fostering(const Token& token);
    Step startPart(const Token& token, Mode mode);
    void clearBackTo(std::initializer_list<Tag> tags);
    // These return Done, and do nothing, if no such element is in scope, else Again, for the token that
    // closes it.
    Step endTable();
    Step endCaption();
    Step endSections();
    Step endRow();
    Step endCell();

    Construction& state_;
    BodyMode& body_;
    HeadModes& head_;
    Templates& templates_;
    std::vector<std::string_view> texts_; // in a table, until the next other token
    Mode modeBeforeText_ = Mode::Initial;
};

} // namespace tabulon::html
