// The find bar, the sheets about marks and the info sheet as real widgets: keys, pauses, and reports to their
// controllers.
#include "base/Settings.h"
#include "tests/ui/OutlineFixture.h"
#include "ui/document/FindBarWidget.h"
#include "ui/document/InfoSheet.h"
#include "ui/document/MarkSheets.h"
#include "window/GetInfoController.h"
#include "window/MoveDeleteController.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>

#include <algorithm>

namespace tabulon {
namespace {

class FindBarTest : public OutlineTest {
protected:
    void SetUp() override {
        add(makeLink("one hit", "x"));
        add(makeLink("two hit", "x"));
        openWidget();
        bar = std::make_unique<FindBarWidget>(controller->window().findBar(), controller->finding(),
                                              base.texts, nullptr);
        controller->window().findBar().setFindBar(bar.get());
        controller->window().findBar().showFindView();
    }
    void TearDown() override {
        bar->detach();
        bar.reset();
        OutlineTest::TearDown();
    }
    QLineEdit& field() { return *bar->findChild<QLineEdit*>(); }
    bool shows(const QString& text) {
        for (const QLabel* label : bar->findChildren<QLabel*>())
            if (label->text() == text)
                return true;
        return false;
    }

    std::unique_ptr<FindBarWidget> bar;
};

TEST_F(FindBarTest, typingSearchesAfterAPause) {
    QTest::keyClicks(&field(), "hit");
    EXPECT_EQ(controller->finding().searchString(), "") << "not for every letter";
    EXPECT_TRUE(QTest::qWaitFor([&] { return shows("2 matches"); }));
    EXPECT_EQ(controller->finding().searchString(), "hit");
    QTest::keyClicks(&field(), "s");
    EXPECT_TRUE(shows("")) << "the number is of another text";
}

TEST_F(FindBarTest, theFieldHasTheKeyboardOfItsWindowWhicheverWindowIsInFront) {
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    ASSERT_FALSE(bar->isActiveWindow());
    EXPECT_TRUE(bar->hasKeyboard());
    bar->findChild<QToolButton*>()->setFocus();
    EXPECT_FALSE(bar->hasKeyboard());
}

TEST_F(FindBarTest, returnSearchesAtOnceAndThenGoesOn) {
    QTest::keyClicks(&field(), "hit");
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_TRUE(shows("2 matches"));
    EXPECT_EQ(controller->finding().foundBookmark()->itemName(), Text("one hit"));
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_EQ(controller->finding().foundBookmark()->itemName(), Text("two hit"));
    EXPECT_EQ(controller->window().findBar().recentSearches(), std::vector<std::string>{"hit"});
}

TEST_F(FindBarTest, clearingTheFieldClearsTheNumber) {
    QTest::keyClicks(&field(), "hit");
    QTest::keyClick(&field(), Qt::Key_Return);
    field().selectAll();
    QTest::keyClick(&field(), Qt::Key_Delete);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !shows("2 matches"); }));
    EXPECT_EQ(controller->finding().searchString(), "hit");
}

TEST_F(FindBarTest, escapeHidesTheBarAndStopsWhatIsPending) {
    QTest::keyClicks(&field(), "hit");
    QTest::keyClick(&field(), Qt::Key_Escape);
    EXPECT_FALSE(bar->isFindBarShown());
    QTest::qWait(250);
    EXPECT_EQ(controller->finding().searchString(), "");
    EXPECT_EQ(beeper.beeps, 0);
}

TEST_F(FindBarTest, recentSearchesAreInAMenuThatClearsThem) {
    const auto buttons = bar->findChildren<QToolButton*>();
    const auto found = std::ranges::find_if(buttons, [](const QToolButton* each) { return each->menu(); });
    ASSERT_NE(found, buttons.end());
    QToolButton* button = *found;
    EXPECT_EQ(button->text().toStdString(), base.texts.text("RecentsSearch"));
    const auto titles = [button] {
        emit button->menu()->aboutToShow();
        QStringList all;
        for (const QAction* action : button->menu()->actions())
            all += action->text();
        return all;
    };
    const QString empty = QString::fromStdString(base.texts.text("RecentsEmpty"));
    EXPECT_EQ(titles(), QStringList{empty});
    EXPECT_FALSE(button->menu()->actions().at(0)->isEnabled());
    for (const char* text : {"one hit", "b & c"})
        controller->window().findBar().noteRecentSearch(text);
    const QString clear = QString::fromStdString(base.texts.text("RecentsClear"));
    EXPECT_EQ(titles(), (QStringList{"b && c", "one hit", "", clear}));
    button->menu()->actions().at(1)->trigger();
    EXPECT_EQ(field().text(), "one hit");
    EXPECT_TRUE(shows("1 match"));
    button->menu()->actions().at(3)->trigger();
    EXPECT_EQ(titles(), QStringList{empty});
}

