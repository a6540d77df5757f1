// Editing in place in the real outline: the field, its keys, the text that it reports, and the keys that
// delete.
#include "base/Settings.h"
#include "tests/ui/OutlineFixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>

namespace tabulon {
namespace {

class OutlineEditingTest : public OutlineTest {
protected:
    void SetUp() override {
        link_ = &add(makeLink("link", "https://a.example/"));
        folder_ = &add(makeFolder("folder"));
        setValue(base.defaults, settings::kAutoEdit, false);
    }
    void open() {
        openWidget();
        widget().setFocus();
        QApplication::setActiveWindow(&widget());
    }
    /// Returns the field that is open, or `nullptr`.
    QLineEdit* field() {
        QCoreApplication::processEvents(); // a field receives Return before it ends
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QLineEdit* found = nullptr;
        for (QLineEdit* candidate : widget().viewport()->findChildren<QLineEdit*>())
            if (candidate->isVisible())
                found = candidate;
        return found;
    }
    QLineEdit* edit(Column column, int row) {
        widget().goToRow(static_cast<std::size_t>(row));
        column == Column::Name ? controller->fields().editNameBookmark()
                               : controller->fields().editURLBookmark();
        return field();
    }

    Bookmark* link_ = nullptr;
    Bookmark* folder_ = nullptr;
};

TEST_F(OutlineEditingTest, theFieldHasTheTextSelectedAndStandsInTheCell) {
    open();
    QLineEdit* name = edit(Column::Name, 0);
    ASSERT_TRUE(name);
    EXPECT_EQ(name->text(), "link");
    EXPECT_EQ(name->selectedText(), "link");
    EXPECT_TRUE(cell(0, Column::Name).contains(name->geometry()));
    EXPECT_EQ(name->accessibleName(), "Name");
}

TEST_F(OutlineEditingTest, WhileAMenuIsUpTheRowsHaveNotTheKeyboard) {
    open();
    EXPECT_TRUE(widget().hasKeyboard());
    QMenu menu;
    menu.addAction("item");
    menu.popup(widget().mapToGlobal(QPoint(10, 10)));
    ASSERT_TRUE(QApplication::activePopupWidget());
    EXPECT_FALSE(widget().hasKeyboard());
    menu.close();
    EXPECT_TRUE(widget().hasKeyboard());
}

TEST_F(OutlineEditingTest, aFieldStaysOpenWhileTheMenuBarHasTheKeyboard) {
    open();
    QMenuBar bar(&widget());
    bar.show();
    QLineEdit* name = edit(Column::Name, 0);
    ASSERT_TRUE(name);
    QTest::keyClicks(name, "typed");
    bar.setFocus(Qt::MenuBarFocusReason);
    ASSERT_EQ(QApplication::focusWidget(), &bar);
    EXPECT_EQ(field(), name);
    name->setFocus(Qt::MenuBarFocusReason);
    EXPECT_EQ(field(), name) << "the bar hands the keyboard back";
    bar.setFocus(Qt::MenuBarFocusReason);
    widget().setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(field()) << "it goes to something else";
    EXPECT_EQ(link_->itemName().view(), "typed");
}

TEST_F(OutlineEditingTest, ReturnTakesOverAndEscapeDoesNot) {
    open();
    QLineEdit* name = edit(Column::Name, 0);
    ASSERT_TRUE(name);
    QTest::keyClicks(name, "better");
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_FALSE(field());
    EXPECT_EQ(link_->itemName().view(), "better");
    EXPECT_EQ(document.changeCount(), 1);
    name = edit(Column::Name, 0);
    ASSERT_TRUE(name);
    QTest::keyClicks(name, "worse");
    QTest::keyClick(name, Qt::Key_Escape);
    EXPECT_FALSE(field());
    EXPECT_EQ(link_->itemName().view(), "better");
    EXPECT_EQ(document.changeCount(), 1);
}

TEST_F(OutlineEditingTest, TabGoesFromTheNameToTheAddressAndBack) {
    open();
    QLineEdit* name = edit(Column::Name, 0);
    ASSERT_TRUE(name);
    QTest::keyClicks(name, "n");
    QTest::keyClick(name, Qt::Key_Tab);
    EXPECT_EQ(link_->itemName().view(), "n");
    QLineEdit* url = field();
    ASSERT_TRUE(url);
    EXPECT_EQ(url->text(), "https://a.example/");
    EXPECT_EQ(url->accessibleName(), "URL");
    QTest::keyClick(url, Qt::Key_Tab);
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), "n");
    QTest::keyClick(field(), Qt::Key_Backtab);
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), "https://a.example/");
}

