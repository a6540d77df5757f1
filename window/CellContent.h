// What one cell of the outline shows, as a value: computed by the controller, drawn by the view.
#pragma once

#include "base/Text.h"
#include "model/LinkType.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tabulon {

enum class Column { Name, URL, Tags };

enum class CellKind {
    None,      ///< nothing at all
    NameView,  ///< icon, name, status mark, indicator
    Separator, ///< a horizontal line
    URLView,
    TagsView,
};

/// A text with a colour over its whole length, or in the view's own text colour.
struct ColoredText {
    Text string;
    std::optional<LabelColor> color;
};

/// `string` in `color` over its whole length.
inline ColoredText colarizeItemColor(Text string, const LabelColor& color) {
    return {std::move(string), color};
}

/// Image names are those of resources/icons; an empty name is no image. Null tool tips are none.
struct CellContent {
    CellKind kind = CellKind::None;
    ColoredText text;
    /// Whether a person may edit the text in place.
    bool editable = false;

    // The rest is filled for NameView alone.

    std::string_view icon;
    Text iconToolTip;
    /// Whether there is room for a status mark in front of the icon, and which one stands there.
    bool statusShown = false;
    std::string_view statusImage;
    /// The colour of the label of a selected row, whose text does not have it.
    std::optional<LabelColor> labelMark;
    std::string_view indicatorImage;
    Text indicatorToolTip;
};

/// `name` is empty for the system's own font; the size is in points of 1/72 inch.
struct OutlineFont {
    std::string name;
    double size = 0;
};

} // namespace tabulon
