// What the cells of the outline show for a node.
#include "window/ViewController.h"

namespace tabulon {
namespace {

constexpr std::string_view kIndicatorImage = "ClippingTextIcon";
constexpr double kSmallFontSize = 11;
constexpr double kSmallFontRowHeight = 17;

Text textOrEmpty(const Text& text) {
    return text.isNull() ? Text("") : text;
}

} // namespace

CellContent ViewController::viewForTableColumn(Column column, std::size_t row, bool selected) const {
    const Bookmark& item = rows_.at(row);
    std::optional<LabelColor> color;
    if (item.getLabel() != 0 && !selected)
        color = labelColor(item.getLabel());
    CellContent cell;
    switch (column) {
    case Column::Name:
        return nameCell(item, color);
    case Column::Tags:
        if (item.isSeparator())
            return cell;
        cell.kind = CellKind::TagsView;
        cell.text = {textOrEmpty(item.itemTags()), color};
        cell.editable = true;
        return cell;
    case Column::URL:
        cell.kind = CellKind::URLView;
        cell.text = {textOrEmpty(item.itemURL()), color};
        cell.editable = !item.getLocked() && !isExpandable(item);
        return cell;
    }
    return cell;
}

CellContent ViewController::nameCell(const Bookmark& item, const std::optional<LabelColor>& color) const {
    CellContent cell;
    if (item.isSeparator()) {
        cell.kind = CellKind::Separator;
        return cell;
    }
    const UserDefaults& defaults = platform_.base.defaults;
    const bool hasTags = !item.itemTags().isEmpty();
    const bool tagsTip = hasTags && defaults.boolForKey("ShowBalloonTags");
    cell.kind = CellKind::NameView;
    cell.editable = true;
    cell.text = {textOrEmpty(item.itemName()), color};
    cell.icon = imageName(item.itemIcon());
    if (tagsTip)
        cell.iconToolTip = Text(platform_.base.texts.format("TagsLabel", item.itemTags().view()));
    if (!item.isFolder() && defaults.boolForKey("ShowMarks")) {
        cell.statusShown = true;
        cell.statusImage = statusImageName(item.getStatus());
    }
    if (!item.itemNote().isEmpty()) {
        cell.indicatorImage = kIndicatorImage;
        if (defaults.boolForKey("ShowBalloonNote"))
            cell.indicatorToolTip = item.itemNote();
    } else if (hasTags) {
        cell.indicatorImage = kIndicatorImage;
        if (tagsTip)
            cell.indicatorToolTip = item.itemTags();
    }
    return cell;
}

Text ViewController::toolTipForCell(Column column, std::size_t row) const {
    if (column != Column::Name || !platform_.base.defaults.boolForKey("ShowBalloonNote"))
        return Text("");
    return textOrEmpty(rows_.at(row).itemNote());
}

OutlineFont ViewController::font() const {
    const UserDefaults& defaults = platform_.base.defaults;
    return {defaults.stringForKey("FontName").value_or(""), defaults.doubleForKey("FontSize")};
}

double ViewController::rowHeight() {
    UserDefaults& defaults = platform_.base.defaults;
    if (defaults.doubleForKey("FontSize") == kSmallFontSize &&
        defaults.doubleForKey("RowHeight") != kSmallFontRowHeight)
        defaults.setDoubleForKey("RowHeight", kSmallFontRowHeight);
    return defaults.doubleForKey("RowHeight");
}

} // namespace tabulon
