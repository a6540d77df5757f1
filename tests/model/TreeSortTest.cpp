// Tests the sorting of a tree: folders first, every key, both directions, missing values, equal keys, depth.
#include "model/TreeSort.h"

#include "tests/model/TreeText.h"
#include "text/Collation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace tabulon {
namespace {

using test::LetterTree;

class TreeSortTest : public testing::Test {
protected:
    void sort(LetterTree& tree, SortKey key, SortDirection direction = SortDirection::Ascending) {
        sortFolder(*tree.root, key, direction, collation);
    }
    static Date date(double seconds) { return Date::fromReferenceSeconds(seconds); }

    const Collation collation{"en_US"};
};

TEST_F(TreeSortTest, foldersComeFirstAndCaseDoesNotCount) {
    LetterTree tree("bZ()xA()");
    tree['x'].setItemName("A");
    tree['A'].setItemName("a");
    sort(tree, SortKey::Name);
    EXPECT_EQ(tree.text(), "a() Z() A b");
    sort(tree, SortKey::Name, SortDirection::Descending);
    EXPECT_EQ(tree.text(), "Z() a() b A");
}

TEST_F(TreeSortTest, everyLevelIsSortedFromTheFolderDown) {
    LetterTree tree("dB(cA(zy)b)a");
    sort(tree, SortKey::Name);
    EXPECT_EQ(tree.text(), "B(A(y z) b c) a d");
    LetterTree part("dB(cA(zy)b)a");
    sortFolder(part['B'], SortKey::Name, SortDirection::Ascending, collation);
    EXPECT_EQ(part.text(), "d B(A(y z) b c) a") << "what is around the folder stays";
    for (Bookmark* child : *part['B'].getChildren())
        EXPECT_EQ(child->getParent(), &part['B']);
}

TEST_F(TreeSortTest, whatIsBelowALinkStays) {
    LetterTree tree("ba");
    tree['b'].addChild(LetterTree("zy").root);
    sort(tree, SortKey::Name);
    EXPECT_EQ(tree.text(), "a b(Master(z y))");
}

TEST_F(TreeSortTest, anEmptyFolderAndALinkAreLeftAlone) {
    LetterTree tree("B()a");
    sortFolder(tree['B'], SortKey::Name, SortDirection::Ascending, collation);
    sortFolder(tree['a'], SortKey::Name, SortDirection::Ascending, collation);
    EXPECT_EQ(tree.text(), "B() a");
    EXPECT_EQ(tree['a'].getChildren(), nullptr);
}

TEST_F(TreeSortTest, eachTextHasItsKey) {
    LetterTree tree("abc");
    tree['a'].setItemURL("z");
    tree['b'].setItemURL("X");
    tree['c'].setItemURL("y");
    tree['a'].setItemTags("2");
    tree['b'].setItemTags("3");
    tree['c'].setItemTags("1");
    sort(tree, SortKey::URL);
    EXPECT_EQ(tree.text(), "b c a");
    sort(tree, SortKey::Tags);
    EXPECT_EQ(tree.text(), "c a b");
    sort(tree, SortKey::Name);
    EXPECT_EQ(tree.text(), "a b c");
}

TEST_F(TreeSortTest, eachDateHasItsKey) {
    LetterTree tree("abc");
    tree['a'].setItemDateAdded(date(3));
    tree['b'].setItemDateAdded(date(-2));
    tree['c'].setItemDateAdded(date(-1e18));
    tree['a'].setItemDateModified(date(1));
    tree['b'].setItemDateModified(date(3));
    tree['c'].setItemDateModified(date(2));
    tree['a'].setItemLastOpened(date(2));
    tree['b'].setItemLastOpened(date(1));
    tree['c'].setItemLastOpened(date(0.5));
    sort(tree, SortKey::DateAdded);
    EXPECT_EQ(tree.text(), "c b a");
    sort(tree, SortKey::DateModified);
    EXPECT_EQ(tree.text(), "a c b");
    sort(tree, SortKey::DateLastOpened);
    EXPECT_EQ(tree.text(), "c b a");
    sort(tree, SortKey::DateAdded, SortDirection::Descending);
    EXPECT_EQ(tree.text(), "a b c");
}

TEST_F(TreeSortTest, missingValuesComeLastAndInDescendingOrderFirst) {
    LetterTree tree("abcd");
    tree['b'].setItemURL("u");
    tree['d'].setItemURL("");
    tree['c'].setItemDateAdded(date(1));
    sort(tree, SortKey::URL);
    EXPECT_EQ(tree.text(), "d b a c") << "an empty text is not a missing one";
    sort(tree, SortKey::URL, SortDirection::Descending);
    EXPECT_EQ(tree.text(), "a c b d");
    sort(tree, SortKey::DateAdded);
    EXPECT_EQ(tree.text(), "c a b d");
    sort(tree, SortKey::DateAdded, SortDirection::Descending);
    EXPECT_EQ(tree.text(), "a b d c");
}

TEST_F(TreeSortTest, datesWithoutEndAndWithoutNumberHaveTheirPlaces) {
    LetterTree tree("abcde");
    tree['a'].setItemDateAdded(date(std::nan("")));
    tree['b'].setItemDateAdded(date(std::numeric_limits<double>::infinity()));
    tree['c'].setItemDateAdded(date(0.0));
    tree['d'].setItemDateAdded(date(-std::numeric_limits<double>::infinity()));
    tree['e'].setItemDateAdded(date(-0.0));
    sort(tree, SortKey::DateAdded);
    EXPECT_EQ(tree.text(), "d c e b a");
    sort(tree, SortKey::DateAdded, SortDirection::Descending);
    EXPECT_EQ(tree.text(), "a b c e d");
}

TEST_F(TreeSortTest, equalKeysKeepTheirOrderInEitherDirection) {
    LetterTree tree("cabd");
    for (const char letter : {'a', 'b', 'c', 'd'})
        tree[letter].setItemURL(letter == 'a' ? "a" : "Same");
    sort(tree, SortKey::URL);
    EXPECT_EQ(tree.text(), "a c b d");
    sort(tree, SortKey::URL, SortDirection::Descending);
    EXPECT_EQ(tree.text(), "c b d a");
}

TEST_F(TreeSortTest, separatorsAreSortedLikeLinks) {
    LetterTree tree("b-a");
    sort(tree, SortKey::Name);
    EXPECT_EQ(tree.text(), "a b -");
    sort(tree, SortKey::Name, SortDirection::Descending);
    EXPECT_EQ(tree.text(), "- b a");
}

TEST_F(TreeSortTest, numbersOfCommandsNameTheKeys) {
    EXPECT_EQ(sortKeyForIndex(0), SortKey::Name);
    EXPECT_EQ(sortKeyForIndex(1), SortKey::URL);
    EXPECT_EQ(sortKeyForIndex(2), SortKey::Tags);
    EXPECT_EQ(sortKeyForIndex(3), SortKey::DateAdded);
    EXPECT_EQ(sortKeyForIndex(4), SortKey::DateModified);
    EXPECT_EQ(sortKeyForIndex(5), SortKey::DateLastOpened);
    for (const int other : {-1, 6, 1000})
        EXPECT_EQ(sortKeyForIndex(other), SortKey::NameExactly);
}

TEST_F(TreeSortTest, anyOtherKeyIsTheNameAsItIsWritten) {
    LetterTree tree("abcd");
    tree['a'].setItemName("b");
    tree['b'].setItemName("B");
    tree['c'].setItemName("\xC3\xA9");
    tree['d'].setItemName("a");
    sort(tree, SortKey::NameExactly);
    EXPECT_EQ(tree.text(), "B a b \xC3\xA9");
}

TEST_F(TreeSortTest, theLanguageDecides) {
    LetterTree tree("abc");
    tree['a'].setItemName("öl");
    tree['b'].setItemName("zebra");
    tree['c'].setItemName("oben");
    const Collation swedish("sv_SE");
    sortFolder(*tree.root, SortKey::Name, SortDirection::Ascending, swedish);
    EXPECT_EQ(tree.text(), "oben zebra öl");
    sort(tree, SortKey::Name);
    EXPECT_EQ(tree.text(), "oben öl zebra");
}

std::string randomName(std::mt19937& random) {
    std::string name;
    for (std::size_t length = random() % 14; length > 0; --length)
        name += std::vector<std::string>{"a", "A", "b", "é", "É", " ", "z", "ü", "日", "-"}[random() % 10];
    return name;
}

TEST_F(TreeSortTest, theOrderIsThatOfComparingTheTexts) {
    std::mt19937 random(8);
    for (int round = 0; round < 300; ++round) {
        const Ref<Bookmark> root = Bookmark::initEmpty();
        root->makeParent();
        std::vector<Ref<Bookmark>> expected;
        for (std::size_t count = random() % 40; count > 0; --count) {
            const Ref<Bookmark> node = Bookmark::initEmpty();
            if (random() % 6 != 0)
                node->setItemName(randomName(random));
            if (random() % 4 == 0)
                node->makeParent();
            root->addChild(node);
            expected.push_back(node);
        }
        const bool ascending = random() % 2 == 0;
        std::ranges::stable_sort(expected, [&](const Ref<Bookmark>& a, const Ref<Bookmark>& b) {
            if (a->isFolder() != b->isFolder())
                return a->isFolder();
            const Bookmark& lower = ascending ? *a : *b;
            const Bookmark& higher = ascending ? *b : *a;
            if (lower.itemName().isNull() || higher.itemName().isNull())
                return !lower.itemName().isNull() && higher.itemName().isNull();
            return collation.compareIgnoringCase(lower.itemName().view(), higher.itemName().view()) < 0;
        });
        sortFolder(*root, SortKey::Name, ascending ? SortDirection::Ascending : SortDirection::Descending,
                   collation);
        ASSERT_EQ(root->getChildren()->size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i)
            ASSERT_EQ(root->getChildren()->at(i), expected[i].get()) << round << " " << i;
    }
}

TEST_F(TreeSortTest, aDeepTreeIsSorted) {
    LetterTree tree("");
    Bookmark* folder = tree.root.get();
    for (int level = 0; level < 200000; ++level) {
        const Ref<Bookmark> link = Bookmark::initEmpty();
        const Ref<Bookmark> inner = Bookmark::initEmpty();
        inner->makeParent();
        folder->addChild(link);
        folder->addChild(inner);
        folder = inner.get();
    }
    sort(tree, SortKey::Name);
    EXPECT_TRUE(tree.root->getChild()->isFolder());
    EXPECT_TRUE(tree.root->getChild()->getChild()->isFolder());
}

} // namespace
} // namespace tabulon
