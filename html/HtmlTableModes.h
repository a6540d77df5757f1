// The insertion modes of tables. Content that a table does not allow is inserted before it.
#pragma once

#include "html/HtmlBodyMode.h"

#include <initializer_list>
#include <string_view>
#include <vector>

namespace tabulon::html {

/// Each public function processes a token in the mode of its name, and returns what follows. A token that a
/// mode has no rule for is processed by the rules of the surrounding part of the table, and at last by those
/// of the body. Requires, for all functions: an element is open.
class TableModes {
public:
    /// The objects must outlive this one.
    TableModes(Construction& state, BodyMode& body, HeadModes& head, Templates& templates)
        : state_(state), body_(body), head_(head), templates_(templates) {}

    /// Inserts the parts of a table. Texts are collected (`inTableText`). Other content is inserted before
    /// the table.
    Step inTable(const Token& token);
    /// Collects texts until the first other token. They are inserted into the table if all are blank, else
    /// before it.
    Step inTableText(const Token& token);
    /// Processes the content of a caption as that of the body. A part of the table ends the caption.
    Step inCaption(const Token& token);
    /// Inserts columns. May remove the white space that a text begins with from the token. Other content ends
    /// the group.
    Step inColumnGroup(Token& token);
    /// Inserts rows. A cell without a row begins one.
    Step inTableBody(const Token& token);
    /// Inserts cells.
    Step inRow(const Token& token);
    /// Processes the content of a cell as that of the body. Another part of the table ends the cell.
    Step inCell(const Token& token);

private:
    /// Processes a start tag in the mode InTable, and inserts missing parts of the table before it.
    Step startInTable(const Token& token);
    /// Processes an end tag in the mode InTable.
    Step endInTable(const Token& token);
    /// Processes the token by the rules of the body, and inserts its content before the table.
    Step fostering(const Token& token);
    /// Inserts a part of the table and sets the mode of its content. Returns Done.
    Step startPart(const Token& token, Mode mode);
    /// Closes the innermost elements up to one of `tags`, or up to a template or html.
    void clearBackTo(std::initializer_list<Tag> tags);
    // These return Done, and do nothing, if no such element is in scope, else Again, for the token that
    // closes it.
    /// Closes the table, and sets the mode of the content around it.
    Step endTable();
    /// Closes the caption and its formatting, and sets the mode InTable.
    Step endCaption();
    /// Closes the innermost tbody, thead or tfoot, and sets the mode InTable.
    Step endSections();
    /// Closes the row, and sets the mode InTableBody.
    Step endRow();
    /// Closes the cell and its formatting, and sets the mode InRow.
    Step endCell();

    Construction& state_;
    BodyMode& body_;
    HeadModes& head_;
    Templates& templates_;
    std::vector<std::string_view> texts_; // in a table, until the next other token
    /// The mode after the text; valid while the mode is InTableText.
    Mode modeBeforeText_ = Mode::Initial;
};

} // namespace tabulon::html
