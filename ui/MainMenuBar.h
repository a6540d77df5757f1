// The main menu drawn as a menu bar. What is in it, and what may be chosen now, is the application
// delegate's.
#pragma once

#include "window/Menu.h"

#include <QMenuBar>
#include <QPointer>

#include <functional>

class QMenu;

namespace tabulon {

class AppDelegate;

/// The key sequence of a menu item; empty for none.
QKeySequence keySequence(const MenuItem& item);

/// The same with the other keys that do as well; the first one is shown.
QList<QKeySequence> keySequences(const MenuItem& item);

/// Fills each menu anew when it is about to be shown. Keys work without that: a chosen item is checked again
/// by the delegate before it runs.
class MainMenuBar : public QMenuBar {
    Q_OBJECT

public:
    /// `app` must live longer. `willPerform` is called before an item's action runs.
    MainMenuBar(AppDelegate& app, std::function<void()> willPerform);

signals:
    void menuWillOpen();

private:
    void noteKeyboardBefore();
    void noteTarget();
    void perform(const MenuItem& item);
    void refill(QMenu* menu, qsizetype place);
    void fill(QMenu* menu, const Menu& content);
    void add(QMenu* menu, const MenuItem& item, const QString& title);

    AppDelegate& app_;
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