TEST_F(OutlineEditingTest, theAddressOfAFolderOrALockedLinkGetsNoField) {
    link_->setItemLocked(true);
    open();
    EXPECT_FALSE(edit(Column::URL, 0));
    EXPECT_FALSE(edit(Column::URL, 1));
    QLineEdit* name = edit(Column::Name, 1);
    ASSERT_TRUE(name);
    QTest::keyClick(name, Qt::Key_Tab);
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), "folder");
}

TEST_F(OutlineEditingTest, whatIsLeftAloneStaysAsItWasWhateverItHolds) {
    const std::string strange = "two\nlines\ttab " + std::string(100'000, 'x');
    link_->setItemName(strange);
    open();
    ASSERT_TRUE(edit(Column::Name, 0));
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_FALSE(field());
    EXPECT_EQ(link_->itemName().view(), strange);
    EXPECT_EQ(document.changeCount(), 0);
}

TEST_F(OutlineEditingTest, leavingTheFieldTakesOverToo) {
    open();
    ASSERT_TRUE(edit(Column::Name, 0));
    QTest::keyClicks(field(), "typed");
    controller->fields().endEdit();
    EXPECT_EQ(link_->itemName().view(), "typed");
    EXPECT_FALSE(field());
}

TEST_F(OutlineEditingTest, whatIsTypedSurvivesRowsThatComeAndGo) {
    open();
    ASSERT_TRUE(edit(Column::Name, 0));
    QTest::keyClicks(field(), "typed");
    controller->expanding().expandAll(); // lays out all rows again
    controller->expanding().collapseAll();
    if (field())
        QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_FALSE(field());
    EXPECT_EQ(link_->itemName().view(), "typed");
}

TEST_F(OutlineEditingTest, theRowThatIsEditedMayGo) {
    open();
    ASSERT_TRUE(edit(Column::Name, 0));
    QTest::keyClicks(field(), "typed");
    controller->editing().deleteSelection();
    EXPECT_FALSE(field());
    EXPECT_EQ(shownNames(), std::vector<std::string>{"folder"});
}

TEST_F(OutlineEditingTest, afterADeletionTheKeyboardGoesOnWhereTheRowWas) {
    for (const char* name : {"2", "3", "4"})
        add(makeLink(name));
    open();
    widget().goToRow(2);
    press(Qt::Key_Delete);
    EXPECT_EQ(currentRow(), 2);
    press(Qt::Key_Down);
    EXPECT_EQ(widget().selectedRow(), 2u) << "the first key shows where that is";
    EXPECT_EQ(shownNames()[2], "3");
    widget().goToRow(3);
    press(Qt::Key_Delete);
    EXPECT_EQ(currentRow(), 2) << "the last row has none behind it";
}

TEST_F(OutlineEditingTest, theFolderIsCurrentWhenItsRowsGo) {
    const Ref<Bookmark> folder = makeFolder("open", true);
    folder->addChild(makeLink("a"));
    folder->addChild(makeLink("b"));
    add(folder);
    add(makeLink("behind"));
    open();
    widget().goToRow(4);
    controller->outline().collapseItem(*folder);
    EXPECT_EQ(currentRow(), 2);
}

TEST_F(OutlineEditingTest, theViewStaysWhenAFolderIsDeletedThatFillsIt) {
    for (int i = 0; i < 4; ++i) {
        const Ref<Bookmark> folder = makeFolder("open", true);
        for (int j = 0; j < 60; ++j)
            folder->addChild(makeLink("link"));
        add(folder);
    }
    open();
    for (int i = 0; i < 2; ++i) {
        widget().goToRow(0);
        press(Qt::Key_Delete);
    }
    widget().goToRow(0);
    ASSERT_EQ(widget().verticalScrollBar()->value(), 0);
    ASSERT_GT(widget().verticalScrollBar()->maximum(), 0);
    press(Qt::Key_Delete);
    EXPECT_EQ(currentRow(), 0);
    EXPECT_EQ(widget().verticalScrollBar()->value(), 0);
}

TEST_F(OutlineEditingTest, theThreeDeleteKeysDelete) {
    for (int i = 0; i < 3; ++i)
        add(makeLink("more"));
    open();
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Clear}) {
        const int rows = widget().model()->rowCount();
        widget().goToRow(0);
        press(key);
        EXPECT_EQ(widget().model()->rowCount(), rows - 1);
    }
    EXPECT_EQ(document.changeCount(), 3);
}

