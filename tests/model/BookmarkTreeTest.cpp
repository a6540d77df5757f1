// Tests a node in its tree: children, ancestors, removal, documents, depth.
#include "model/Bookmark.h"
#include "model/Document.h"
#include "model/TreeWalk.h"
#include "platform/fake/FakeBaseServices.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

class TreeTest : public testing::Test {
protected:
    Ref<Bookmark> node(const char* name) {
        Ref<Bookmark> result = Bookmark::initEmpty();
        result->setItemName(name);
        return result;
    }
    Ref<Bookmark> folder(const char* name, std::vector<Ref<Bookmark>> children = {}) {
        Ref<Bookmark> result = node(name);
        result->makeParent();
        for (auto& child : children)
            result->addChild(child);
        return result;
    }
    static std::string names(const Bookmark& parent) {
        std::string all;
        if (const ChildList* list = parent.getChildren())
            for (const Bookmark* child : *list)
                all += child->itemName().view();
        return all;
    }
    FakeBaseServices fake;
};

TEST_F(TreeTest, addingAppendsOrPrependsAndSetsTheParent) {
    const Ref<Bookmark> top = folder("top", {node("b"), node("c")});
    top->addBegin(node("a"));
    top->insertChild(2, node("x"));
    EXPECT_EQ(names(*top), "abxc");
    for (const Bookmark* child : *top->getChildren())
        EXPECT_EQ(child->getParent(), top.get());
    EXPECT_EQ(top->getChild()->itemName(), Text("a"));
    EXPECT_EQ(top->getLast()->itemName(), Text("c"));
}

TEST_F(TreeTest, addingToANodeWithoutAListMakesOneAndNoFolder) {
    const Ref<Bookmark> link = node("l");
    link->addChild(node("a"));
    link->addBegin(node("b"));
    EXPECT_EQ(names(*link), "ba");
    EXPECT_FALSE(link->isFolder());
    EXPECT_TRUE(link->hasChildren());
    EXPECT_TRUE(link->childLess());
}

TEST_F(TreeTest, childQuestions) {
    EXPECT_TRUE(node("l")->childLess());
    EXPECT_FALSE(node("l")->hasChildren());
    EXPECT_TRUE(folder("f")->childLess());
    EXPECT_FALSE(folder("f", {node("x")})->childLess());
    EXPECT_EQ(node("l")->getChild(), nullptr);
    EXPECT_EQ(folder("f")->getLast(), nullptr);
}

TEST_F(TreeTest, removeLastDropsTheLastChildIfThereIsOne) {
    const Ref<Bookmark> top = folder("top", {node("a"), node("b")});
    top->removeLast();
    EXPECT_EQ(names(*top), "a");
    top->removeLast();
    top->removeLast();
    EXPECT_EQ(names(*top), "");
    node("l")->removeLast();
}

TEST_F(TreeTest, removeWithoutAParentLogs) {
    node("l")->remove(fake.log);
    EXPECT_EQ(fake.log.lines, std::vector<std::string>{"parent is nil"});
}

TEST_F(TreeTest, removeTakesEveryOccurrenceAndKeepsTheParentReference) {
    const Ref<Bookmark> a = node("a");
    const Ref<Bookmark> top = folder("top", {a, node("b"), a});
    EXPECT_EQ(names(*top), "aba");
    a->remove(fake.log);
    EXPECT_EQ(names(*top), "b");
    EXPECT_EQ(a->getParent(), top.get());
    EXPECT_TRUE(fake.log.lines.empty());
}

TEST_F(TreeTest, detachMeTakesTheFirstOccurrence) {
    const Ref<Bookmark> a = node("a");
    const Ref<Bookmark> top = folder("top", {node("x"), a, node("b"), a});
    a->detachMe();
    EXPECT_EQ(names(*top), "xba");
    EXPECT_EQ(a->getParent(), top.get());
    a->detachMe();
    EXPECT_EQ(names(*top), "xb");
    a->detachMe();
    EXPECT_EQ(names(*top), "xb");
}

TEST_F(TreeTest, setChildrenDoesNotTouchParents) {
    const Ref<Bookmark> a = node("a");
    const Ref<Bookmark> first = folder("first", {a, node("b")});
    const Ref<Bookmark> second = folder("second");
    second->setChildren({a, node("c")});
    EXPECT_EQ(a->getParent(), first.get());
    EXPECT_EQ(second->getLast()->getParent(), nullptr);
    EXPECT_EQ(names(*first), "ab");
    EXPECT_EQ(names(*second), "ac");
    a->detachMe();
    EXPECT_EQ(names(*first), "b");
    EXPECT_EQ(names(*second), "ac");
}

TEST_F(TreeTest, setChildrenReordersTheOwnOnes) {
    const Ref<Bookmark> a = node("a");
    const Ref<Bookmark> b = node("b");
    const Ref<Bookmark> top = folder("top", {a, b});
    top->setChildren({b, a});
    EXPECT_EQ(names(*top), "ba");
    EXPECT_EQ(b->nextBookmark(), a.get());
    EXPECT_EQ(a->nextBookmark(), nullptr);
    EXPECT_EQ(a->getParent(), top.get());
}

