#include "ui/document/OutlineEditor.h"

#include "ui/document/OutlineWidget.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>

#include <limits>

namespace tabulon {
namespace {

// A key that it has no use for would go on to the rows.
class CellField : public QLineEdit {
public:
    explicit CellField(QWidget* parent) : QLineEdit(parent) {
        setFrame(false);
        setMaxLength(std::numeric_limits<int>::max());
        setAcceptDrops(false); // what is dropped goes between the rows
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        QLineEdit::keyPressEvent(event);
        event->accept();
    }
};

} // namespace

OutlineEditor::OutlineEditor(OutlineWidget& outline) : QStyledItemDelegate(&outline), outline_(outline) {
    // The bar usually hands the keyboard back to the field.
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget* before, const QWidget* now) {
        const bool isField = now != &outline_ && outline_.isAncestorOf(now);
        if (now && !isField && qobject_cast<const QMenuBar*>(before))
            outline_.endEditing();
    });
}

QWidget* OutlineEditor::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex& index) const {
    auto* field = new CellField(parent);
    field->setFont(outline_.font());
    field->setAccessibleName(outline_.model()->headerData(index.column(), Qt::Horizontal).toString());
    return field;
}

void OutlineEditor::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* field = static_cast<QLineEdit*>(editor);
    if (field->isModified())
        return; // the row shows something else now, but what is typed is the user's
    field->setText(outline_.fieldText(index));
    field->selectAll();
}

void OutlineEditor::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
    const auto* field = static_cast<QLineEdit*>(editor);
    if (field->isModified())
        outline_.endField(index, field->text());
}

// Qt would end the field later, after the rows have seen the key as well, and when a menu is reached by keys,
// although its items work on the field.
bool OutlineEditor::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent*>(event)->reason() == Qt::MenuBarFocusReason)
        return false;
    auto* field = qobject_cast<QLineEdit*>(object);
    const bool isPress = event->type() == QEvent::KeyPress;
    const int key = isPress ? static_cast<QKeyEvent*>(event)->key() : 0;
    if (!field || (key != Qt::Key_Return && key != Qt::Key_Enter))
        return QStyledItemDelegate::eventFilter(object, event);
    emit commitData(field);
    emit closeEditor(field, NoHint);
    return true;
}

void OutlineEditor::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem&,
                                         const QModelIndex& index) const {
    editor->setGeometry(outline_.fieldRect(index));
}

} // namespace tabulon
