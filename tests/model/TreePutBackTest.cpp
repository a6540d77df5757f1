// Tests the restoration of chosen differences.
#include "model/TreePutBack.h"

#include "tests/model/TreeText.h"

#include <gmock/gmock.h>

#include <random>

namespace tabulon {
namespace {

using test::LetterTree;

// Restores the differences of the nodes whose names in the tree before are in `names`; "*" restores all.
// Returns `after` in letter notation.
std::string afterPuttingBack(const LetterTree& before, const LetterTree& after,
                             const std::string& names = "*") {
    const TreeComparison comparison(*before.root, *after.root);
    std::vector<TreeDifference> chosen;
    for (const TreeDifference& difference : comparison.differences())
        if (difference.before &&
            (names == "*" || names.find(difference.before->itemName().string()) != std::string::npos))
            chosen.push_back(difference);
    putBack(chosen, comparison, *before.root, *after.root);
    return after.text();
}

TEST(TreePutBackTest, aRemovedItemComesBackAfterTheOneThatWasBeforeIt) {
    EXPECT_EQ(afterPuttingBack(LetterTree("a b c"), LetterTree("a c")), "a b c");
    EXPECT_EQ(afterPuttingBack(LetterTree("a b c"), LetterTree("x a y c z")), "x a b y c z");
    EXPECT_EQ(afterPuttingBack(LetterTree("a b c"), LetterTree("c b")), "a b c") << "and the moved one, too";
}

TEST(TreePutBackTest, theItemBeforeItMayBeGoneAsWell) {
    EXPECT_EQ(afterPuttingBack(LetterTree("a b c d"), LetterTree("a d"), "c"), "a c d");
    EXPECT_EQ(afterPuttingBack(LetterTree("a b c d"), LetterTree("d"), "c"), "c d");
}

TEST(TreePutBackTest, aRemovedFolderComesBackWithWhatWasRemovedBelowIt) {
    EXPECT_EQ(afterPuttingBack(LetterTree("a B(c D(e) - f)"), LetterTree("a"), "B"), "a B(c D(e) - f)");
    EXPECT_EQ(afterPuttingBack(LetterTree("B(c d)"), LetterTree("c"), "B"), "B(d) c");
}

TEST(TreePutBackTest, anItemOfAFolderThatIsGoneGoesToTheFolderAbove) {
    EXPECT_EQ(afterPuttingBack(LetterTree("A(x B(c d))"), LetterTree("A(x)"), "d"), "A(d x)");
}

TEST(TreePutBackTest, onlyWhatWasChosenIsPutBack) {
    EXPECT_EQ(afterPuttingBack(LetterTree("a b c d"), LetterTree("d"), "ac"), "a c d");
}

TEST(TreePutBackTest, aMovedItemGoesBackToItsFolder) {
    EXPECT_EQ(afterPuttingBack(LetterTree("A(b c) D()"), LetterTree("A(b) D(c)")), "A(b c) D()");
    EXPECT_EQ(afterPuttingBack(LetterTree("A(B(C()))"), LetterTree("C(B(A()))")), "A(B(C()))");
}

TEST(TreePutBackTest, aFolderIsNotMovedIntoItself) {
    // Only "A" is restored to its place below "B", but "B" is below "A" in the tree after.
    EXPECT_EQ(afterPuttingBack(LetterTree("B(A())"), LetterTree("A(B())"), "A"), "A(B())");
}

TEST(TreePutBackTest, textsLabelAndLockAreAsTheyWere) {
    LetterTree before("a");
    LetterTree after("a");
    before['a'].setItemURL("https://1.example/");
    before['a'].setItemNote("note");
    before['a'].setLabel(4);
    before['a'].setItemLocked(true);
    after['a'].setItemURL("https://2.example/");
    const TreeComparison comparison(*before.root, *after.root);
    EXPECT_EQ(putBack(comparison.differences(), comparison, *before.root, *after.root), 1u);
    EXPECT_TRUE(after['a'].isIdentical(before['a']));
}

TEST(TreePutBackTest, theIconIsThatOfTheTypeOfBefore) {
    LetterTree before("a");
    LetterTree after("a");
    before['a'].setItemURL("mailto:a@b.example");
    after['a'].setItemURL("https://2.example/");
    before['a'].determineType();
    after['a'].determineType();
    const TreeComparison comparison(*before.root, *after.root);
    putBack(comparison.differences(), comparison, *before.root, *after.root);
    EXPECT_EQ(after['a'].getType(), before['a'].getType());
    EXPECT_EQ(after['a'].itemIcon(), before['a'].itemIcon());
}

TEST(TreePutBackTest, whatWasAddedStays) {
    EXPECT_EQ(afterPuttingBack(LetterTree("a"), LetterTree("a b C(d)")), "a b C(d)");
}

// Restoring all differences of a tree from which only nodes were removed returns the tree before.
TEST(TreePutBackTest, afterRandomLossesEverythingComesBack) {
    std::mt19937 random(11);
    for (int round = 0; round < 300; ++round) {
        std::string text;
        int open = 0;
        for (char letter = 'a'; letter <= 'x'; ++letter) {
            if (random() % 4 == 0) {
                text += static_cast<char>(letter - 'a' + 'A');
                text += '(';
                ++open;
            } else {
                text += letter;
            }
            if (open > 0 && random() % 4 == 0) {
                text += ')';
                --open;
            }
        }
        text += std::string(static_cast<std::size_t>(open), ')');
        const LetterTree before(text);
        LetterTree after(text);
        for (int loss = 0; loss < 6; ++loss) {
            Bookmark* node = nullptr;
            for (char letter = 'a'; letter <= 'x' && !node; ++letter) {
                const char name =
                    text.find(letter) != std::string::npos ? letter : static_cast<char>(letter - 'a' + 'A');
                if (random() % 8 == 0)
                    node = &after[name];
            }
            if (node && node->getParent())
                node->detachMe();
        }
        EXPECT_EQ(afterPuttingBack(before, after), before.text()) << round;
    }
}

} // namespace
} // namespace tabulon
