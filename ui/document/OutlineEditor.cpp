#include "ui/document/OutlineEditor.h"

#include "ui/LineField.h"
#include "ui/document/OutlineWidget.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>

#include <limits>

namespace tabulon {
namespace {

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

OutlineEditor::OutlineEditor(OutlineWidget& outline) : QStyledItemDelegate(&outline), outline_(outline) {}

QWidget* OutlineEditor::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex& index) const {
    auto* field = new CellField(parent);
    field->setFont(outline_.font());
    field->setAccessibleName(outline_.model()->headerData(index.column(), Qt::Horizontal).toString());
    return field;
}

void OutlineEditor::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* field = static_cast<LineField*>(editor);
    if (field->isModified())
        return; // keeps what was typed although the row has changed
    field->showText(outline_.fieldText(index));
    field->selectAll();
}

void OutlineEditor::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
    const auto* field = static_cast<QLineEdit*>(editor);
    if (field->isModified())
        outline_.endField(index, field->text());
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
    editor->setGeometry(outline_.fieldRect(index));
}

} // namespace tabulon