class SheetsTest : public OutlineTest {
protected:
    template <class Widget>
    Widget* inSheet(const QString& title) {
        for (QWidget* top : QApplication::topLevelWidgets())
            for (Widget* each : top->findChildren<Widget*>())
                if (QString(each->text()).remove('&') == title && each->isVisible())
                    return each;
        return nullptr;
    }
    QWidget window;
};

TEST_F(SheetsTest, theRemovalSheetStoresItsBoxesAndThenActs) {
    int executed = 0;
    const auto sheet = std::make_shared<MoveDeleteController>(base.services(), [&] { ++executed; });
    window.show();
    presentMoveDelete(&window, sheet, base.texts);
    auto* broken = inSheet<QCheckBox>("Broken");
    auto* move = inSheet<QCheckBox>("Move them to the Waste Basket");
    ASSERT_TRUE(broken && move && inSheet<QPushButton>("Move"));
    EXPECT_FALSE(broken->isChecked());
    EXPECT_TRUE(move->isChecked());
    broken->click();
    move->click();
    QPushButton* ok = inSheet<QPushButton>("Delete");
    ASSERT_TRUE(ok);
    ok->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return executed == 1; }));
    EXPECT_TRUE(valueOf(base.defaults, settings::kBrokenLinks));
    EXPECT_FALSE(valueOf(base.defaults, settings::kMoveLinks));
    EXPECT_FALSE(inSheet<QPushButton>("Delete"));
}

TEST_F(SheetsTest, returnDeletesNoMarkedLinksButMovesThem) {
    int executed = 0;
    const auto sheet = std::make_shared<MoveDeleteController>(base.services(), [&] { ++executed; });
    window.show();
    presentMoveDelete(&window, sheet, base.texts);
    auto* move = inSheet<QCheckBox>("Move them to the Waste Basket");
    auto* broken = inSheet<QCheckBox>("Broken");
    ASSERT_TRUE(move && broken && inSheet<QPushButton>("Move"));
    for (QCheckBox* box :
         {inSheet<QCheckBox>("Duplicates"), broken, inSheet<QCheckBox>("Not to be determined")})
        box->setChecked(false);
    EXPECT_FALSE(inSheet<QPushButton>("Move")->isEnabled());
    broken->click();
    EXPECT_TRUE(inSheet<QPushButton>("Move")->isEnabled());
    EXPECT_TRUE(inSheet<QPushButton>("Move")->isDefault());
    move->click();
    EXPECT_FALSE(inSheet<QPushButton>("Delete")->isDefault());
    QTest::keyClick(broken, Qt::Key_Return);
    QTest::qWait(20);
    EXPECT_EQ(executed, 0);
    EXPECT_TRUE(valueOf(base.defaults, settings::kMoveLinks));
}

TEST_F(SheetsTest, aCancelledRemovalSheetStoresNothing) {
    int executed = 0;
    const auto sheet = std::make_shared<MoveDeleteController>(base.services(), [&] { ++executed; });
    window.show();
    presentMoveDelete(&window, sheet, base.texts);
    inSheet<QCheckBox>("Broken")->click();
    inSheet<QPushButton>("Cancel")->click();
    QTest::qWait(20);
    EXPECT_EQ(executed, 0);
    EXPECT_FALSE(valueOf(base.defaults, settings::kBrokenLinks));
}

TEST_F(SheetsTest, theLegendNamesEveryMark) {
    window.show();
    presentLegenda(&window, base.texts);
    for (const char* key : {"LegendValid", "LegendMoved", "LegendBroken", "LegendUnknown", "LegendDuplicate"})
        EXPECT_TRUE(inSheet<QLabel>(QString::fromStdString(base.texts.text(key)))) << key;
    inSheet<QPushButton>("OK")->click();
    QTest::qWait(20);
}

