// The line below the outline: one line of text, and beside it a button while there is something to do about
// it.
#pragma once

#include <QWidget>

class QPushButton;

namespace tabulon {

class ElidedLabel;

class StatusLineWidget : public QWidget {
    Q_OBJECT

public:
    explicit StatusLineWidget(QWidget* parent);

    void setText(const QString& text);
    void setTextFont(const QFont& font);
    /// An empty title hides the button. `description` is its tool tip and its description for screen readers.
    void setAction(const QString& title, const QString& description);

signals:
    void actionRequested();

private:
    ElidedLabel* label_;
    QPushButton* button_;
};

} // namespace tabulon
