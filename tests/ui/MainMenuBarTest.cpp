// The menu bar: keys of items, mnemonics, and which items are enabled.
#include "ui/MainMenuBar.h"

#include "app/AppDelegate.h"
#include "platform/fake/FakeBaseServices.h"
#include "tests/app/AppFixture.h"
#include "window/ViewController.h"

#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QSet>
#include <QTest>

namespace tabulon {
namespace {

class MainMenuBarTest : public AppTest {
protected:
    void SetUp() override {
        app.applicationDidFinishLaunching({});
        bar = std::make_unique<MainMenuBar>(app.mainMenu(), app.responders(), [this] { ++performed; });
    }
    QMenu* menu(int place) { return bar->actions().at(place)->menu(); }
    QAction* item(int place, const QString& title) {
        for (QAction* action : menu(place)->actions())
            if (action->text().remove('&') == title)
                return action;
        return nullptr;
    }
    static QChar mnemonic(const QAction* action) {
        const qsizetype mark = action->text().indexOf('&');
        return mark < 0 ? QChar() : action->text().at(mark + 1).toLower();
    }

    std::unique_ptr<MainMenuBar> bar;
    int performed = 0;
};

TEST_F(MainMenuBarTest, EveryItemOfAMenuIsReachedByALetterOfItsOwn) {
    for (int place = 0; place < bar->actions().size(); ++place) {
        emit menu(place)->aboutToShow();
        EXPECT_FALSE(menu(place)->isEmpty());
        QSet<QChar> letters;
        for (const QAction* action : menu(place)->actions()) {
            if (action->isSeparator())
                continue;
            EXPECT_FALSE(mnemonic(action).isNull()) << action->text().toStdString();
            EXPECT_FALSE(letters.contains(mnemonic(action))) << action->text().toStdString();
            letters.insert(mnemonic(action));
        }
    }
}

TEST_F(MainMenuBarTest, OpenMenuShowsWhatCannotBeChosenNow) {
    QAction* findNext = item(1, "Find Next");
    ASSERT_TRUE(findNext);
    EXPECT_TRUE(findNext->isEnabled()) << "keys find every item";
    emit menu(1)->aboutToShow();
    EXPECT_FALSE(item(1, "Find Next")->isEnabled());
    emit menu(0)->aboutToShow();
    EXPECT_FALSE(item(0, "Revert to Saved…")->isEnabled());
    EXPECT_TRUE(item(0, "Save")->isEnabled());
    emit menu(0)->aboutToHide();
    QApplication::processEvents();
    EXPECT_TRUE(item(0, "Revert to Saved…")->isEnabled());
}

TEST_F(MainMenuBarTest, KeysWorkBeforeAMenuIsOpened) {
    QMainWindow window;
    window.setMenuBar(bar.release());
    window.show();
    window.activateWindow();
    QApplication::setActiveWindow(&window);
    const std::size_t before = app.documentController().documents().size();
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(app.documentController().documents().size(), before + 1);
    EXPECT_EQ(performed, 1);
}

TEST_F(MainMenuBarTest, OpeningFileFillsThatMenuOnlyAndLooksForNoBrowser) {
    EXPECT_TRUE(menu(7)->isEmpty()) << "Import has no keys";
    emit menu(0)->aboutToShow();
    EXPECT_TRUE(item(0, "Revert to Saved…"));
    EXPECT_FALSE(item(3, "Save Link as File…"));
    EXPECT_TRUE(menu(7)->isEmpty());
    EXPECT_EQ(stores.lookUps, 0);
    emit menu(7)->aboutToShow();
    EXPECT_FALSE(menu(7)->isEmpty());
    EXPECT_GT(stores.lookUps, 0);
}

TEST_F(MainMenuBarTest, ChosenItemRunsItsAction) {
    ASSERT_EQ(app.documentController().documents().size(), 1u);
    item(0, "New")->trigger();
    EXPECT_EQ(app.documentController().documents().size(), 2u);
    EXPECT_EQ(performed, 1);
}

TEST_F(MainMenuBarTest, ItemOfAnOpenMenuActsOnWhatHadTheKeyboardThen) {
    QWidget window;
    QLineEdit before("before", &window);
    QLineEdit after("after", &window);
    window.show();
    QApplication::setActiveWindow(&window);
    for (QLineEdit* field : {&before, &after})
        field->setCursorPosition(0);
    before.setFocus();
    ASSERT_EQ(QApplication::focusWidget(), &before);
    int opened = 0;
    QObject::connect(bar.get(), &MainMenuBar::menuWillOpen, &window, [&] { ++opened; });
    emit menu(1)->aboutToShow();
    EXPECT_EQ(opened, 1);
    after.setFocus();
    item(1, "Delete")->trigger();
    EXPECT_EQ(before.text(), "efore");
    EXPECT_EQ(after.text(), "after");
    item(1, "Delete")->trigger();
    EXPECT_EQ(after.text(), "fter") << "a key acts on what has the keyboard now";
}

TEST_F(MainMenuBarTest, AMenuThatWasReachedByKeysActsOnWhatHadTheKeyboardBeforeTheBar) {
    QWidget window;
    QLineEdit before("before", &window);
    QLineEdit after("after", &window);
    bar->setParent(&window);
    window.show();
    QApplication::setActiveWindow(&window);
    for (QLineEdit* field : {&before, &after})
        field->setCursorPosition(0);
    before.setFocus();
    bar->setFocus(Qt::MenuBarFocusReason);
    ASSERT_EQ(QApplication::focusWidget(), bar.get());
    emit menu(1)->aboutToShow();
    EXPECT_TRUE(item(1, "Paste")->isEnabled()) << "in a field it can always be chosen";
    after.setFocus();
    item(1, "Delete")->trigger();
    EXPECT_EQ(before.text(), "efore");
    EXPECT_EQ(after.text(), "after");
    bar->setParent(nullptr);
}

TEST_F(MainMenuBarTest, ItemForAFieldThatIsGoneDoesNotActOnTheRows) {
    Document& document = *app.documentController().documents().front();
    ViewController& rows = *app.documentController().getViewController(document);
    const Ref<Bookmark> link = Bookmark::init(base.now());
    rows.editing().addNewData(link);
    QWidget window;
    auto* field = new QLineEdit("text", &window);
    window.show();
    QApplication::setActiveWindow(&window);
    field->setFocus();
    ASSERT_EQ(QApplication::focusWidget(), field);
    emit menu(1)->aboutToShow();
    delete field;
    item(1, "Delete")->trigger();
    EXPECT_EQ(rows.outline().numberOfRows(), 1u);
    item(1, "Delete")->trigger();
    EXPECT_EQ(rows.outline().numberOfRows(), 0u) << "a key acts on what has the keyboard now";
}

TEST_F(MainMenuBarTest, TheKeyOfPlusWorksWithoutShift) {
    EXPECT_EQ(keySequences(MenuItem{.keyEquivalent = "+"}),
              (QList{QKeySequence("Ctrl++"), QKeySequence("Ctrl+=")}));
    EXPECT_EQ(keySequences(MenuItem{.keyEquivalent = "-"}), QList{QKeySequence("Ctrl+-")});
    EXPECT_TRUE(keySequences(MenuItem{}).isEmpty());
}

} // namespace
} // namespace tabulon
