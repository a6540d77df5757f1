// The main menu as a menu bar. MainMenu decides what it contains, and ResponderChain which items are enabled.
#pragma once

#include "window/Menu.h"

#include <QMenuBar>
#include <QPointer>
#include <QSet>

#include <cstddef>
#include <functional>
#include <vector>

class QMenu;

namespace tabulon {

class MainMenu;
class ResponderChain;

/// Returns the key sequence of a menu item, empty for an item without one. Command is the Ctrl key, Option
/// the Alt key and Control the Meta key. A capital letter requires Shift.
QKeySequence keySequence(const MenuItem& item);

/// Returns all key sequences that choose the item; the first one is shown in the menu. "+" is chosen by "="
/// too. Empty for an item without a key.
QList<QKeySequence> keySequences(const MenuItem& item);

/// A menu is filled when it is about to be shown. Until then it contains only its items with keys, so that
/// these keys work from the beginning. An item that is chosen is validated again before its action runs.
/// Commands for text act on the text field that has the keyboard, if there is one.
class MainMenuBar : public QMenuBar {
    Q_OBJECT

public:
    /// `willPerform` is called before an item's action runs, and must not be empty. The window that the bar
    /// is added to owns the bar. Requires: `content` and `responders` outlive this object.
    MainMenuBar(const MainMenu& content, const ResponderChain& responders, std::function<void()> willPerform);

signals:
    /// Emitted before a menu is filled.
    void menuWillOpen();

private:
    /// Records which widget had the keyboard whenever the bar takes it.
    void noteKeyboardBefore();
    /// Records the widget that commands of an opened menu act on.
    void noteTarget();
    /// Runs the action of an item on that widget, or else on the rows or the application. The action may show
    /// alerts, and may close the window of the bar.
    void perform(const MenuItem& item);
    /// Adds the menu at this place, with its items that have keys. Adds the letter of its mnemonic to
    /// `takenLetters`.
    void addMenuAt(std::size_t place, QSet<QChar>& takenLetters);
    /// Replaces the content of a menu that is about to be shown. `place` is its place in `content_`.
    void refill(QMenu* menu, std::size_t place);
    /// Adds these items to a menu.
    void fill(QMenu* menu, const std::vector<MenuItem>& items);
    /// Adds one item to a menu: a separator, a submenu or an action. `title` contains the mark of its
    /// mnemonic.
    void add(QMenu* menu, const MenuItem& item, const QString& title);

    const MainMenu& content_;
    const ResponderChain& responders_;
    std::function<void()> willPerform_;
    /// The widget that had the keyboard when the open menu was opened. Null after that widget was destroyed,
    /// and while `hasTarget_` is false, because no menu is open.
    QPointer<QWidget> target_;
    /// Whether a menu is open that was opened while a widget had the keyboard.
    bool hasTarget_ = false;
    /// The widget that had the keyboard before the bar; null after it was destroyed.
    QPointer<QWidget> keyboardBefore_;
    /// Whether a widget had the keyboard when the bar took it.
    bool tookKeyboard_ = false;
};

} // namespace tabulon
