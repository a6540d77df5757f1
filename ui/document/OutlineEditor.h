// The field that stands in for a cell while its text is edited in place.
#pragma once

#include <QStyledItemDelegate>

namespace tabulon {

class OutlineWidget;

/// Fields tell the outline, which owns this object, where they stand and what they end with. A field that the
/// user has left as it was ends without a word. No key that is pressed in a field reaches the rows. A field
/// stays open while the menu bar has the keyboard: what is chosen there may be meant for its text.
class OutlineEditor : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit OutlineEditor(OutlineWidget& outline);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    bool eventFilter(QObject* object, QEvent* event) override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    void end(QWidget& field);
    void keepWhileMenuBarHasKeyboard(QWidget& field);

    OutlineWidget& outline_;
    QMetaObject::Connection keyboardMoves_;
};

} // namespace tabulon
