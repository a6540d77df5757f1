// Editing in place: what a row's fields do when they end, and how editing begins, by command or by itself.
#include "window/GetInfoController.h"
#include "window/ViewController.h"

namespace tabulon {
namespace {

constexpr double kAutoEditPause = 0.5; // seconds

} // namespace

bool ViewController::shouldEdit(Column column, const Bookmark& item) const {
    if (column == Column::URL)
        return !item.isFolder() && !item.getLocked();
    return !item.isSeparator();
}

void ViewController::endNameEdit(std::size_t row, const std::string& string) {
    Bookmark& item = outline_.itemAtRow(row);
    if (item.itemName().view() == string)
        return;
    item.setItemName(string);
    fieldDidChange(item);
}

void ViewController::endURLEdit(std::size_t row, const std::string& string) {
    Bookmark& item = outline_.itemAtRow(row);
    if (item.itemURL().view() == string)
        return;
    item.setItemURL(string);
    item.determineType();
    fieldDidChange(item);
}

void ViewController::endTagsEdit(std::size_t row, const std::string& string) {
    Bookmark& item = outline_.itemAtRow(row);
    if (item.itemTags().view() == string)
        return;
    item.setItemTags(string);
    fieldDidChange(item);
}

void ViewController::fieldDidChange(Bookmark& item) {
    item.setItemDateModified(now());
    outline_.itemDidChange(item);
    updateURL();
}

void ViewController::editBookmark() {
    if (!outline_.view().selectedRow())
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
    if (outline_.view().tagsColumnIndex())
        editCurrentRow(Column::Tags);
}

void ViewController::editCurrentRow(Column column) {
    const std::optional<std::size_t> row = outline_.view().selectedRow();
    if (row && shouldEdit(column, outline_.itemAtRow(*row)))
        beginEditing(column, *row);
}

void ViewController::beginEditing(Column column, std::size_t row) {
    const Ref<Bookmark> item(&outline_.itemAtRow(row));
    commitEditing();
    if (const auto now = outline_.rowForItem(*item))
        outline_.view().editCell(column, *now);
}

void ViewController::endEdit() {
    if (outline_.view().selectedRow())
        outline_.view().endEditing();
}

void ViewController::commitEditing() {
    autoEdit_.reset();
    if (window_)
        outline_.view().endEditing();
}

void ViewController::finishEditing() {
    commitEditing();
    if (info_ && info_->isShown())
        info_->done();
}

// A click on the row that is selected already edits nothing: the selection has not changed.
void ViewController::scheduleAutoEdit() {
    autoEdit_.reset();
    if (!platform_.base.defaults.boolForKey("AutoEdit") || !outline_.view().selectedRow() ||
        !window_->isKeyWindow())
        return;
    if (const std::optional<Column> column = outline_.view().columnUnderPointer())
        autoEdit_ = platform_.timers.after(kAutoEditPause, [this, column] { autoEdit(*column); });
}

// Meanwhile another window may have come to the front, or the user may type elsewhere.
void ViewController::autoEdit(Column column) {
    autoEdit_.reset();
    if (!window_->isKeyWindow() || !outline_.view().hasKeyboard())
        return;
    column == Column::Name  ? editNameBookmark()
    : column == Column::URL ? editURLBookmark()
                            : editTagsBookmark();
}

} // namespace tabulon