class InfoSheetTest : public OutlineTest {
protected:
    void SetUp() override {
        link = &add(makeLink("link", "https://a.example/"));
        link->setItemNote("first line\nand a HIT here");
        link->setItemTags("a hit");
        add(makeLink("next"));
        openWidget();
        controller->finding().setSearchString("hit");
        controller->outline().selectRowOf(*link);
        info = std::make_shared<GetInfoController>(controller->outline(), controller->finding(), platform());
        info->editBookmark(*link);
        sheet = new InfoSheet(info, base.texts, nullptr);
        sheet->present();
    }
    void TearDown() override {
        delete sheet;
        OutlineTest::TearDown();
    }
    QLineEdit& nameField() { return *sheet->findChildren<QLineEdit*>().at(0); }
    QPlainTextEdit& noteField() { return *sheet->findChild<QPlainTextEdit*>(); }

    Bookmark* link = nullptr;
    std::shared_ptr<GetInfoController> info;
    QPointer<InfoSheet> sheet;
};

TEST_F(InfoSheetTest, escapeLeavesWithoutAChangeWhenNothingWasTyped) {
    QTest::keyClick(sheet, Qt::Key_Escape);
    EXPECT_FALSE(info->isShown());
    EXPECT_EQ(document.changeCount(), 0);
}

TEST_F(InfoSheetTest, whatWasTypedIsSavedOnTheWayOut) {
    EXPECT_EQ(nameField().selectedText(), "link");
    QTest::keyClicks(&nameField(), "typed");
    EXPECT_EQ(link->itemName(), Text("link"));
    sheet->close();
    EXPECT_EQ(link->itemName(), Text("typed"));
    EXPECT_EQ(link->itemNote(), Text("first line\nand a HIT here"));
    EXPECT_EQ(document.changeCount(), 1);
}

TEST_F(InfoSheetTest, escapeGivesUpWhatWasTyped) {
    QTest::keyClicks(&nameField(), "typed");
    QTest::keyClick(sheet, Qt::Key_Escape);
    EXPECT_FALSE(info->isShown());
    EXPECT_EQ(link->itemName(), Text("link"));
    EXPECT_EQ(document.changeCount(), 0);
}

TEST_F(InfoSheetTest, besideItsWindowItSavesWhenItIsLeft) {
    delete sheet;
    sheet = new InfoSheet(info, base.texts, nullptr);
    EXPECT_EQ(sheet->windowModality(), Qt::NonModal);
    sheet->presentBeside();
    EXPECT_TRUE(sheet->testAttribute(Qt::WA_ShowWithoutActivating));
    info->setName("typed");
    QEvent left(QEvent::ActivationChange);
    QApplication::setActiveWindow(&widget());
    QApplication::sendEvent(sheet, &left);
    EXPECT_EQ(link->itemName(), Text("typed"));
    EXPECT_TRUE(info->isShown());
}

TEST_F(InfoSheetTest, itComesUpWhereItWas) {
    sheet->setGeometry(120, 90, 500, 450);
    info->done();
    delete sheet;
    info->editBookmark(*link);
    sheet = new InfoSheet(info, base.texts, nullptr);
    EXPECT_EQ(sheet->geometry(), QRect(120, 90, 500, 450));
}

TEST_F(InfoSheetTest, theTitleHasEveryCharacterOfTheName) {
    sheet->setTitle("a [*] b");
    EXPECT_EQ(sheet->windowTitle(), "a [*][*] b") << "what Qt takes for one that is shown";
}

TEST_F(InfoSheetTest, aMatchAcrossASpaceThatDoesNotBreakIsHighlighted) {
    Bookmark& next = *link->nextBookmark();
    next.setItemNote("a note\u00A0with spaces");
    info->next();
    info->selectNote("note\u00A0with");
    EXPECT_EQ(noteField().textCursor().selectionStart(), 2);
    EXPECT_EQ(noteField().textCursor().selectionEnd(), 11);
}

TEST_F(InfoSheetTest, controlsInAnAddressAreCodedUntilItIsEdited) {
    Bookmark& next = *link->nextBookmark();
    next.setItemURL("https://a.example/\u202Egnp");
    info->next();
    QLineEdit& url = *sheet->findChildren<QLineEdit*>().at(1);
    QApplication::setActiveWindow(sheet);
    EXPECT_EQ(url.text(), "https://a.example/%E2%80%AEgnp");
    url.setFocus();
    EXPECT_EQ(url.text(), "https://a.example/\u202Egnp");
    QTest::keyClick(&url, Qt::Key_End);
    QTest::keyClicks(&url, "!");
    nameField().setFocus();
    EXPECT_EQ(url.text(), "https://a.example/%E2%80%AEgnp!");
    info->done();
    EXPECT_EQ(next.itemURL(), Text("https://a.example/\u202Egnp!"));
}

