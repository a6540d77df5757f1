// The line below the outline: one line of text, and a button beside it while there is a further action.
#pragma once

#include <QWidget>

class QPushButton;

namespace tabulon {

class ElidedLabel;

/// The line. The button is hidden at first.
class StatusLineWidget : public QWidget {
    Q_OBJECT

public:
    /// `parent` owns the widget.
    explicit StatusLineWidget(QWidget* parent);

    /// Shows the text, which has one line and no markup. What does not fit is replaced by an ellipsis.
    void setText(const QString& text);
    /// Sets the font of the text.
    void setTextFont(const QFont& font);
    /// Shows a button with this title, or hides it if the title is empty. `description` is its tool tip and
    /// its description for screen readers.
    void setAction(const QString& title, const QString& description);

signals:
    /// Emitted when the user has pressed the button.
    void actionRequested();

private:
    /// The widgets are owned by this one.
    ElidedLabel* label_;
    QPushButton* button_;
};

} // namespace tabulon
