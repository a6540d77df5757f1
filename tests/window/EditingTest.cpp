// New items, deleting, moving by a row, labels: the tree, the rows, the selection and the change count.
#include "base/Settings.h"
#include "tests/window/WindowFixture.h"

namespace tabulon {
namespace {

class EditingTest : public WindowTest {
protected:
    /// Returns the tree as "a(b c(d)) e", folders with parentheses.
    static std::string treeText(const Bookmark& parent) {
        std::string text;
        for (const Bookmark* child : *parent.getChildren()) {
            if (!text.empty())
                text += " ";
            text += child->isSeparator() ? "-" : child->itemName().string();
            if (child->isFolder())
                text += "(" + treeText(*child) + ")";
        }
        return text;
    }
    std::string tree() { return treeText(document.getMaster()); }
    /// Builds and opens the tree of such a text. Small letters are links, capital letters are expanded
    /// folders. Collapsed folders have an underscore before the letter.
    void build(const std::string& text) {
        std::vector<Bookmark*> parents{&document.getMaster()};
        bool collapsed = false;
        for (const char c : text) {
            if (c == '_') {
                collapsed = true;
            } else if (c == ')') {
                parents.pop_back();
            } else if (c == '-') {
                add(makeSeparator(), parents.back());
            } else if (c >= 'A' && c <= 'Z') {
                parents.push_back(
                    named_[c] = &add(makeFolder(std::string(1, c).c_str(), !collapsed), parents.back()));
                collapsed = false;
            } else if (c >= 'a' && c <= 'z') {
                named_[c] = &add(makeLink(std::string(1, c).c_str()), parents.back());
            }
        }
        open();
    }
    Bookmark& item(char name) { return *named_.at(name); }
    void select(const std::string& names) {
        std::vector<Bookmark*> items;
        for (const char name : names)
            items.push_back(&item(name));
        outline().clickOn(items);
    }
    /// Returns the names of the selected rows.
    std::string selection() {
        std::string names;
        for (const Bookmark* row : outline().rows)
            if (outline().selected.contains(const_cast<Bookmark*>(row)))
                names += row->itemName().string();
        return names;
    }
    long changes() { return document.changeCount(); }
    void expectNoSelectionAlert(const char* informativeKey) {
        ASSERT_EQ(alerts.shown.size(), 1u);
        EXPECT_EQ(alerts.shown[0].style, AlertStyle::Warning);
        EXPECT_EQ(alerts.shown[0].message, base.texts.text("NoSelection"));
        EXPECT_EQ(alerts.shown[0].informative, base.texts.text(informativeKey));
        ASSERT_EQ(alerts.shown[0].buttons.size(), 1u);
        EXPECT_EQ(alerts.shown[0].buttons[0].title, "OK");
        EXPECT_EQ(alerts.shown[0].document, &document);
        EXPECT_EQ(changes(), 0);
    }

    std::map<char, Bookmark*> named_;
};

TEST_F(EditingTest, withNothingSelectedANewBookmarkIsTheFirstAndItsNameIsEdited) {
    build("aB(c)");
    controller->editing().newBookmark();
    EXPECT_EQ(tree(), "Untitled a B(c)");
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"Untitled", "a", "B", "c"}));
    Bookmark& made = *document.getMaster().getChild();
    EXPECT_EQ(made.itemURL().view(), "https://");
    EXPECT_EQ(made.getParent(), &document.getMaster());
    EXPECT_EQ(made.getDocument(), &document);
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{&made});
    ASSERT_TRUE(outline().edited);
    EXPECT_EQ(*outline().edited, std::pair(Column::Name, &made));
    EXPECT_EQ(changes(), 1);
}

TEST_F(EditingTest, inAnEmptyDocumentToo) {
    open();
    EXPECT_TRUE(window->empty);
    controller->editing().newFolder();
    EXPECT_EQ(tree(), "Untitled Folder()");
    EXPECT_FALSE(window->empty);
    EXPECT_TRUE(outline().edited);
}

TEST_F(EditingTest, besideACollapsedFolderInsideAnExpandedOneBehindALink) {
    build("_A(b)C(d)e");
    select("A");
    controller->editing().newBookmark();
    EXPECT_EQ(tree(), "A(b) Untitled C(d) e");
    select("C");
    controller->editing().newFolder();
    EXPECT_EQ(tree(), "A(b) Untitled C(Untitled Folder() d) e");
    select("e");
    controller->editing().insertSeparator();
    EXPECT_EQ(tree(), "A(b) Untitled C(Untitled Folder() d) e -");
    EXPECT_EQ(changes(), 3);
}

TEST_F(EditingTest, aSeparatorIsNotEdited) {
    build("a");
    select("a");
    controller->editing().insertSeparator();
    EXPECT_FALSE(outline().edited);
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"a", "—"}));
}

