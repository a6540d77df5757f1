#include "ui/MainMenuBar.h"

#include "app/MainMenu.h"
#include "app/ResponderChain.h"
#include "ui/Icons.h"
#include "ui/Strings.h"
#include "ui/TextFieldCommands.h"

#include <QApplication>
#include <QMenu>
#include <QTimer>

#include <utility>

namespace tabulon {
namespace {

void enableAll(QMenu* menu) {
    for (QAction* action : menu->actions())
        action->setEnabled(true);
}

} // namespace

QKeySequence keySequence(const MenuItem& item) {
    if (item.keyEquivalent.empty())
        return {};
    const QString key = toQString(item.keyEquivalent);
    const bool capital = key.size() == 1 && key[0].isUpper();
    QString sequence;
    if (item.modifiers.command)
        sequence += "Ctrl+";
    if (item.modifiers.option)
        sequence += "Alt+";
    if (item.modifiers.control)
        sequence += "Meta+";
    if (item.modifiers.shift || capital)
        sequence += "Shift+";
    return QKeySequence(sequence + key.toUpper().replace("DELETE", "Del"), QKeySequence::PortableText);
}

QList<QKeySequence> keySequences(const MenuItem& item) {
    const QKeySequence sequence = keySequence(item);
    if (sequence.isEmpty())
        return {};
    if (item.keyEquivalent == "+") // on many keyboards "+" is the key of "=" with Shift
        return {sequence, keySequence(MenuItem{.keyEquivalent = "=", .modifiers = item.modifiers})};
    return {sequence};
}

MainMenuBar::MainMenuBar(const MainMenu& content, const ResponderChain& responders,
                         std::function<void()> willPerform)
    : content_(content), responders_(responders), willPerform_(std::move(willPerform)) {
    noteKeyboardBefore();
    QSet<QChar> takenLetters;
    for (std::size_t place = 0; place < MainMenu::count(); ++place)
        addMenuAt(place, takenLetters);
}

void MainMenuBar::addMenuAt(std::size_t place, QSet<QChar>& takenLetters) {
    QMenu* menu = addMenu(withMnemonic(content_.title(place), takenLetters));
    menu->setToolTipsVisible(true);
    fill(menu, content_.itemsWithKeys(place));
    enableAll(menu);
    connect(menu, &QMenu::aboutToShow, this, [=, this] { refill(menu, place); });
    // After the menu is closed, every key must reach its item again.
    connect(menu, &QMenu::aboutToHide, this, [=, this] {
        QTimer::singleShot(0, menu, [=, this] {
            enableAll(menu);
            if (!QApplication::activePopupWidget())
                hasTarget_ = false;
        });
    });
}

void MainMenuBar::noteKeyboardBefore() {
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, QWidget* now) {
        if (now != this)
            return;
        keyboardBefore_ = before;
        tookKeyboard_ = before != nullptr;
    });
}

// When a menu is opened by keys, the bar has the keyboard itself, and returns it before an item runs.
void MainMenuBar::noteTarget() {
    QWidget* keyboard = QApplication::focusWidget();
    target_ = keyboard == this ? keyboardBefore_.data() : keyboard;
    hasTarget_ = keyboard == this ? tookKeyboard_ : keyboard != nullptr;
}

void MainMenuBar::refill(QMenu* menu, std::size_t place) {
    emit menuWillOpen();
    noteTarget();
    const Menu content = content_.menu(place);
    qDeleteAll(menu->findChildren<QMenu*>(Qt::FindDirectChildrenOnly));
    menu->clear();
    fill(menu, content.items);
}

void MainMenuBar::fill(QMenu* menu, const std::vector<MenuItem>& items) {
    QSet<QChar> taken;
    for (const MenuItem& item : items)
        add(menu, item, withMnemonic(item.title, taken));
}

void MainMenuBar::add(QMenu* menu, const MenuItem& item, const QString& title) {
    if (item.separator) {
        menu->addSeparator();
        return;
    }
    if (item.submenu) {
        QMenu* below = menu->addMenu(title);
        below->setToolTipsVisible(true);
        fill(below, item.submenu->items);
        return;
    }
    QAction* action = menu->addAction(title);
    action->setShortcuts(keySequences(item));
    action->setEnabled(textFieldTakes(item.action, target_) || responders_.validateMenuItem(item));
    if (!item.toolTip.empty())
        action->setToolTip(toolTipText(item.toolTip));
    if (!item.imageName.empty())
        action->setIcon(iconNamed(item.imageName));
    if (item.color)
        action->setIcon(labelSwatch(*item.color));
    if (item.checked) {
        action->setCheckable(true);
        action->setChecked(true);
    }
    connect(action, &QAction::triggered, this, [this, item] { perform(item); });
}

// An item of an open menu acts on the widget for which it was enabled; a key acts on the one that has the
// keyboard.
void MainMenuBar::perform(const MenuItem& item) {
    const bool hasTarget = std::exchange(hasTarget_, false);
    willPerform_();
    if (hasTarget && target_.isNull() && isTextFieldCommand(item.action))
        return; // its field was destroyed, and the command is not for the rows
    if (!performInTextField(item.action, hasTarget ? target_.data() : QApplication::focusWidget()))
        responders_.performMenuItem(item);
}

} // namespace tabulon
