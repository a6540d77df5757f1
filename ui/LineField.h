// A field of one line whose selection the menu bar leaves alone.
#pragma once

#include <QFocusEvent>
#include <QLineEdit>

namespace tabulon {

/// Keeps its selection while the menu bar has the keyboard, as under any other menu: Cut and Copy are for it.
class LineField : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

protected:
    void focusOutEvent(QFocusEvent* event) override {
        if (event->reason() != Qt::MenuBarFocusReason)
            return QLineEdit::focusOutEvent(event);
        QFocusEvent asUnderMenus(QEvent::FocusOut, Qt::PopupFocusReason);
        QLineEdit::focusOutEvent(&asUnderMenus);
    }
};

} // namespace tabulon
