// The rows of an outline for trees of every shape.
#include "window/VisibleRows.h"

#include "platform/fake/FakeBaseServices.h"

#include <gtest/gtest.h>

#include <string>

namespace tabulon {
namespace {

class VisibleRowsTest : public testing::Test {
protected:
    Ref<Bookmark> folder(bool expanded) {
        Ref<Bookmark> node = Bookmark::init(base.now());
        node->makeParent();
        node->setShowHier(expanded);
        return node;
    }
    Ref<Bookmark> link() { return Bookmark::init(base.now()); }

    FakeBaseServices base;
    VisibleRows rows;
};

TEST_F(VisibleRowsTest, RootIsNoRow) {
    const Ref<Bookmark> root = folder(true);
    rows.show(root);
    EXPECT_EQ(rows.size(), 0u);
    EXPECT_FALSE(rows.rowOf(*root));
}

TEST_F(VisibleRowsTest, RootIsShownEvenWhenItsFlagSaysCollapsed) {
    const Ref<Bookmark> root = folder(false);
    root->addChild(link());
    rows.show(root);
    EXPECT_EQ(rows.size(), 1u);
}

TEST_F(VisibleRowsTest, CollapsedFoldersHideAllThatIsBelowThem) {
    const Ref<Bookmark> root = folder(true);
    const Ref<Bookmark> closed = folder(false);
    const Ref<Bookmark> inner = folder(true);
    inner->addChild(link());
    closed->addChild(inner);
    root->addChild(closed);
    const Ref<Bookmark> last = link();
    root->addChild(last);
    rows.show(root);
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(&rows.at(1), last.get());
    EXPECT_FALSE(rows.rowOf(*inner));
    EXPECT_EQ(shownCountBelow(*closed), 2u) << "what expanding would show";
}

TEST_F(VisibleRowsTest, ChildrenOfALinkAreNotShown) {
    const Ref<Bookmark> root = folder(true);
    const Ref<Bookmark> parent = link();
    parent->setShowHier(true);
    parent->addChild(link());
    root->addChild(parent);
    rows.show(root);
    EXPECT_EQ(rows.size(), 1u);
}

TEST_F(VisibleRowsTest, RowAndNodeFindEachOtherAmongMany) {
    const Ref<Bookmark> root = folder(true);
    for (int i = 0; i < 5000; ++i)
        root->addChild(link());
    rows.show(root);
    for (std::size_t row = 0; row < rows.size(); row += 37)
        EXPECT_EQ(rows.rowOf(rows.at(row)), row);
    rows.erase(100, 1000);
    EXPECT_EQ(rows.size(), 4000u);
    EXPECT_EQ(rows.rowOf(rows.at(3999)), 3999u);
}

TEST_F(VisibleRowsTest, TreeTwoHundredThousandDeepIsLaidOut) {
    const Ref<Bookmark> root = folder(true);
    Bookmark* innermost = root.get();
    for (int depth = 0; depth < 200000; ++depth) {
        const Ref<Bookmark> next = folder(true);
        innermost->addChild(next);
        innermost = next.get();
    }
    rows.show(root);
    EXPECT_EQ(rows.size(), 200000u);
    EXPECT_EQ(&rows.at(199999), innermost);
}

TEST_F(VisibleRowsTest, OldTreeStaysAliveUntilAnotherIsShown) {
    {
        const Ref<Bookmark> root = folder(true);
        const Ref<Bookmark> child = link();
        child->setItemName("kept");
        root->addChild(child);
        rows.show(root);
    }
    EXPECT_EQ(rows.at(0).itemName().view(), "kept");
    rows.show(folder(true));
    EXPECT_EQ(rows.size(), 0u);
}

} // namespace
} // namespace tabulon
