// The columns of a table as data: what identifies a column, its title and its width.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// Identifies a column of a table, wherever the user moves it. Columns are equal if their identifiers are.
class Column {
public:
    /// Requires: `identifier` is a string literal, and no other column of the table has it.
    consteval explicit Column(const char* identifier) : identifier_(identifier) {}

    /// Returns the identifier, which settings and tests can name.
    constexpr std::string_view identifier() const { return identifier_; }

    friend constexpr bool operator==(const Column&, const Column&) = default;
    /// The order of the identifiers as texts, for use as a key.
    friend constexpr bool operator<(const Column& a, const Column& b) {
        return a.identifier_ < b.identifier_;
    }

    // The columns of a document.

    static const Column Name;
    static const Column URL;
    static const Column Tags;

private:
    std::string_view identifier_;
};

inline constexpr Column Column::Name{"Name"};
inline constexpr Column Column::URL{"URL"};
inline constexpr Column Column::Tags{"Tags"};

/// What sets the width of a column.
enum class ColumnWidth {
    Set,   ///< the program or the user
    Share, ///< a share of the view's width, until the program or the user sets it
    Rest,  ///< the other columns: it takes the width that they leave
};

/// A column of a table.
struct OutlineColumn {
    Column identifier;
    /// In the user's language, UTF-8.
    std::string title;
    ColumnWidth width = ColumnWidth::Set;
    /// The share of the width that the columns with `ColumnWidth::Set` leave; used for `ColumnWidth::Share`
    /// only.
    double share = 0;
    /// Whether the column is shown only on request.
    bool hideable = false;
    /// Whether the column has the icons, the indentation and the triangles of the rows.
    bool outline = false;
};

/// The columns from left to right, as they are shown at first. Requires: no identifier occurs twice, one
/// column has `ColumnWidth::Rest`, and one is the outline column, which is not hideable.
using OutlineColumns = std::vector<OutlineColumn>;

} // namespace tabulon
