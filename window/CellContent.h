// What one cell of the outline shows, as a value: the controller computes it, the view draws it.
#pragma once

#include "base/Text.h"
#include "model/LinkType.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tabulon {

/// How the view draws a cell.
enum class CellKind {
    None,      ///< an empty cell
    NameView,  ///< icon, name, status mark, indicator
    Separator, ///< a horizontal line
    URLView,
    TagsView,
    TextView, ///< the text of any other column
};

/// A text with one colour over its whole length; `nullopt` for the view's own text colour.
struct ColoredText {
    Text string;
    std::optional<LabelColor> color;
};

/// Returns `string` in `color` over its whole length.
inline ColoredText colarizeItemColor(Text string, const LabelColor& color) {
    return {std::move(string), color};
}

/// What a cell shows. Image names are those of resources/icons; an empty name is no image. A null tool tip is
/// no tool tip.
struct CellContent {
    CellKind kind = CellKind::None;
    ColoredText text;
    /// Whether the user may edit the text in place.
    bool editable = false;

    // The members below are set for NameView only.

    std::string_view icon;
    Text iconToolTip;
    /// Whether there is room for a status mark before the icon, whether or not there is a mark in it.
    bool statusShown = false;
    /// The image of the status mark; empty for a status without one.
    std::string_view statusImage;
    /// The colour of a selected row's label, because the text of a selected row is not drawn in it.
    std::optional<LabelColor> labelMark;
    std::string_view indicatorImage;
    Text indicatorToolTip;
};

/// The font of the cells. `name` is empty for the system's own font; `size` is in points of 1/72 inch.
struct OutlineFont {
    std::string name;
    double size = 0;
};

} // namespace tabulon
