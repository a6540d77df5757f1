// Editing in place: what a row's fields do when they end, and how editing begins, by command or by itself.
#include "window/GetInfoController.h"
#include "window/ViewController.h"

namespace tabulon {
namespace {

constexpr double kAutoEditPause = 0.5; // seconds

} // namespace

bool ViewController::shouldEdit(Column column, const Bookmark& item) const {
    if (column == Column::URL)
        return !isExpandable(item) && !item.getLocked();
    return !item.isSeparator();
}

void ViewController::endNameEdit(std::size_t row, const std::string& string) {
    Bookmark& item = rows_.at(row);
    if (item.itemName().view() == string)
        return;
    item.setItemName(string);
    fieldDidChange(item, row);
}

void ViewController::endURLEdit(std::size_t row, const std::string& string) {
    Bookmark& item = rows_.at(row);
    if (item.itemURL().view() == string)
        return;
    item.setItemURL(string);
    item.determineType();
    fieldDidChange(item, row);
}

void ViewController::endTagsEdit(std::size_t row, const std::string& string) {
    Bookmark& item = rows_.at(row);
    if (item.itemTags().view() == string)
        return;
    item.setItemTags(string);
    fieldDidChange(item, row);
}

void ViewController::fieldDidChange(Bookmark& item, std::size_t row) {
    item.setItemDateModified(now());
    outline().reloadRows({row, 1});
    makeDirty();
    updateURL();
}

void ViewController::editBookmark() {
    if (!outline().selectedRow())
        return noSelection();
    editCurrentRow(Column::Name);
}

void ViewController::editNameBookmark() {
    editCurrentRow(Column::Name);
}

void ViewController::editURLBookmark() {
    editCurrentRow(Column::URL);
}

void ViewController::editTagsBookmark() {
    if (outline().tagsColumnIndex())
        editCurrentRow(Column::Tags);
}

void ViewController::editCurrentRow(Column column) {
    const std::optional<std::size_t> row = outline().selectedRow();
    if (row && shouldEdit(column, rows_.at(*row)))
        beginEditing(column, *row);
}

void ViewController::beginEditing(Column column, std::size_t row) {
    const Ref<Bookmark> item(&rows_.at(row));
    commitEditing();
    if (const auto now = rowForItem(*item))
        outline().editCell(column, *now);
}

void ViewController::endEdit() {
    if (outline().selectedRow())
        outline().endEditing();
}

void ViewController::commitEditing() {
    autoEdit_.reset();
    if (window_)
        outline().endEditing();
}

void ViewController::finishEditing() {
    commitEditing();
    if (info_ && info_->isShown())
        info_->done();
}

// A click on the row that is selected already edits nothing: the selection has not changed.
void ViewController::scheduleAutoEdit() {
    autoEdit_.reset();
    if (!platform_.base.defaults.boolForKey("AutoEdit") || !outline().selectedRow() ||
        !window_->isKeyWindow())
        return;
    if (const std::optional<Column> column = outline().columnUnderPointer())
        autoEdit_ = platform_.timers.after(kAutoEditPause, [this, column] { autoEdit(*column); });
}

// Meanwhile another window may have come to the front, or the user may type elsewhere.
void ViewController::autoEdit(Column column) {
    autoEdit_.reset();
    if (!window_->isKeyWindow() || !outline().hasKeyboard())
        return;
    column == Column::Name  ? editNameBookmark()
    : column == Column::URL ? editURLBookmark()
                            : editTagsBookmark();
}

} // namespace tabulon
