// Editing in place: the cell that is edited, the place of its field, and the cell that Tab edits next.
#include "ui/Strings.h"
#include "ui/document/OutlineHeader.h"
#include "ui/document/OutlineModel.h"
#include "ui/document/OutlineWidget.h"
#include "window/ViewController.h"

#include <QApplication>
#include <QCursor>
#include <QInputMethod>

namespace tabulon {
namespace {

constexpr int kFieldMargin = 2; // between a field's edge and its text

} // namespace

void OutlineWidget::editCell(Column column, std::size_t row) {
    // While a mouse button is held the user selects or drags.
    if (QApplication::mouseButtons() != Qt::NoButton)
        return;
    const QModelIndex index = rows_->index(static_cast<int>(row), OutlineHeader::sectionOf(column));
    endEditing();
    scrollTo(index);
    edited_ = index;
    edit(index);
}

void OutlineWidget::endEditing() {
    if (QWidget* field = edited_.isValid() ? indexWidget(edited_) : nullptr) {
        QGuiApplication::inputMethod()->commit(); // includes a word that is being composed
        commitData(field);
        closeEditor(field, QAbstractItemDelegate::NoHint);
    }
}

bool OutlineWidget::isEditing() const {
    return edited_.isValid() && indexWidget(edited_);
}

bool OutlineWidget::hasKeyboard() const {
    if (QApplication::activePopupWidget()) // a menu takes the keys
        return false;
    const QWidget* keyboard = window()->focusWidget();
    return !keyboard || keyboard == this || isAncestorOf(keyboard);
}

// While the keyboard is in another field, such as the find field, the place of the pointer has no meaning.
std::optional<Column> OutlineWidget::columnUnderPointer() const {
    if (!hasKeyboard())
        return std::nullopt;
    const QModelIndex index = indexAt(viewport()->mapFromGlobal(QCursor::pos()));
    if (!index.isValid() || selectedRow() != static_cast<std::size_t>(index.row()))
        return std::nullopt;
    return OutlineModel::columnAt(index.column());
}

QString OutlineWidget::fieldText(const QModelIndex& index) const {
    const Bookmark& item = controller_->outline().itemAtRow(static_cast<std::size_t>(index.row()));
    const Column column = OutlineModel::columnAt(index.column());
    const Text& text = column == Column::Name  ? item.itemName()
                       : column == Column::URL ? item.itemURL()
                                               : item.itemTags();
    return toQString(text.view());
}

NameCellParts OutlineWidget::nameCell(int row, bool selected) const {
    const auto number = static_cast<std::size_t>(row);
    return geometry().nameCell(row, controller_->outline().levelForRow(number),
                               controller_->cells().viewForTableColumn(Column::Name, number, selected));
}

QRect OutlineWidget::fieldRect(const QModelIndex& index) const {
    const Column column = OutlineModel::columnAt(index.column());
    QRect area = geometry().textArea(index.row(), column);
    if (column == Column::Name) {
        area.setLeft(nameCell(index.row(), true).text.left());
    }
    return area.adjusted(-kFieldMargin, 0, 0, 0);
}

void OutlineWidget::endField(const QModelIndex& index, const QString& text) {
    if (!controller_)
        return;
    const auto row = static_cast<std::size_t>(index.row());
    const std::string string = text.toStdString();
    switch (OutlineModel::columnAt(index.column())) {
    case Column::Name:
        return controller_->fields().endNameEdit(row, string);
    case Column::URL:
        return controller_->fields().endURLEdit(row, string);
    case Column::Tags:
        return controller_->fields().endTagsEdit(row, string);
    }
}

// Tab moves from the name to the URL and back.
void OutlineWidget::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    const QPersistentModelIndex edited = edited_;
    QAbstractItemView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    const bool goesOn =
        hint == QAbstractItemDelegate::EditNextItem || hint == QAbstractItemDelegate::EditPreviousItem;
    if (!goesOn || !edited.isValid() || !controller_)
        return;
    const auto row = static_cast<std::size_t>(edited.row());
    const bool toURL = OutlineModel::columnAt(edited.column()) == Column::Name &&
                       FieldEditing::shouldEdit(Column::URL, controller_->outline().itemAtRow(row));
    controller_->fields().beginEditing(toURL ? Column::URL : Column::Name, row);
}

} // namespace tabulon
