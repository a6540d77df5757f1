// The main menu drawn as a menu bar. What it contains is MainMenu's, and what may be chosen now
// ResponderChain's.
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

/// The key sequence of a menu item; empty for none.
QKeySequence keySequence(const MenuItem& item);

/// The same with the other keys that do as well; the first one is shown.
QList<QKeySequence> keySequences(const MenuItem& item);

/// A menu is filled when it is about to be shown. Until then it holds only its items with keys, so that these
/// work from the beginning. An item that is chosen is validated again before its action runs.
class MainMenuBar : public QMenuBar {
    Q_OBJECT

public:
    /// `content` and `responders` must outlive this object. `willPerform` is called before an item's action
    /// runs.
    MainMenuBar(const MainMenu& content, const ResponderChain& responders, std::function<void()> willPerform);

signals:
    void menuWillOpen();

private:
    void noteKeyboardBefore();
    void noteTarget();
    void perform(const MenuItem& item);
    void addMenuAt(std::size_t place, QSet<QChar>& takenLetters);
    void refill(QMenu* menu, std::size_t place);
    void fill(QMenu* menu, const std::vector<MenuItem>& items);
    void add(QMenu* menu, const MenuItem& item, const QString& title);

    const MainMenu& content_;
    const ResponderChain& responders_;
    std::function<void()> willPerform_;
    /// What had the keyboard when the menu that is open was opened. Null when that is gone, and while
    /// `hasTarget_` is false, because no menu is open.
    QPointer<QWidget> target_;
    bool hasTarget_ = false;
    /// What had the keyboard before the bar took it; null when that is gone.
    QPointer<QWidget> keyboardBefore_;
    bool tookKeyboard_ = false;
};

} // namespace tabulon
