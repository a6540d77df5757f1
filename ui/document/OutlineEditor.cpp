#include "ui/document/OutlineEditor.h"

#include "ui/document/OutlineWidget.h"

#include <QLineEdit>

#include <limits>

namespace tabulon {

OutlineEditor::OutlineEditor(OutlineWidget& outline) : QStyledItemDelegate(&outline), outline_(outline) {}

QWidget* OutlineEditor::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                     const QModelIndex& index) const {
    auto* field = new QLineEdit(parent);
    field->setFrame(false);
    field->setMaxLength(std::numeric_limits<int>::max());
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

void OutlineEditor::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem&,
                                         const QModelIndex& index) const {
    editor->setGeometry(outline_.fieldRect(index));
}

} // namespace tabulon
