#include "window/TableSettings.h"

#include "base/Settings.h"
#include "model/Finder.h"
#include "window/ActionTable.h"
#include "window/DocumentWindow.h"
#include "window/Outline.h"
#include "window/WindowController.h"

#include <algorithm>

namespace tabulon {
namespace {

constexpr double kSmallFontSize = 11;
constexpr double kSmallFontRowHeight = 17;
constexpr double kFirstSizeBeyondURLField = 14;
constexpr double kSmallestRowHeight = 1;

} // namespace

TableSettings::TableSettings(Outline& outline, const WindowController& window, const Platform& platform,
                             FindPhases& findPhases, ActionTable& actions)
    : outline_(outline), window_(window), platform_(platform), findPhases_(findPhases) {
    actions.add("zoomIn:", [this](const MenuItem&) { zoomIn(); });
    actions.add("zoomOut:", [this](const MenuItem&) { zoomOut(); });
}

void TableSettings::viewDidLoad() {
    UserDefaults& defaults = platform_.base.defaults;
    if (font().size == kSmallFontSize && rowHeight() != kSmallFontRowHeight)
        setValue(defaults, settings::kRowHeight, kSmallFontRowHeight);
    outline_.view().setTableFont(font(), rowHeight());
    fitURLField(font().size);
    if (valueOf(defaults, settings::kAddTagsColumn))
        addTagsColumn();
}

void TableSettings::zoomIn() {
    moveTableFontSize(FontSizeStep::Larger);
}

void TableSettings::zoomOut() {
    moveTableFontSize(FontSizeStep::Smaller);
}

bool TableSettings::canMoveTableFontSize(FontSizeStep step) const {
    return step == FontSizeStep::Larger ? font().size + 1 <= kLargestFontSize
                                        : font().size - 1 >= kSmallestFontSize;
}

void TableSettings::moveTableFontSize(FontSizeStep step) {
    if (!canMoveTableFontSize(step))
        return;
    const double change = step == FontSizeStep::Larger ? 1 : -1;
    setTableFontSizeRowHeight(font().size + change, std::max(kSmallestRowHeight, rowHeight() + change));
}

void TableSettings::setTableFontSizeRowHeight(double size, double rowHeight) {
    UserDefaults& defaults = platform_.base.defaults;
    setValue(defaults, settings::kFontSize, size);
    setValue(defaults, settings::kRowHeight, rowHeight);
    outline_.view().setTableFont(font(), rowHeight);
    fitURLField(size);
}

void TableSettings::fitURLField(double fontSize) {
    if (fontSize >= kSmallFontSize && fontSize < kFirstSizeBeyondURLField)
        window_.getWindow()->setURLFieldFontSize(fontSize);
}

void TableSettings::addTagsColumn() {
    findPhases_.tagsWithName = true;
    if (outline_.view().tagsColumnIndex())
        return;
    const UserDefaults& defaults = platform_.base.defaults;
    const std::int64_t index = std::max<std::int64_t>(0, valueOf(defaults, settings::kTagsIndex));
    outline_.view().addTagsColumn(static_cast<std::size_t>(index), valueOf(defaults, settings::kTagsWidth));
}

void TableSettings::removeTagsColumn() {
    findPhases_.tagsWithName = false;
    if (outline_.view().tagsColumnIndex())
        outline_.view().removeTagsColumn();
}

void TableSettings::outlineViewColumnDidMove() {
    if (const auto index = outline_.view().tagsColumnIndex())
        setValue(platform_.base.defaults, settings::kTagsIndex, static_cast<std::int64_t>(*index));
}

void TableSettings::tagsColumnDidResize(double width) {
    setValue(platform_.base.defaults, settings::kTagsWidth, width);
}

OutlineFont TableSettings::font() const {
    const UserDefaults& defaults = platform_.base.defaults;
    return {valueOf(defaults, settings::kFontName), valueOf(defaults, settings::kFontSize)};
}

double TableSettings::rowHeight() const {
    return valueOf(platform_.base.defaults, settings::kRowHeight);
}

} // namespace tabulon