TEST_F(InfoSheetTest, aStepShowsTheNextItemAndChangesNothing) {
    info->next();
    EXPECT_EQ(nameField().text(), "next");
    EXPECT_EQ(noteField().toPlainText(), "");
    EXPECT_EQ(document.changeCount(), 0);
    info->previous();
    EXPECT_EQ(document.changeCount(), 0);
}

TEST_F(InfoSheetTest, whatWasFoundIsSelected) {
    info->selectNote("hit");
    EXPECT_EQ(noteField().textCursor().selectedText(), "HIT");
    info->selectNote("not there");
    EXPECT_TRUE(noteField().textCursor().hasSelection());
    EXPECT_EQ(document.changeCount(), 0);
}

TEST_F(InfoSheetTest, typingOnReplacesNothingThatWasFound) {
    info->selectNote("hit");
    QTest::keyClicks(sheet->focusWidget(), "hits");
    EXPECT_EQ(noteField().textCursor().selectedText(), "HIT");
    info->selectTags("hit");
    QTest::keyClicks(sheet->focusWidget(), "hits");
    QTest::keyClick(sheet, Qt::Key_Escape);
    EXPECT_EQ(link->itemTags(), Text("a hit"));
    EXPECT_EQ(document.changeCount(), 0);
}

TEST_F(InfoSheetTest, returnGoesOnFromWhatWasFound) {
    link->nextBookmark()->setItemName("another hit");
    controller->finding().findText("hit");
    ASSERT_EQ(controller->finding().foundBookmark(), link);
    info->selectNote("hit");
    QTest::keyClick(sheet->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(nameField().text(), "another hit");
    QTest::keyClick(sheet->focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(info->isShown()) << "elsewhere Return means that the user is done";
    EXPECT_EQ(document.changeCount(), 0);
}

TEST_F(InfoSheetTest, whatWasNotTypedStaysBesideWhatWas) {
    Bookmark& next = *link->nextBookmark();
    const std::string longURL = "javascript:" + std::string(100'000, 'x');
    const std::string note = "no\xC2\xA0"
                             "break\xE2\x80\xA8line\npara";
    next.setItemName("two\nlines");
    next.setItemURL(longURL);
    next.setItemNote(note);
    info->next();
    for (QLineEdit* field : sheet->findChildren<QLineEdit*>()) {
        field->setFocus();
        field->end(false);
        QTest::keyClicks(field, "!");
    }
    QTest::keyClicks(&noteField(), "!");
    sheet->close();
    EXPECT_EQ(next.itemName(), Text("two\nlines!"));
    EXPECT_EQ(next.itemURL(), Text(longURL + "!"));
    EXPECT_EQ(next.itemTags(), Text("!"));
    EXPECT_EQ(next.itemNote(), Text("!" + note));
}

TEST_F(InfoSheetTest, ShiftAndReturnBreakALineOfANoteAsReturnDoes) {
    noteField().setFocus();
    QTest::keyClicks(&noteField(), "one");
    QTest::keyClick(&noteField(), Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(&noteField(), "two");
    QTest::keyClick(&noteField(), Qt::Key_Return);
    QTest::keyClicks(&noteField(), "three ");
    sheet->close();
    EXPECT_TRUE(link->itemNote().view().starts_with("one\ntwo\nthree ")) << link->itemNote().view();
}

TEST_F(InfoSheetTest, anItemWithoutANameHasNotTheTitleOfTheOneBefore) {
    EXPECT_EQ(sheet->windowTitle(), "link");
    link->getParent()->addChild(Bookmark::initEmpty());
    info->next();
    info->next();
    EXPECT_EQ(sheet->windowTitle(), QString::fromStdString(base.texts.text("MenuGetInfo")));
    info->previous();
    EXPECT_EQ(sheet->windowTitle(), "next");
}

TEST_F(InfoSheetTest, aSheetThatGoesWithItsWindowLeavesItsController) {
    delete sheet;
    EXPECT_FALSE(info->isShown());
    info->done();
    EXPECT_EQ(document.changeCount(), 0);
}

} // namespace
} // namespace tabulon
