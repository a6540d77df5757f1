#include "window/FieldEditing.h"

#include "base/Settings.h"
#include "window/ActionTable.h"
#include "window/DocumentWindow.h"
#include "window/Outline.h"
#include "window/SharedAlerts.h"
#include "window/WindowController.h"

namespace tabulon {
namespace {

constexpr double kAutoEditPause = 0.5; // seconds

} // namespace

FieldEditing::FieldEditing(Outline& outline, const WindowController& window, const Platform& platform,
                           ActionTable& actions)
    : outline_(outline), window_(window), platform_(platform) {
    outline_.addSelectionObserver(*this);
    actions.add(
        "editBookmark:", [this](const MenuItem&) { editBookmark(); },
        [this](const MenuItem&) { return outline_.hasSelection(); });
}

bool FieldEditing::shouldEdit(Column column, const Bookmark& item) {
    if (column == Column::URL)
        return !item.isFolder() && !item.getLocked();
    return !item.isSeparator();
}

void FieldEditing::endNameEdit(std::size_t row, const std::string& string) {
    Bookmark& item = outline_.itemAtRow(row);
    if (item.itemName().view() == string)
        return;
    item.setItemName(string);
    fieldDidChange(item);
}

void FieldEditing::endURLEdit(std::size_t row, const std::string& string) {
    Bookmark& item = outline_.itemAtRow(row);
    if (item.itemURL().view() == string)
        return;
    item.setItemURL(string);
    item.determineType();
    fieldDidChange(item);
}

void FieldEditing::endTagsEdit(std::size_t row, const std::string& string) {
    Bookmark& item = outline_.itemAtRow(row);
    if (item.itemTags().view() == string)
        return;
    item.setItemTags(string);
    fieldDidChange(item);
}

void FieldEditing::fieldDidChange(Bookmark& item) {
    item.setItemDateModified(Date::now(platform_.base.clock));
    outline_.itemDidChange(item);
    outline_.currentRowDidChange();
}

void FieldEditing::editBookmark() {
    if (!outline_.view().selectedRow())
        return noSelection(platform_, outline_.document());
    editCurrentRow(Column::Name);
}

void FieldEditing::editNameBookmark() {
    editCurrentRow(Column::Name);
}

void FieldEditing::editURLBookmark() {
    editCurrentRow(Column::URL);
}

void FieldEditing::editTagsBookmark() {
    if (outline_.view().tagsColumnIndex())
        editCurrentRow(Column::Tags);
}

void FieldEditing::editCurrentRow(Column column) {
    const std::optional<std::size_t> row = outline_.view().selectedRow();
    if (row && shouldEdit(column, outline_.itemAtRow(*row)))
        beginEditing(column, *row);
}

void FieldEditing::beginEditing(Column column, std::size_t row) {
    const Ref<Bookmark> item(&outline_.itemAtRow(row));
    commitEditing();
    if (const auto now = outline_.rowForItem(*item))
        outline_.view().editCell(column, *now);
}

void FieldEditing::endEdit() {
    if (outline_.view().selectedRow())
        outline_.view().endEditing();
}

void FieldEditing::commitEditing() {
    autoEdit_.reset();
    if (window_.getWindow())
        outline_.view().endEditing();
}

void FieldEditing::selectionDidChange(SelectedBy cause) {
    autoEdit_.reset();
    if (cause == SelectedBy::User)
        scheduleAutoEdit();
}

// A click on a row that is selected already does not change the selection, and so edits no cell.
void FieldEditing::scheduleAutoEdit() {
    autoEdit_.reset();
    if (!valueOf(platform_.base.defaults, settings::kAutoEdit) || !outline_.view().selectedRow() ||
        !window_.getWindow()->isKeyWindow())
        return;
    if (const std::optional<Column> column = outline_.view().columnUnderPointer())
        autoEdit_ = platform_.timers.after(kAutoEditPause, [this, column] { autoEdit(*column); });
}

// Within the pause another window may have become active, or the keyboard may have moved to another field.
void FieldEditing::autoEdit(Column column) {
    autoEdit_.reset();
    if (!window_.getWindow()->isKeyWindow() || !outline_.view().hasKeyboard())
        return;
    column == Column::Name  ? editNameBookmark()
    : column == Column::URL ? editURLBookmark()
                            : editTagsBookmark();
}

} // namespace tabulon
