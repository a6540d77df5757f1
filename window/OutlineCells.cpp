#include "window/OutlineCells.h"

#include "base/Settings.h"
#include "window/FieldEditing.h"
#include "window/Outline.h"
#include "window/ShownAddress.h"

namespace tabulon {
namespace {

constexpr std::string_view kIndicatorImage = "ClippingTextIcon";
constexpr double kNameShare = 0.45;

Text textOrEmpty(const Text& text) {
    return text.isNull() ? Text("") : text;
}

// Returns the colour of a row's texts: that of its label while the row is not selected.
std::optional<LabelColor> textColor(const Bookmark& item, bool selected) {
    if (item.getLabel() == 0 || selected)
        return std::nullopt;
    return labelColor(item.getLabel());
}

ColoredText cellText(const Text& text, const std::optional<LabelColor>& color) {
    return color ? colarizeItemColor(textOrEmpty(text), *color) : ColoredText{textOrEmpty(text), {}};
}

} // namespace

OutlineColumns OutlineCells::columns() const {
    const Localization& texts = services_.texts;
    return {{.identifier = Column::Name,
             .title = texts.text("Name"),
             .width = ColumnWidth::Share,
             .share = kNameShare,
             .outline = true},
            {.identifier = Column::URL, .title = texts.text("URL"), .width = ColumnWidth::Rest},
            {.identifier = Column::Tags, .title = texts.text("Tags"), .hideable = true}};
}

std::size_t OutlineCells::numberOfRows() const {
    return outline_.numberOfRows();
}

TreePlace OutlineCells::treePlace(std::size_t row) const {
    const Bookmark& item = outline_.itemAtRow(row);
    return {.level = outline_.levelForRow(row), .isFolder = item.isFolder(), .isExpanded = isExpanded(item)};
}

CellContent OutlineCells::viewForTableColumn(Column column, std::size_t row, bool selected) const {
    const Bookmark& item = outline_.itemAtRow(row);
    const std::optional<LabelColor> color = textColor(item, selected);
    CellContent cell;
    if (column == Column::Name) {
        cell = nameCell(item, color);
        if (selected && item.getLabel() != 0 && !item.isSeparator())
            cell.labelMark = labelColor(item.getLabel());
    } else if (column == Column::URL) {
        cell.kind = CellKind::URLView;
        cell.text = cellText(shownAddressLine(item.itemURL()), color);
        cell.editable = FieldEditing::shouldEdit(column, item);
    } else if (!item.isSeparator()) {
        cell.kind = CellKind::TagsView;
        cell.text = cellText(item.itemTags(), color);
        cell.editable = FieldEditing::shouldEdit(column, item);
    }
    return cell;
}

CellContent OutlineCells::nameCell(const Bookmark& item, const std::optional<LabelColor>& color) const {
    CellContent cell;
    if (item.isSeparator()) {
        cell.kind = CellKind::Separator;
        return cell;
    }
    const UserDefaults& defaults = services_.defaults;
    const bool hasTags = !item.itemTags().isEmpty();
    const bool tagsTip = hasTags && valueOf(defaults, settings::kShowBalloonTags);
    cell.kind = CellKind::NameView;
    cell.editable = FieldEditing::shouldEdit(Column::Name, item);
    cell.text = cellText(item.itemName(), color);
    cell.icon = imageName(item.itemIcon());
    if (tagsTip)
        cell.iconToolTip = Text(services_.texts.format("TagsLabel", item.itemTags().view()));
    if (!item.isFolder() && valueOf(defaults, settings::kShowMarks)) {
        cell.statusShown = true;
        cell.statusImage = statusImageName(item.getStatus());
    }
    if (!item.itemNote().isEmpty()) {
        cell.indicatorImage = kIndicatorImage;
        if (valueOf(defaults, settings::kShowBalloonNote))
            cell.indicatorToolTip = item.itemNote();
    } else if (hasTags) {
        cell.indicatorImage = kIndicatorImage;
        if (tagsTip)
            cell.indicatorToolTip = item.itemTags();
    }
    return cell;
}

Text OutlineCells::toolTipForCell(Column column, std::size_t row) const {
    if (column != Column::Name || !valueOf(services_.defaults, settings::kShowBalloonNote))
        return Text("");
    return textOrEmpty(outline_.itemAtRow(row).itemNote());
}

} // namespace tabulon
