#include "ui/document/OutlineEditor.h"

#include "ui/LineField.h"
#include "ui/Strings.h"
#include "ui/document/OutlineHeader.h"
#include "ui/document/OutlineRowsView.h"
#include "window/FieldEditing.h"
#include "window/Outline.h"
#include "window/OutlineCells.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>

#include <limits>

namespace tabulon {
namespace {

constexpr int kFieldMargin = 2; // between a field's edge and its text

// A key that the field does not use must not reach the rows.
class CellField : public LineField {
public:
    explicit CellField(QWidget* parent) : LineField(parent) {
        setFrame(false);
        setMaxLength(std::numeric_limits<int>::max());
        setAcceptDrops(false); // drops are inserted between the rows
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        LineField::keyPressEvent(event);
        event->accept();
    }
};

} // namespace

OutlineEditor::OutlineEditor(OutlineRowsView& view, const Texts& texts)
    : QStyledItemDelegate(&view), view_(view), texts_(texts) {}

QWidget* OutlineEditor::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex& index) const {
    auto* field = new CellField(parent);
    field->setFont(view_.font());
    field->setAccessibleName(view_.model()->headerData(index.column(), Qt::Horizontal).toString());
    return field;
}

void OutlineEditor::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* field = static_cast<LineField*>(editor);
    if (field->isModified())
        return; // keeps what was typed although the row has changed
    field->showText(storedText(index));
    field->selectAll();
}

void OutlineEditor::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
    const auto* field = static_cast<QLineEdit*>(editor);
    if (!field->isModified() || !view_.model())
        return;
    const auto row = static_cast<std::size_t>(index.row());
    const std::string text = field->text().toStdString();
    const Column column = view_.header().columnAt(index.column());
    column == Column::Name  ? texts_.fields.endNameEdit(row, text)
    : column == Column::URL ? texts_.fields.endURLEdit(row, text)
                            : texts_.fields.endTagsEdit(row, text);
}

QString OutlineEditor::storedText(const QModelIndex& index) const {
    const Bookmark& item = texts_.outline.itemAtRow(static_cast<std::size_t>(index.row()));
    const Column column = view_.header().columnAt(index.column());
    const Text& text = column == Column::Name  ? item.itemName()
                       : column == Column::URL ? item.itemURL()
                                               : item.itemTags();
    return toQString(text.view());
}

QRect OutlineEditor::fieldRect(const QModelIndex& index) const {
    const Column column = view_.header().columnAt(index.column());
    QRect area = view_.geometry().textArea(index.row(), column);
    if (column == view_.header().outlineColumn()) {
        const auto row = static_cast<std::size_t>(index.row());
        const CellContent cell = texts_.cells.viewForTableColumn(column, row, true);
        area.setLeft(
            view_.geometry().outlineCell(index.row(), texts_.cells.treePlace(row).level, cell).text.left());
    }
    return area.adjusted(-kFieldMargin, 0, 0, 0);
}

void OutlineEditor::end(QWidget& field) {
    emit commitData(&field);
    emit closeEditor(&field, NoHint);
}

// From the bar the keyboard returns to the field, or moves elsewhere, which ends the field.
void OutlineEditor::keepWhileMenuBarHasKeyboard(QWidget& field) {
    disconnect(keyboardMoves_);
    keyboardMoves_ = connect(qApp, &QApplication::focusChanged, &field,
                             [this, &field](const QWidget* /*before*/, const QWidget* now) {
                                 if (qobject_cast<const QMenuBar*>(now))
                                     return;
                                 disconnect(keyboardMoves_);
                                 if (now != &field)
                                     end(field);
                             });
}

bool OutlineEditor::eventFilter(QObject* object, QEvent* event) {
    auto* field = qobject_cast<QLineEdit*>(object);
    if (field && event->type() == QEvent::FocusOut &&
        static_cast<const QFocusEvent*>(event)->reason() == Qt::MenuBarFocusReason) {
        keepWhileMenuBarHasKeyboard(*field);
        return false;
    }
    const bool isPress = event->type() == QEvent::KeyPress;
    const int key = isPress ? static_cast<QKeyEvent*>(event)->key() : 0;
    if (!field || (key != Qt::Key_Return && key != Qt::Key_Enter))
        return QStyledItemDelegate::eventFilter(object, event);
    end(*field); // Qt would end it later, after the rows have received the key
    return true;
}

void OutlineEditor::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem&,
                                         const QModelIndex& index) const {
    editor->setGeometry(fieldRect(index));
}

} // namespace tabulon
