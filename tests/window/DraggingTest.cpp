// Drags from an outline and drops on one: the drops that are allowed, the place of insertion, and whether
// items are moved or copied.
#include "tests/window/WindowFixture.h"

namespace tabulon {
namespace {

class DraggingTest : public WindowTest {
protected:
    void drag(std::initializer_list<Bookmark*> items) {
        select(items);
        dragged = controller->dragging().beginDraggingSession();
    }
    void dragFromOutside(std::initializer_list<const char*> urls) {
        source = nullptr;
        for (const char* url : urls) {
            PasteboardItem item;
            item.set(kURLType, url);
            dragged.push_back(item);
        }
    }
    DragInfo info() { return {.source = source, .copies = copies, .items = dragged}; }
    DragOperation validate(Bookmark* item, std::optional<std::size_t> index) {
        return controller->dragging().validateDrop(info(), item, index);
    }
    /// Drops only if the drop was validated, as a view does. Returns whether the drop was accepted.
    bool drop(Bookmark* item, std::optional<std::size_t> index) {
        return validate(item, index) != DragOperation::None &&
               controller->dragging().acceptDrop(info(), item, index);
    }
    void open() {
        WindowTest::open();
        source = &controller->outline();
    }

    std::vector<PasteboardItem> dragged;
    const Outline* source = nullptr;
    bool copies = false;
};

using Names = std::vector<std::string>;
constexpr auto kOnItem = std::nullopt;

TEST_F(DraggingTest, severalRowsGoDownInTheirFolderAndKeepTheirOrder) {
    Bookmark& folder = add(makeFolder("f"));
    add(makeLink("1"), &folder);
    Bookmark& second = add(makeLink("2"), &folder);
    Bookmark& third = add(makeLink("3"), &folder);
    add(makeLink("4"), &folder);
    open();
    drag({&second, &third});
    EXPECT_TRUE(drop(&folder, 4));
    EXPECT_EQ(rowNames(), (Names{"f", "1", "4", "2", "3"}));
    EXPECT_EQ(&controller->outline().itemAtRow(3), &second) << "the node itself";
    EXPECT_EQ(document.changeCount(), 2) << "one change a node";
    EXPECT_EQ(outline().selectedRows(), (RowSet{{3, 2}})) << "what was dropped is selected";
}

TEST_F(DraggingTest, theyGoUpAsWell) {
    Bookmark& a = add(makeLink("a"));
    Bookmark& b = add(makeLink("b"));
    Bookmark& c = add(makeLink("c"));
    open();
    drag({&b, &c});
    EXPECT_TRUE(drop(nullptr, 0));
    EXPECT_EQ(rowNames(), (Names{"b", "c", "a"}));
    drag({&a, &b});
    EXPECT_TRUE(drop(nullptr, 1));
    EXPECT_EQ(rowNames(), (Names{"b", "a", "c"})) << "dropped where they stand already, about";
}

TEST_F(DraggingTest, ontoAFolderIsItsBeginningAndOntoTheGroundIsTheEnd) {
    Bookmark& a = add(makeLink("a"));
    Bookmark& b = add(makeLink("b"));
    Bookmark& folder = add(makeFolder("f"));
    add(makeLink("c"), &folder);
    open();
    drag({&a});
    EXPECT_TRUE(drop(&folder, kOnItem));
    EXPECT_EQ(rowNames(), (Names{"b", "f", "a", "c"}));
    drag({&b});
    EXPECT_TRUE(drop(nullptr, kOnItem));
    EXPECT_EQ(rowNames(), (Names{"f", "a", "c", "b"}));
}

TEST_F(DraggingTest, intoACollapsedFolderTheRowsAreGone) {
    Bookmark& a = add(makeLink("a"));
    Bookmark& folder = add(makeFolder("f", false));
    open();
    drag({&a});
    EXPECT_TRUE(drop(&folder, kOnItem));
    EXPECT_EQ(rowNames(), Names{"f"});
    EXPECT_EQ(folder.getChild(), &a);
    EXPECT_FALSE(folder.showHier());
}

TEST_F(DraggingTest, ontoABookmarkOrASeparatorIsRefused) {
    Bookmark& a = add(makeLink("a"));
    Bookmark& b = add(makeLink("b"));
    Bookmark& separator = add(makeSeparator());
    open();
    drag({&a});
    EXPECT_EQ(validate(&b, kOnItem), DragOperation::None);
    EXPECT_EQ(validate(&separator, kOnItem), DragOperation::None);
    EXPECT_EQ(controller->dragging().dragOperation(), DragOperation::None);
    EXPECT_FALSE(controller->dragging().acceptDrop(info(), &b, kOnItem));
    EXPECT_EQ(rowNames(), (Names{"a", "b", "—"}));
}

TEST_F(DraggingTest, anIndexInABookmarkMeansBehindIt) {
    Bookmark& a = add(makeLink("a"));
    Bookmark& folder = add(makeFolder("f"));
    Bookmark& b = add(makeLink("b"), &folder);
    add(makeLink("c"), &folder);
    open();
    drag({&a});
    EXPECT_TRUE(drop(&b, 0));
    EXPECT_EQ(rowNames(), (Names{"f", "b", "a", "c"}));
}

TEST_F(DraggingTest, aFolderDoesNotGoIntoItself) {
    Bookmark& link = add(makeLink("l"));
    Bookmark& outer = add(makeFolder("outer"));
    Bookmark& inner = add(makeFolder("inner"), &outer);
    Bookmark& deepest = add(makeFolder("deepest"), &inner);
    open();
    drag({&link, &outer});
    EXPECT_EQ(validate(&outer, kOnItem), DragOperation::None);
    EXPECT_EQ(validate(&inner, 0), DragOperation::None);
    EXPECT_EQ(validate(&deepest, kOnItem), DragOperation::None);
    EXPECT_EQ(validate(nullptr, 0), DragOperation::Move);
    copies = true;
    EXPECT_EQ(validate(&inner, 0), DragOperation::None) << "nor as a copy";
    EXPECT_EQ(validate(nullptr, 0), DragOperation::Copy);
}

TEST_F(DraggingTest, theOptionKeyMakesACopy) {
    Bookmark& folder = add(makeFolder("f"));
    Bookmark& link = add(makeLink("l"), &folder);
    link.setItemNote("note");
    open();
    drag({&folder});
    copies = true;
    EXPECT_TRUE(drop(nullptr, 1));
    EXPECT_EQ(rowNames(), (Names{"f", "l", "f", "l"}));
    EXPECT_EQ(controller->outline().itemAtRow(3).itemNote(), Text("note"));
    EXPECT_NE(&controller->outline().itemAtRow(3), &link);
    EXPECT_EQ(controller->outline().itemAtRow(3).getDocument(), &document);
}

TEST_F(DraggingTest, betweenTwoWindowsItIsACopy) {
    Bookmark& link = add(makeLink("l"));
    open();
    Document second{base.services()};
    ViewController other(second, platform(), shared);
    MemoryWindow otherWindow(other);
    other.setWindow(&otherWindow);
    drag({&link});
    EXPECT_FALSE(other.dragging().dragIsLocalReorder(info()));
    EXPECT_EQ(other.dragging().validateDrop(info(), nullptr, kOnItem), DragOperation::Copy);
    EXPECT_TRUE(other.dragging().acceptDrop(info(), nullptr, kOnItem));
    ASSERT_EQ(other.outline().numberOfRows(), 1u);
    EXPECT_NE(&other.outline().itemAtRow(0), &link);
    EXPECT_EQ(other.outline().itemAtRow(0).getDocument(), &second);
    EXPECT_EQ(rowNames(), Names{"l"});
    EXPECT_EQ(link.getDocument(), &document);
    EXPECT_EQ(document.changeCount(), 0);
    EXPECT_EQ(second.changeCount(), 1);
}

TEST_F(DraggingTest, linksOfOtherProgramsAreInsertedAndWhatIsNothingIsSkipped) {
    Bookmark& folder = add(makeFolder("f"));
    open();
    dragFromOutside({"https://a/", "https://b/"});
    dragged.insert(dragged.begin() + 1, PasteboardItem());
    EXPECT_EQ(validate(&folder, 0), DragOperation::Copy);
    EXPECT_TRUE(drop(&folder, 0));
    ASSERT_EQ(rowNames(), (Names{"f", "Untitled", "Untitled"}));
    EXPECT_EQ(controller->outline().itemAtRow(1).itemURL(), Text("https://a/"));
    EXPECT_EQ(controller->outline().itemAtRow(2).itemURL(), Text("https://b/"));
}

TEST_F(DraggingTest, manyRowsMoveAsFewDo) {
    Bookmark& first = add(makeFolder("first"));
    Bookmark& second = add(makeFolder("second"));
    Names expected{"first", "second"};
    for (int i = 0; i < 300; ++i) {
        add(makeLink(std::to_string(i).c_str()), &first);
        expected.push_back(std::to_string(i));
    }
    add(makeLink("last"), &second);
    expected.push_back("last");
    open();
    outline().selectRows({{1, 300}});
    dragged = controller->dragging().beginDraggingSession();
    const int reloads = outline().reloads;
    EXPECT_TRUE(drop(&second, 0));
    EXPECT_EQ(rowNames(), expected);
    EXPECT_EQ(outline().reloads, reloads + 1);
    EXPECT_EQ(outline().selectedRows(), (RowSet{{2, 300}}));
    EXPECT_EQ(document.changeCount(), 300);
}

TEST_F(DraggingTest, copiesInACollapsedFolderLeaveTheSelectionHoweverManyTheyAre) {
    Bookmark& a = add(makeLink("a"));
    Bookmark& folder = add(makeFolder("f", false));
    Bookmark& b = add(makeLink("b"));
    open();
    for (const int copiesOfEach : {1, 40}) {
        select({&a, &b});
        dragged.clear();
        for (int i = 0; i < copiesOfEach; ++i)
            dragFromOutside({"https://x/", "https://y/"});
        EXPECT_TRUE(drop(&folder, kOnItem));
        EXPECT_EQ(outline().selectedRows(), (RowSet{{0, 1}, {2, 1}})) << copiesOfEach;
    }
    EXPECT_EQ(folder.getChildren()->size(), 82u);
}

TEST_F(DraggingTest, aFolderAndWhatIsInItBothMove) {
    Bookmark& folder = add(makeFolder("f"));
    Bookmark& inside = add(makeLink("inside"), &folder);
    add(makeLink("stays"), &folder);
    add(makeLink("end"));
    open();
    drag({&folder, &inside});
    EXPECT_TRUE(drop(nullptr, 2));
    EXPECT_EQ(rowNames(), (Names{"end", "f", "stays", "inside"}));
}

TEST_F(DraggingTest, whatLeftTheTreeDuringTheDragIsNotMoved) {
    Bookmark& a = add(makeLink("a"));
    Bookmark& b = add(makeLink("b"));
    open();
    drag({&a, &b});
    EXPECT_EQ(validate(nullptr, kOnItem), DragOperation::Move);
    select({&b});
    controller->editing().deleteSelection();
    EXPECT_TRUE(controller->dragging().acceptDrop(info(), nullptr, kOnItem));
    EXPECT_EQ(rowNames(), Names{"a"});
}

TEST_F(DraggingTest, aTreeThatChangedAfterTheValidationStaysATree) {
    Bookmark& folder = add(makeFolder("f"));
    Bookmark& target = add(makeFolder("target"));
    open();
    drag({&folder});
    EXPECT_EQ(validate(&target, kOnItem), DragOperation::Move);
    const Ref<Bookmark> held(&target);
    target.detachMe();
    folder.addChild(held);
    EXPECT_TRUE(controller->dragging().acceptDrop(info(), &target, kOnItem));
    EXPECT_EQ(folder.getParent(), &document.getMaster());
    EXPECT_FALSE(target.hasChildren());
}

TEST_F(DraggingTest, endingInTheTrashRemovesNothing) {
    Bookmark& a = add(makeLink("a"));
    open();
    drag({&a});
    controller->dragging().draggingSessionEnded(DragOperation::Delete);
    EXPECT_EQ(controller->dragging().dragOperation(), DragOperation::Delete);
    EXPECT_EQ(rowNames(), Names{"a"});
    dragged.clear();
    dragFromOutside({"https://b/"});
    EXPECT_TRUE(controller->dragging().acceptDrop(info(), nullptr, kOnItem));
    EXPECT_EQ(rowNames(), Names{"a"}) << "nothing is inserted until a drop is validated anew";
    EXPECT_TRUE(drop(nullptr, kOnItem));
    EXPECT_EQ(rowNames().size(), 2u);
}

TEST_F(DraggingTest, thePartsOfARowAreBeforeOnAndBehindIt) {
    Bookmark& folder = add(makeFolder("f", false));
    Bookmark& link = add(makeLink("l"));
    open();
    EXPECT_EQ(controller->dragging().dropSpot(0, 0.1, 0), (DropSpot{.childIndex = 0, .row = 0}));
    EXPECT_EQ(controller->dragging().dropSpot(0, 0.5, 0), (DropSpot{.item = &folder, .row = 0}));
    EXPECT_EQ(controller->dragging().dropSpot(0, 0.9, 0), (DropSpot{.childIndex = 1, .row = 1}));
    EXPECT_EQ(controller->dragging().dropSpot(1, 0.4, 0), (DropSpot{.childIndex = 1, .row = 1}));
    EXPECT_EQ(controller->dragging().dropSpot(1, 0.6, 0), (DropSpot{.childIndex = 2, .row = 2}));
    EXPECT_EQ(controller->dragging().dropSpot(std::nullopt, 0, 0), DropSpot{});
    EXPECT_EQ(rowNames().size(), 2u) << link.itemName().view();
}

TEST_F(DraggingTest, behindAnExpandedFolderIsItsBeginning) {
    Bookmark& folder = add(makeFolder("f"));
    add(makeLink("l"), &folder);
    open();
    EXPECT_EQ(controller->dragging().dropSpot(0, 0.9, 0),
              (DropSpot{.item = &folder, .childIndex = 0, .row = 1, .level = 1}));
}

TEST_F(DraggingTest, behindTheLastChildThePointersPlaceDecidesTheFolder) {
    Bookmark& outer = add(makeFolder("outer"));
    Bookmark& inner = add(makeFolder("inner"), &outer);
    add(makeLink("last"), &inner);
    open();
    EXPECT_EQ(controller->dragging().dropSpot(2, 0.9, 5),
              (DropSpot{.item = &inner, .childIndex = 1, .row = 3, .level = 2}));
    EXPECT_EQ(controller->dragging().dropSpot(2, 0.9, 1),
              (DropSpot{.item = &outer, .childIndex = 1, .row = 3, .level = 1}));
    EXPECT_EQ(controller->dragging().dropSpot(2, 0.9, -1), (DropSpot{.childIndex = 1, .row = 3}));
    add(makeLink("behind"), &inner);
    open();
    EXPECT_EQ(controller->dragging().dropSpot(2, 0.9, 0).level, 2) << "only the last child ends its folder";
}

TEST_F(DraggingTest, onlyLinksAndTextsAreOfInterest) {
    PasteboardItem item;
    EXPECT_FALSE(OutlineDragging::isDragOfInterest({item}));
    item.set(kHTMLType, "x");
    EXPECT_FALSE(OutlineDragging::isDragOfInterest({item}));
    for (const auto type : {kItemType, kStringType, kFileURLType, kURLType}) {
        PasteboardItem other;
        other.set(type, "x");
        EXPECT_TRUE(OutlineDragging::isDragOfInterest({item, other})) << type;
    }
}

TEST_F(DraggingTest, recordsEndWithTheirDrag) {
    Bookmark& a = add(makeLink("a"));
    open();
    drag({&a});
    const std::string record = *dragged[0].get(kItemType);
    EXPECT_EQ(shared.records.find(record).get(), &a);
    controller->dragging().draggingSessionEnded(DragOperation::Move);
    EXPECT_FALSE(shared.records.find(record));
}

} // namespace
} // namespace tabulon