TEST_F(OutlineEditingTest, aClickBeginsToEditTheCellUnderItHalfASecondLater) {
    setValue(base.defaults, settings::kAutoEdit, true);
    open();
    const QPoint spot = cell(0, Column::URL).center();
    QCursor::setPos(widget().viewport()->mapToGlobal(spot));
    QTest::mouseClick(widget().viewport(), Qt::LeftButton, {}, spot);
    EXPECT_FALSE(field());
    timers.advance(0.51);
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), "https://a.example/");
}

TEST_F(OutlineEditingTest, whileTheUserTypesElsewhereNoCellIsEditedByItself) {
    setValue(base.defaults, settings::kAutoEdit, true);
    open();
    QWidget around;
    QLineEdit elsewhere(&around);
    widget().setParent(&around);
    around.show();
    widget().show();
    QCursor::setPos(widget().viewport()->mapToGlobal(cell(0, Column::Name).center()));
    const auto isEditedWithTheKeyboardAt = [this](QWidget& there) {
        widget().selectRows({});
        there.setFocus();
        widget().goToRow(0);
        timers.advance(0.51);
        return field() != nullptr;
    };
    EXPECT_FALSE(isEditedWithTheKeyboardAt(elsewhere));
    EXPECT_TRUE(isEditedWithTheKeyboardAt(widget()));
    widget().setParent(nullptr);
}

TEST_F(OutlineEditingTest, whatAMatchSelectsIsNotEditedByItself) {
    setValue(base.defaults, settings::kAutoEdit, true);
    open();
    QCursor::setPos(widget().viewport()->mapToGlobal(cell(0, Column::Name).center()));
    controller->finding().findText("link");
    EXPECT_EQ(widget().selectedRow(), 0u);
    timers.advance(0.51);
    EXPECT_FALSE(field());
}

TEST_F(OutlineEditingTest, TabFromTheNameOfANewBookmarkReachesItsOwnAddressWhereverThePointerIs) {
    setValue(base.defaults, settings::kAutoEdit, true);
    open();
    QCursor::setPos(widget().viewport()->mapToGlobal(cell(0, Column::URL).center()));
    controller->editing().newBookmark();
    ASSERT_TRUE(field());
    QTest::keyClicks(field(), "new");
    timers.advance(0.51);
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), "new");
    QTest::keyClick(field(), Qt::Key_Tab);
    timers.advance(0.51);
    ASSERT_TRUE(field());
    QTest::keyClicks(field(), "https://typed.example/");
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_EQ(controller->outline().itemAtRow(0).itemName().view(), "new");
    EXPECT_EQ(controller->outline().itemAtRow(0).itemURL().view(), "https://typed.example/");
    EXPECT_EQ(link_->itemName().view(), "link");
}

TEST_F(OutlineEditingTest, aSecondFieldEndsTheFirst) {
    open();
    ASSERT_TRUE(edit(Column::Name, 0));
    QTest::keyClicks(field(), "typed");
    widget().editCell(Column::URL, 0);
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), "https://a.example/");
    EXPECT_EQ(link_->itemName().view(), "typed");
    EXPECT_EQ(widget().viewport()->findChildren<QLineEdit*>().size(), 1);
}

TEST_F(OutlineEditingTest, keysInAFieldDoNotReachTheRow) {
    const Ref<Bookmark> folder = makeFolder("open", true);
    folder->addChild(makeLink("inside"));
    add(folder);
    open();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Return}) {
        ASSERT_TRUE(edit(Column::Name, 2));
        QTest::keyClicks(field(), "renamed");
        QTest::keyClick(field(), key);
        EXPECT_EQ(currentRow(), 2) << key;
        EXPECT_TRUE(folder->showHier()) << key;
    }
    EXPECT_FALSE(field());
    EXPECT_EQ(folder->itemName().view(), "renamed");
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QApplication::sendEvent(&widget(), &repeated);
    EXPECT_TRUE(folder->showHier()) << "the key is still held down";
    press(Qt::Key_Return);
    EXPECT_FALSE(folder->showHier());
}

TEST_F(OutlineEditingTest, aFieldTakesNoDrop) {
    open();
    ASSERT_TRUE(edit(Column::Name, 0));
    EXPECT_FALSE(field()->acceptDrops());
}

TEST_F(OutlineEditingTest, aNewBookmarkIsInSightWithItsNameBeingEdited) {
    for (int i = 0; i < 200; ++i)
        add(makeLink("more"));
    open();
    widget().scrollRowToVisible(150);
    controller->editing().newBookmark();
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), "Untitled");
    EXPECT_TRUE(widget().viewport()->rect().contains(field()->geometry()));
}

} // namespace
} // namespace tabulon