TEST_F(EditingTest, anItemLandsBehindTheWholeSubtreeOfAnExpandedFolderBeforeIt) {
    build("A(B(c)d)e");
    select("d");
    controller->editing().newBookmark();
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"A", "B", "c", "d", "Untitled", "e"}));
    EXPECT_EQ(tree(), "A(B(c) d Untitled) e");
}

TEST_F(EditingTest, addBookmarkNeedsAFolderAndExpandsIt) {
    build("_A(b)c");
    controller->editing().addBookmark();
    select("c");
    controller->editing().addBookmark();
    EXPECT_EQ(tree(), "A(b) c");
    EXPECT_EQ(changes(), 0);
    EXPECT_TRUE(alerts.shown.empty());
    select("A");
    setValue(base.defaults, settings::kRememberDesktop, false);
    controller->editing().addBookmark();
    EXPECT_EQ(tree(), "A(Untitled b) c");
    EXPECT_TRUE(item('A').showHier());
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"A", "Untitled", "b", "c"}));
    EXPECT_EQ(changes(), 1);
}

TEST_F(EditingTest, deleteTakesEveryKindAndASelectedFolderWithSelectedItemsInIt) {
    build("aB(cD(e))-f");
    select("acDBe");
    controller->editing().deleteSelection();
    EXPECT_EQ(tree(), "- f");
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"—", "f"}));
    EXPECT_EQ(selection(), "");
    EXPECT_EQ(changes(), 1);
}

TEST_F(EditingTest, deletingTheLastItemShowsTheEmptyState) {
    build("a");
    select("a");
    controller->editing().deleteSelection();
    EXPECT_TRUE(window->empty);
    EXPECT_FALSE(document.getMaster().hasChildren());
}

TEST_F(EditingTest, deleteWithoutASelectionAlerts) {
    build("a");
    controller->editing().deleteSelection();
    expectNoSelectionAlert("PleaseSelect");
}

TEST_F(EditingTest, deletingManyRowsIsTheSameAsDeletingFew) {
    open();
    std::vector<Bookmark*> kept;
    for (int i = 0; i < 1000; ++i) {
        const Ref<Bookmark> folder = makeFolder("folder");
        add(folder);
        Bookmark& link = add(makeLink("link"), folder.get());
        if (i % 3 == 0)
            kept.push_back(folder.get());
        else
            named_['z'] = &link;
    }
    open();
    std::vector<Bookmark*> others = outline().rows;
    std::erase_if(others, [&](Bookmark* row) { return std::ranges::find(kept, row) != kept.end(); });
    outline().clickOn(others);
    controller->editing().deleteSelection();
    ASSERT_EQ(document.getMaster().getChildren()->size(), kept.size());
    for (const Bookmark* folder : *document.getMaster().getChildren())
        EXPECT_FALSE(folder->hasChildren());
    EXPECT_EQ(outline().rows.size(), kept.size());
    EXPECT_TRUE(outline().rowsAreRight());
    EXPECT_EQ(changes(), 1);
}

TEST_F(EditingTest, moveUpBeepsOnTheFirstRowAndForSeveralRows) {
    build("ab");
    select("a");
    controller->editing().moveUp();
    select("ab");
    controller->editing().moveUp();
    EXPECT_EQ(beeper.beeps, 2);
    EXPECT_EQ(changes(), 0);
    select("");
    controller->editing().moveUp();
    expectNoSelectionAlert("PleaseSelect");
}

TEST_F(EditingTest, moveUpGoesAboveTheRowBefore) {
    build("abc");
    select("c");
    controller->editing().moveUp();
    EXPECT_EQ(tree(), "a c b");
    EXPECT_EQ(selection(), "c");
    controller->editing().moveUp();
    EXPECT_EQ(tree(), "c a b");
    EXPECT_EQ(changes(), 2);
}

TEST_F(EditingTest, moveUpTakesTheOnlyChildOfTheFirstFolderOutInFrontOfIt) {
    build("A(b)");
    select("b");
    controller->editing().moveUp();
    EXPECT_EQ(tree(), "b A()");
    EXPECT_EQ(item('b').getParent(), &document.getMaster());
}

TEST_F(EditingTest, moveUpTakesTheFirstChildOutOfItsFolder) {
    build("aB(cd)");
    select("c");
    controller->editing().moveUp();
    EXPECT_EQ(tree(), "a c B(d)");
}

TEST_F(EditingTest, moveUpGoesIntoAFolderBeforeItsLastChild) {
    build("A(bc)d");
    select("d");
    controller->editing().moveUp();
    EXPECT_EQ(tree(), "A(b d c)");
    EXPECT_EQ(item('d').getParent(), &item('A'));
}

TEST_F(EditingTest, moveUpUnderAnEmptyExpandedFolderGoesInFrontOfIt) {
    build("aB()c");
    select("c");
    controller->editing().moveUp();
    EXPECT_EQ(tree(), "a c B()");
}

