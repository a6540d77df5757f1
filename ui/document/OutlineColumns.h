// The columns of an outline as data. OutlineModel and OutlineHeader read them; a list with other columns is
// another table.
#pragma once

#include "window/CellContent.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace tabulon {

/// What sets the width of a column.
enum class ColumnWidth {
    Set,   ///< the program or the user
    Share, ///< a share of the view's width, until the program or the user sets it
    Rest,  ///< the other columns: it takes the width that they leave
};

/// A column of an outline.
struct OutlineColumn {
    /// The same wherever the user moves the column.
    Column identifier;
    /// In the user's language.
    QString title;
    ColumnWidth width = ColumnWidth::Set;
    /// The share of the width that the columns with `ColumnWidth::Set` leave; used for `ColumnWidth::Share`
    /// only.
    double share = 0;
    /// Whether the column is shown only on request.
    bool hideable = false;
};

/// The columns from left to right, as they are shown at first. Requires: no identifier occurs twice, and one
/// column has `ColumnWidth::Rest`.
using OutlineColumns = std::vector<OutlineColumn>;

/// Returns the columns of a document: Name, URL and, hideable, Tags. `titles` are in this order; a missing
/// title is empty.
inline OutlineColumns documentColumns(const QStringList& titles) {
    return {
        {.identifier = Column::Name, .title = titles.value(0), .width = ColumnWidth::Share, .share = 0.45},
        {.identifier = Column::URL, .title = titles.value(1), .width = ColumnWidth::Rest},
        {.identifier = Column::Tags, .title = titles.value(2), .hideable = true}};
}

} // namespace tabulon
