// The table as a whole: the font of its cells, the height of its rows, the tags column.
#include "window/ViewController.h"

#include <algorithm>

namespace tabulon {
namespace {

constexpr double kSmallFontSize = 11;
constexpr double kSmallFontRowHeight = 17;
constexpr double kFirstSizeBeyondURLField = 14;
constexpr double kSmallestRowHeight = 1;

} // namespace

void ViewController::viewDidLoad() {
    UserDefaults& defaults = platform_.base.defaults;
    if (font().size == kSmallFontSize && rowHeight() != kSmallFontRowHeight)
        defaults.setDoubleForKey("RowHeight", kSmallFontRowHeight);
    outline_.view().setTableFont(font(), rowHeight());
    fitURLField(font().size);
    if (defaults.boolForKey("AddTagsColumn"))
        addTagsColumn();
    if (defaults.boolForKey("ColumnSort"))
        addSortDescriptors();
}

void ViewController::zoomIn() {
    moveTableFontSize(FontSizeStep::Larger);
}

void ViewController::zoomOut() {
    moveTableFontSize(FontSizeStep::Smaller);
}

bool ViewController::canMoveTableFontSize(FontSizeStep step) const {
    return step == FontSizeStep::Larger ? font().size + 1 <= kLargestFontSize
                                        : font().size - 1 >= kSmallestFontSize;
}

void ViewController::moveTableFontSize(FontSizeStep step) {
    if (!canMoveTableFontSize(step))
        return;
    const double change = step == FontSizeStep::Larger ? 1 : -1;
    setTableFontSizeRowHeight(font().size + change, std::max(kSmallestRowHeight, rowHeight() + change));
}

void ViewController::setTableFontSizeRowHeight(double size, double rowHeight) {
    UserDefaults& defaults = platform_.base.defaults;
    defaults.setDoubleForKey("FontSize", size);
    defaults.setDoubleForKey("RowHeight", rowHeight);
    outline_.view().setTableFont(font(), rowHeight);
    fitURLField(size);
}

void ViewController::fitURLField(double fontSize) {
    if (fontSize >= kSmallFontSize && fontSize < kFirstSizeBeyondURLField)
        window_->setURLFieldFontSize(fontSize);
}

void ViewController::addTagsColumn() {
    shared_.findPhases.tagsWithName = true;
    if (outline_.view().tagsColumnIndex())
        return;
    const UserDefaults& defaults = platform_.base.defaults;
    const std::int64_t index = std::max<std::int64_t>(0, defaults.integerForKey("TagsIndex"));
    outline_.view().addTagsColumn(static_cast<std::size_t>(index), defaults.doubleForKey("TagsWidth"));
}

void ViewController::removeTagsColumn() {
    shared_.findPhases.tagsWithName = false;
    if (outline_.view().tagsColumnIndex())
        outline_.view().removeTagsColumn();
}

void ViewController::outlineViewColumnDidMove() {
    if (const auto index = outline_.view().tagsColumnIndex())
        platform_.base.defaults.setIntegerForKey("TagsIndex", static_cast<std::int64_t>(*index));
}

void ViewController::tagsColumnDidResize(double width) {
    platform_.base.defaults.setDoubleForKey("TagsWidth", width);
}

} // namespace tabulon
