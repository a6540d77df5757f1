// The field that is shown over a cell while its text is edited in place.
#pragma once

#include <QStyledItemDelegate>

namespace tabulon {

class FieldEditing;
class Outline;
class OutlineCells;
class OutlineRowsView;

/// Creates the fields, places them and reports their texts to FieldEditing. A field that the user has not
/// changed ends without a report. Keys that are pressed in a field do not reach the rows. A field stays open
/// while the menu bar has the keyboard, because a command chosen there may act on its text.
class OutlineEditor : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// Whose texts are edited, and where the new texts are reported.
    struct Texts {
        const Outline& outline;
        const OutlineCells& cells;
        FieldEditing& fields;
    };

    /// `view` owns this object. Requires: the parts of `texts` exist while the view has a model.
    OutlineEditor(OutlineRowsView& view, const Texts& texts);

    /// Returns a new field in the font of the rows. `parent` owns it.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    /// Shows the text of the cell as it is stored, with all of it selected. Does nothing if the user has
    /// changed the field.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    /// Passes the text of the field to FieldEditing. Does nothing if the user has not changed the field or
    /// the view has no model.
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    /// Ends the field at Return, and keeps it open while the keyboard is in the menu bar. Returns whether the
    /// event was consumed.
    bool eventFilter(QObject* object, QEvent* event) override;
    /// Places the field over the cell, from the beginning of its text to its end.
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    /// Returns the text of the cell as it is stored, which may have line breaks. Requires: the view has a
    /// model.
    QString storedText(const QModelIndex& index) const;
    /// Returns the place of the field in the viewport.
    QRect fieldRect(const QModelIndex& index) const;
    /// Reports the text of the field and closes it. The view deletes the field later.
    void end(QWidget& field);
    /// Keeps the field open until the keyboard has left the menu bar.
    void keepWhileMenuBarHasKeyboard(QWidget& field);

    OutlineRowsView& view_;
    const Texts texts_;
    /// Exists while a field waits for the menu bar.
    QMetaObject::Connection keyboardMoves_;
};

} // namespace tabulon
