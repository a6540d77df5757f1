// A dialog that is shown inside its window, for desktops on which every new window takes the keyboard.
#pragma once

#include <QDialog>
#include <QPointer>

namespace tabulon {

/// Returns whether this desktop moves the keyboard to each new window, whatever the program requests. Wayland
/// desktops do.
bool newWindowsTakeTheKeyboard();

/// Shows a dialog inside its parent window.
class EmbeddedPanel : public QObject {
    Q_OBJECT

public:
    /// Makes `panel` a part of its parent window, at the lower right, and removes its shortcuts and
    /// mnemonics, because the window has its own. `panel` owns this object. Requires: `panel` has a parent
    /// window and is not shown yet.
    explicit EmbeddedPanel(QDialog& panel);

signals:
    /// Emitted when the keyboard has left the panel.
    void left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Emits `left` when the keyboard moves from the panel to another widget.
    void keyboardMoved(QWidget* from, QWidget* to);
    /// Places the panel in its window.
    void place();

    QDialog& panel_;
    QPointer<QWidget> before_; // the widget that had the keyboard before the panel
};

} // namespace tabulon
