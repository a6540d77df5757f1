// A text field of one line. Line ends in pasted text are replaced, and the selection stays while the menu bar
// has the keyboard.
#pragma once

#include <QFocusEvent>
#include <QLineEdit>
#include <QValidator>

#include <algorithm>

namespace tabulon {

/// Keeps its selection while the menu bar has the keyboard, as under any other menu, because Cut and Copy act
/// on it.
class LineField : public QLineEdit {
public:
    /// Creates an empty field that does not replace line ends until `showText` is called. `parent` owns the
    /// field. The text counts as modified (`isModified`) when the user edits it, and as unmodified after
    /// `showText`.
    explicit LineField(QWidget* parent) : QLineEdit(parent) {
        // A text that the validator has changed does not count as modified otherwise.
        connect(this, &QLineEdit::textEdited, this, [this] { setModified(true); });
    }

    /// Shows the text as it is. If it has no line ends, line ends in text that is pasted later become spaces,
    /// and those at its end are removed. If it has some, it is edited with them. Discards the history of undo
    /// and the selection, and moves the cursor to the end. A text above `maxLength` is cut. Does not emit
    /// `textEdited`.
    void showText(const QString& text) {
        setValidator(nullptr);
        setText(text);
        if (!text.contains('\n') && !text.contains('\r'))
            setValidator(&oneLine_);
    }

protected:
    /// Handles the menu bar like a popup menu. For it, QLineEdit keeps the selection.
    void focusOutEvent(QFocusEvent* event) override {
        if (event->reason() != Qt::MenuBarFocusReason)
            return QLineEdit::focusOutEvent(event);
        QFocusEvent asUnderMenus(QEvent::FocusOut, Qt::PopupFocusReason);
        QLineEdit::focusOutEvent(&asUnderMenus);
    }

private:
    // Replaces each line end by a space, and removes those at the end of the text. A carriage return with a
    // line feed after it is one line end. Accepts every text.
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

    /// Used as the validator while the text that was shown last has no line ends.
    OneLine oneLine_;
};

} // namespace tabulon
