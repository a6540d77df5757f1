// A dialog that is shown inside its window, for desktops on which every new window takes the keyboard.
#pragma once

#include <QDialog>
#include <QPointer>

namespace tabulon {

/// Returns whether this desktop moves the keyboard to each new window whatever the program asks for, as
/// Wayland's do.
bool newWindowsTakeTheKeyboard();

class EmbeddedPanel : public QObject {
    Q_OBJECT

public:
    /// Makes `panel`, which is not shown yet, a part of its parent window, at the lower right. Its shortcuts
    /// and mnemonics go, since the window has its own. Owned by the panel.
    explicit EmbeddedPanel(QDialog& panel);

signals:
    /// The keyboard has left the panel.
    void left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void keyboardMoved(QWidget* from, QWidget* to);
    void place();

    QDialog& panel_;
    QPointer<QWidget> before_; // what had the keyboard before the panel
};

} // namespace tabulon
