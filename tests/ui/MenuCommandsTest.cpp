// Each item of the real menu bar, and each of its shortcuts, has the effect that its title names. The effects
// are those of the table of commands, in which no two commands have the same effect.
#include "tests/app/MenuEffects.h"
#include "ui/MainMenuBar.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QTest>

namespace tabulon {
namespace {

// A program, and a window with its menu bar.
struct BarAndProgram {
    explicit BarAndProgram(const MenuCase& menuCase) {
        bar = new MainMenuBar(program.application().mainMenu(), program.application().responders(), [] {});
        window.setMenuBar(bar); // the window becomes its owner
        program.prepare(menuCase.rows, menuCase.chosen);
    }

    /// Returns the action whose title is the last one of a path, after opening the menus above it, or
    /// `nullptr`.
    QAction* open(const std::string& path) {
        QWidget* menu = bar;
        QAction* found = nullptr;
        for (const QString& title : QString::fromStdString(path).split(" > ")) {
            found = nullptr;
            for (QAction* action : menu->actions())
                if (QString(action->text()).replace("&&", "\x01").remove('&').replace("\x01", "&") == title)
                    found = action;
            if (!found || !found->menu())
                break;
            menu = found->menu();
            emit found->menu()->aboutToShow();
        }
        return found;
    }

    MenuProgram program;
    QMainWindow window;
    MainMenuBar* bar;
};

TEST(MenuCommands, eachItemDoesWhatItsTitleSays) {
    for (const MenuCase& each : menuCases()) {
        BarAndProgram test(each);
        QAction* action = test.open(each.path);
        ASSERT_TRUE(action) << each.path;
        EXPECT_TRUE(action->isEnabled()) << each.path;
        action->trigger();
        EXPECT_EQ(test.program.change(), each.change) << each.path;
    }
}

TEST(MenuCommands, theKeysOfAnItemDoTheSame) {
    for (const MenuCase& each : menuCases()) {
        BarAndProgram test(each);
        const QAction* action = test.open(each.path);
        ASSERT_TRUE(action) << each.path;
        EXPECT_EQ(action->shortcut().toString(QKeySequence::PortableText).toStdString(), each.keys)
            << each.path;
        if (each.keys.empty())
            continue;
        BarAndProgram untouched(each); // its menus were never opened
        untouched.window.show();
        untouched.window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&untouched.window));
        QTest::keySequence(&untouched.window, QKeySequence(QString::fromStdString(each.keys)));
        EXPECT_EQ(untouched.program.change(), each.change) << each.keys;
    }
}

} // namespace
} // namespace tabulon