TEST_F(TreeTest, makeParentGivesAFreshListEachTime) {
    const Ref<Bookmark> top = folder("top", {node("a")});
    top->makeParent();
    EXPECT_TRUE(top->isFolder());
    EXPECT_EQ(names(*top), "");
    EXPECT_EQ(top->itemIcon(), ItemIcon::Folder);
}

TEST_F(TreeTest, nextBookmarkOfRootAndLastIsNull) {
    const Ref<Bookmark> top = folder("top", {node("a"), node("b")});
    EXPECT_EQ(top->nextBookmark(), nullptr);
    EXPECT_EQ(top->getChild()->nextBookmark(), top->getLast());
    EXPECT_EQ(top->getLast()->nextBookmark(), nullptr);
}

TEST_F(TreeTest, levelsAndAncestors) {
    const Ref<Bookmark> leaf = node("leaf");
    const Ref<Bookmark> inner = folder("inner", {leaf});
    const Ref<Bookmark> top = folder("top", {inner, node("other")});
    EXPECT_EQ(top->getLevel(), 0);
    EXPECT_EQ(inner->getLevel(), 1);
    EXPECT_EQ(leaf->getLevel(), 2);
    EXPECT_TRUE(top->offSpring(*leaf));
    EXPECT_TRUE(inner->offSpring(*inner));
    EXPECT_FALSE(leaf->offSpring(*inner));
    EXPECT_FALSE(inner->offSpring(*top->getLast()));
}

TEST_F(TreeTest, containsURLLooksAtDirectChildrenOnlyAndExactly) {
    const Ref<Bookmark> a = node("a");
    a->setItemURL("http://x/");
    const Ref<Bookmark> top = folder("top", {folder("inner", {a})});
    EXPECT_FALSE(top->containsURL(*a));
    EXPECT_TRUE(top->getChild()->containsURL(*a));
    const Ref<Bookmark> upper = node("b");
    upper->setItemURL("http://X/");
    EXPECT_FALSE(top->getChild()->containsURL(*upper));
    EXPECT_FALSE(top->containsURL(*node("no URL")));
}

TEST_F(TreeTest, setDocumentReachesThroughFoldersOnly) {
    Document document(fake.services());
    const Ref<Bookmark> below = node("below");
    const Ref<Bookmark> link = node("link");
    link->addChild(below);
    const Ref<Bookmark> leaf = node("leaf");
    Ref<Bookmark> top = folder("top", {folder("inner", {leaf}), link});
    top->setDocument(&document);
    EXPECT_EQ(leaf->getDocument(), &document);
    EXPECT_EQ(link->getDocument(), &document);
    EXPECT_EQ(below->getDocument(), nullptr);
    top->setDocument(nullptr);
    EXPECT_EQ(leaf->getDocument(), nullptr);
}

TEST_F(TreeTest, detachedSubtreeOutlivesItsTree) {
    Ref<Bookmark> leaf = node("leaf");
    {
        const Ref<Bookmark> top = folder("top", {folder("inner", {leaf})});
        EXPECT_NE(leaf->getParent(), nullptr);
    }
    EXPECT_EQ(leaf->getParent(), nullptr);
    EXPECT_EQ(leaf->nextBookmark(), nullptr);
    EXPECT_EQ(leaf->itemName(), Text("leaf"));
}

TEST_F(TreeTest, walkVisitsInDocumentOrderAndDescendsWhereAsked) {
    const Ref<Bookmark> top =
        folder("top", {node("a"), folder("B", {node("c"), folder("D", {node("e")})}), node("f")});
    std::string seen;
    std::string left;
    walkBelow(
        *top,
        [&](Bookmark& each) {
            seen += each.itemName().view();
            return each.itemName() != Text("D");
        },
        [&](Bookmark& each) { left += each.itemName().view(); });
    EXPECT_EQ(seen, "aBcDf");
    EXPECT_EQ(left, "B");
}

TEST_F(TreeTest, veryDeepTreesNeverOverflowTheStack) {
    constexpr int kDepth = 300000;
    Document document(fake.services());
    Ref<Bookmark> top = folder("top");
    Bookmark* deepest = top.get();
    for (int i = 0; i < kDepth; ++i) {
        Ref<Bookmark> child = folder("f");
        Bookmark* next = child.get();
        deepest->addChild(std::move(child));
        deepest = next;
    }
    top->setDocument(&document);
    EXPECT_EQ(deepest->getDocument(), &document);
    EXPECT_EQ(deepest->getLevel(), kDepth);
    EXPECT_TRUE(top->offSpring(*deepest));
    Ref<Bookmark> copy = deepCopy(*top);
    int depth = 0;
    for (const Bookmark* each = copy->getChild(); each; each = each->getChild())
        ++depth;
    EXPECT_EQ(depth, kDepth);
    copy = nullptr;
    top = nullptr;
}

TEST_F(TreeTest, aMillionSiblingsAreWalkedByNextBookmark) {
    constexpr int kCount = 1000000;
    const Ref<Bookmark> top = folder("top");
    for (int i = 0; i < kCount; ++i)
        top->addChild(Bookmark::initEmpty());
    int count = 0;
    for (const Bookmark* each = top->getChild(); each; each = each->nextBookmark())
        ++count;
    EXPECT_EQ(count, kCount);
}

} // namespace
} // namespace tabulon
