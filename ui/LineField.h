// A field of one line: a text that is pasted brings no line ends, and the menu bar leaves the selection
// alone.
#pragma once

#include <QFocusEvent>
#include <QLineEdit>
#include <QValidator>

#include <algorithm>

namespace tabulon {

/// Keeps its selection while the menu bar has the keyboard, as under any other menu: Cut and Copy are for it.
class LineField : public QLineEdit {
public:
    explicit LineField(QWidget* parent) : QLineEdit(parent) {
        // Where the validator changes what was typed, the field counts as untouched.
        connect(this, &QLineEdit::textEdited, this, [this] { setModified(true); });
    }

    /// Shows the text as it is. Unless that has line ends itself, which are kept, those of what is pasted
    /// from then on become spaces, and are dropped at the end.
    void showText(const QString& text) {
        setValidator(nullptr);
        setText(text);
        if (!text.contains('\n') && !text.contains('\r'))
            setValidator(&oneLine_);
    }

protected:
    void focusOutEvent(QFocusEvent* event) override {
        if (event->reason() != Qt::MenuBarFocusReason)
            return QLineEdit::focusOutEvent(event);
        QFocusEvent asUnderMenus(QEvent::FocusOut, Qt::PopupFocusReason);
        QLineEdit::focusOutEvent(&asUnderMenus);
    }

private:
    // A carriage return and a line feed are one line end.
    class OneLine : public QValidator {
    public:
        State validate(QString& text, int& position) const override {
            while (text.endsWith('\n') || text.endsWith('\r'))
                text.chop(1);
            text.replace("\r\n", " ").replace('\n', ' ').replace('\r', ' ');
            position = std::min(position, static_cast<int>(text.size()));
            return Acceptable;
        }
    };

    OneLine oneLine_;
};

} // namespace tabulon
