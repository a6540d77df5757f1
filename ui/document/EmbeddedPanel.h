// A dialog that is shown inside its window, for desktops on which every new window takes the keyboard.
#pragma once

#include <QDialog>
#include <QPointer>

namespace tabulon {

/// Returns whether this desktop moves the keyboard to each new window, whatever the program requests. Wayland
/// desktops do.
bool newWindowsTakeTheKeyboard();

/// Shows a dialog inside its parent window. The dialog stays at the lower right when the window is resized,
/// and becomes smaller where the window has too little room.
class EmbeddedPanel : public QObject {
    Q_OBJECT

public:
    /// Makes `panel` a part of its parent window, at the lower right, and removes its shortcuts and
    /// mnemonics, because the window has its own. `panel` owns this object. Requires: `panel` has a parent
    /// window and is not shown yet.
    explicit EmbeddedPanel(QDialog& panel);

signals:
    /// Emitted when the keyboard has left the panel for another widget, or for another program.
    void left();

protected:
    /// Places the panel after its window was resized, and paints its frame. When the panel is hidden while it
    /// has the keyboard, returns the keyboard to the widget that had it before. Returns false: no event is
    /// consumed.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Emits `left` when the keyboard moves out of the panel. Records `from` when it moves into the panel.
    /// Either may be `nullptr`.
    void keyboardMoved(QWidget* from, QWidget* to);
    /// Places the panel in its window, above the status line.
    void place();

    /// Owns this object.
    QDialog& panel_;
    QPointer<QWidget> before_; // the widget that had the keyboard before the panel
};

} // namespace tabulon