TEST_F(EditingTest, aMovedFolderKeepsItsRowsAndItsDates) {
    build("aB(c)d");
    item('B').setItemDateModified(Date::fromReferenceSeconds(7));
    select("B");
    controller->editing().moveUp();
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"B", "c", "a", "d"}));
    EXPECT_EQ(item('B').itemDateModified().referenceSeconds(), 7);
}

TEST_F(EditingTest, moveDownBeepsOnTheLastRowAndForSeveralRows) {
    build("ab");
    select("b");
    controller->editing().moveDown();
    select("ab");
    controller->editing().moveDown();
    EXPECT_EQ(beeper.beeps, 2);
    EXPECT_EQ(tree(), "a b");
    select("");
    controller->editing().moveDown();
    expectNoSelectionAlert("PleaseSelect");
}

TEST_F(EditingTest, moveDownGoesBehindTheRowAfter) {
    build("abc");
    select("a");
    controller->editing().moveDown();
    EXPECT_EQ(tree(), "b a c");
    EXPECT_EQ(selection(), "a");
    EXPECT_EQ(changes(), 1);
}

TEST_F(EditingTest, moveDownTakesTheLastChildBehindTheNextRow) {
    build("A(bc)de");
    select("c");
    controller->editing().moveDown();
    EXPECT_EQ(tree(), "A(b) d c e");
}

TEST_F(EditingTest, moveDownGoesIntoAnExpandedFolderThatFollows) {
    build("A(b)C(d)");
    select("b");
    controller->editing().moveDown();
    EXPECT_EQ(tree(), "A() C(b d)");
}

TEST_F(EditingTest, moveDownPassesTheFolderItIs) {
    build("A(b)cd");
    select("A");
    controller->editing().moveDown();
    EXPECT_EQ(tree(), "c A(b) d");
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"c", "A", "b", "d"}));
}

TEST_F(EditingTest, anExpandedFolderWhoseRowsAreTheLastIsGoneWhenItIsMovedDown) {
    build("aB(c)");
    select("B");
    controller->editing().moveDown();
    EXPECT_EQ(tree(), "a");
    EXPECT_EQ(beeper.beeps, 0);
    EXPECT_EQ(changes(), 1);
}

TEST_F(EditingTest, aCollapsedFolderInTheLastRowBeeps) {
    build("a_B(c)");
    select("B");
    controller->editing().moveDown();
    EXPECT_EQ(tree(), "a B(c)");
    EXPECT_EQ(beeper.beeps, 1);
}

TEST_F(EditingTest, aLabelSkipsSeparatorsAndThoseThatHaveIt) {
    build("ab-C(d)");
    item('b').setLabel(3);
    const Date before = item('a').itemDateModified();
    outline().selectAll();
    MenuItem sender{.action = "labelBookmark:", .tag = 3};
    ASSERT_TRUE(controller->actions().validateMenuItem(sender));
    controller->actions().perform(sender);
    for (const char name : {'a', 'b', 'C', 'd'})
        EXPECT_EQ(item(name).getLabel(), 3) << name;
    EXPECT_EQ(document.getMaster().getChildren()->at(2)->getLabel(), 0);
    EXPECT_EQ(changes(), 3) << "once for each item that changed";
    EXPECT_EQ(outline().reloaded, (std::vector<RowRange>{{0, 1}, {3, 2}}));
    EXPECT_EQ(item('a').itemDateModified(), before);
}

TEST_F(EditingTest, aClickedRowOutsideTheSelectionIsActedOnAlone) {
    build("abc");
    select("ab");
    controller->outline().setClickedRow(2);
    controller->editing().labelBookmark(5);
    EXPECT_EQ(item('c').getLabel(), 5);
    EXPECT_EQ(item('a').getLabel(), 0);
    controller->outline().setClickedRow(1);
    controller->editing().labelBookmark(6);
    EXPECT_EQ(item('a').getLabel(), 6);
    EXPECT_EQ(item('b').getLabel(), 6);
    EXPECT_EQ(item('c').getLabel(), 5);
}

TEST_F(EditingTest, whatNeedsASelectionIsDisabledWithoutOne) {
    build("aB(c)");
    const auto enabled = [this](const char* action) {
        return controller->actions().validateMenuItem(MenuItem{.action = action});
    };
    for (const char* action : {"editBookmark:", "delete:", "labelBookmark:", "addBookmark:"})
        EXPECT_FALSE(enabled(action)) << action;
    for (const char* action : {"newBookmark:", "newFolder:", "insertSeparator:", "moveUp:", "moveDown:"})
        EXPECT_TRUE(enabled(action)) << action;
    select("a");
    for (const char* action : {"editBookmark:", "delete:", "labelBookmark:"})
        EXPECT_TRUE(enabled(action)) << action;
    EXPECT_FALSE(enabled("addBookmark:"));
    select("B");
    EXPECT_TRUE(enabled("addBookmark:"));
    select("Bc");
    EXPECT_FALSE(enabled("addBookmark:"));
}

} // namespace
} // namespace tabulon
