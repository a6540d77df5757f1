// Tests the comparison of two trees.
#include "model/TreeComparison.h"

#include "model/TreeWalk.h"
#include "tests/ProcessorTime.h"
#include "tests/model/TreeText.h"

#include <gmock/gmock.h>

#include <random>

namespace tabulon {
namespace {

using test::LetterTree;
using testing::ElementsAre;
using testing::IsEmpty;

// Returns one line for each difference, for example "+a", "-b", "moved c", "renamed d>e", "edited f".
std::vector<std::string> linesOf(const TreeComparison& comparison) {
    std::vector<std::string> lines;
    for (const TreeDifference& difference : comparison.differences()) {
        if (difference.isAdded())
            lines.push_back("+" + difference.after->itemName().string());
        if (difference.isRemoved())
            lines.push_back("-" + difference.before->itemName().string());
        if (difference.moved)
            lines.push_back("moved " + difference.after->itemName().string());
        if (difference.renamed)
            lines.push_back("renamed " + difference.before->itemName().string() + ">" +
                            difference.after->itemName().string());
        if (difference.edited != 0)
            lines.push_back("edited " + difference.after->itemName().string());
    }
    return lines;
}

std::vector<std::string> differences(const LetterTree& before, const LetterTree& after) {
    return linesOf(TreeComparison(*before.root, *after.root));
}

TEST(TreeComparisonTest, equalTreesHaveNoDifferences) {
    EXPECT_THAT(differences(LetterTree("a B(c - d E()) -"), LetterTree("a B(c - d E()) -")), IsEmpty());
}

TEST(TreeComparisonTest, addedAndRemovedItemsAreListedWithWhatIsBelowThem) {
    EXPECT_THAT(differences(LetterTree("a B(c D(e))"), LetterTree("a")), ElementsAre("-B", "-c", "-D", "-e"));
    EXPECT_THAT(differences(LetterTree("a"), LetterTree("B(c) a")), ElementsAre("+B", "+c"));
}

TEST(TreeComparisonTest, anItemInAnotherFolderIsMoved) {
    EXPECT_THAT(differences(LetterTree("a B(c) D()"), LetterTree("a B() D(c)")), ElementsAre("moved c"));
    EXPECT_THAT(differences(LetterTree("A(b c) D()"), LetterTree("D(A(b c))")), ElementsAre("moved A"));
}

TEST(TreeComparisonTest, whatSurvivesADeletedFolderIsMoved) {
    EXPECT_THAT(differences(LetterTree("A(b c)"), LetterTree("c")), ElementsAre("-A", "-b", "moved c"));
}

TEST(TreeComparisonTest, ofAChangedOrderTheFewestItemsAreMoved) {
    EXPECT_THAT(differences(LetterTree("a b c d e"), LetterTree("b c d e a")), ElementsAre("moved a"));
    EXPECT_THAT(differences(LetterTree("a b c d"), LetterTree("d c b a")).size(), 3u);
}

TEST(TreeComparisonTest, aLinkOfTheSameAddressIsRenamed) {
    LetterTree before("a B(c)");
    LetterTree after("a B(d)");
    before['c'].setItemURL("https://c.example/");
    after['d'].setItemURL("https://c.example/");
    EXPECT_THAT(differences(before, after), ElementsAre("renamed c>d"));
}

TEST(TreeComparisonTest, aLinkOfTheSameNameInItsFolderIsEdited) {
    LetterTree before("a b");
    LetterTree after("a b");
    before['b'].setItemURL("https://1.example/");
    after['b'].setItemURL("https://2.example/");
    after['a'].setItemNote("new");
    const TreeComparison comparison(*before.root, *after.root);
    EXPECT_THAT(linesOf(comparison), ElementsAre("edited a", "edited b"));
    EXPECT_EQ(comparison.differences()[0].edited, kChangedNote);
    EXPECT_EQ(comparison.differences()[1].edited, kChangedURL);
    EXPECT_EQ(comparison.counts(), (DifferenceCounts{.added = 0, .removed = 0, .changed = 2}));
}

TEST(TreeComparisonTest, anItemOfTheSameDateInItsFolderIsRenamedAndEdited) {
    LetterTree before("B(c)");
    LetterTree after("B(d)");
    before['c'].setItemURL("https://1.example/");
    after['d'].setItemURL("https://2.example/");
    before['c'].setItemDateAdded(Date::fromUnixSeconds(1e9));
    after['d'].setItemDateAdded(Date::fromUnixSeconds(1e9));
    EXPECT_THAT(differences(before, after), ElementsAre("renamed c>d", "edited d"));
}

TEST(TreeComparisonTest, aRenamedFolderKeepsItsContents) {
    LetterTree before("A(b c)");
    LetterTree after("D(b c)");
    for (Bookmark* folder : {&before['A'], &after['D']})
        folder->setItemDateAdded(Date::fromUnixSeconds(1e9));
    EXPECT_THAT(differences(before, after), testing::Contains("renamed A>D"));
}

TEST(TreeComparisonTest, movedRenamedAndEditedAreMarksOfOneDifference) {
    LetterTree before("A(b) C()");
    LetterTree after("A() C(d)");
    before['b'].setItemURL("https://b.example/");
    after['d'].setItemURL("https://b.example/");
    after['d'].setLabel(3);
    const TreeComparison comparison(*before.root, *after.root);
    ASSERT_EQ(comparison.differences().size(), 1u);
    const TreeDifference& difference = comparison.differences().front();
    EXPECT_TRUE(difference.moved);
    EXPECT_TRUE(difference.renamed);
    EXPECT_EQ(difference.edited, kChangedLabel);
    EXPECT_EQ(comparison.counts().changed, 1u);
}

TEST(TreeComparisonTest, datesOpenFoldersAndStatusAreNoDifferences) {
    LetterTree before("A(b)");
    LetterTree after("A(b)");
    after['A'].setShowHier(true);
    after['b'].setStatus(5);
    after['b'].setItemLastOpened(Date::fromUnixSeconds(1e9));
    EXPECT_THAT(differences(before, after), IsEmpty());
}

TEST(TreeComparisonTest, aFolderAndALinkOfOneNameAreNotPaired) {
    LetterTree before("a");
    LetterTree after("A()");
    after['A'].setItemName("a");
    EXPECT_THAT(differences(before, after), ElementsAre("-a", "+a"));
}

// For two random trees, the numbers of pairs, added nodes and removed nodes must add up to the nodes of both.
TEST(TreeComparisonTest, everyNodeIsPairedAddedOrRemovedOnce) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        const auto make = [&] {
            std::string text;
            int open = 0;
            for (int item = 0; item < 30; ++item) {
                const int kind = static_cast<int>(random() % 10);
                if (kind == 0) {
                    text += static_cast<char>('A' + random() % 4);
                    text += '(';
                    ++open;
                } else if (kind == 1 && open > 0) {
                    text += ')';
                    --open;
                } else {
                    text += kind == 2 ? '-' : static_cast<char>('a' + random() % 6);
                }
            }
            return text + std::string(static_cast<std::size_t>(open), ')');
        };
        const LetterTree before(make());
        const LetterTree after(make());
        const TreeComparison comparison(*before.root, *after.root);
        std::size_t nodesBefore = 0;
        std::size_t nodesAfter = 0;
        std::size_t pairs = 0;
        walkBelow(*before.root, [&](Bookmark& node) {
            ++nodesBefore;
            const Bookmark* partner = comparison.partnerOf(node);
            pairs += partner ? 1 : 0;
            EXPECT_TRUE(!partner || comparison.partnerOf(*partner) == &node);
            return true;
        });
        walkBelow(*after.root, [&](Bookmark&) { return ++nodesAfter; });
        EXPECT_EQ(comparison.counts().removed, nodesBefore - pairs);
        EXPECT_EQ(comparison.counts().added, nodesAfter - pairs);
    }
}

enum class Numbered { URL, Note };

Ref<Bookmark> flat(int count, int first, Numbered field) {
    const Ref<Bookmark> root = Bookmark::initEmpty();
    root->makeParent();
    for (int index = 0; index < count; ++index) {
        const Ref<Bookmark> link = Bookmark::initEmpty();
        link->setItemName("same name");
        const std::string text = "https://example.org/" + std::to_string(first + index);
        link->setItemURL(field == Numbered::URL ? text : "https://example.org/");
        link->setItemNote(field == Numbered::Note ? text : "");
        root->addChild(link);
    }
    return root;
}

// All names are equal, one of URL and note differs for each node, and the second tree continues the numbers
// from the middle of the first. The time must be linear in the number of nodes.
TEST(TreeComparisonTest, timeGrowsWithTheNumberOfNodes) {
    const auto seconds = [](int count, Numbered field) {
        const Ref<Bookmark> before = flat(count, 0, field);
        const Ref<Bookmark> after = flat(count, count / 2, field);
        const ProcessorTime time;
        const TreeComparison comparison(*before, *after);
        EXPECT_EQ(comparison.counts(), (DifferenceCounts{0, 0, static_cast<std::size_t>(count)}));
        return time.seconds();
    };
    for (const Numbered field : {Numbered::URL, Numbered::Note}) {
        const double small = seconds(20'000, field);
        EXPECT_LT(seconds(80'000, field), 10 * small + 0.05);
    }
}

// Reading the text again for each node would take minutes.
TEST(TreeComparisonTest, aLongTextThatAllNodesShareIsReadOnce) {
    constexpr int kCount = 5'000;
    const auto tree = [](const char* name, char letter) {
        const Text shared(std::string(std::size_t{4} << 20, letter));
        Ref<Bookmark> top = Bookmark::initEmpty();
        top->makeParent();
        for (int i = 0; i < kCount; ++i) {
            const Ref<Bookmark> child = Bookmark::initEmpty();
            child->setItemName(name);
            for (const auto set : {&Bookmark::setItemURL, &Bookmark::setItemNote, &Bookmark::setItemTags})
                (child.get()->*set)(shared);
            top->addChild(child);
        }
        return top;
    };
    const Ref<Bookmark> before = tree("a", 'x');
    const ProcessorTime time;
    EXPECT_EQ(TreeComparison(*before, *tree("b", 'x')).counts(), (DifferenceCounts{0, 0, kCount}))
        << "renamed";
    EXPECT_EQ(TreeComparison(*before, *tree("a", 'y')).counts(), (DifferenceCounts{0, 0, kCount}))
        << "edited";
    EXPECT_LT(time.seconds(), 2.0);
}

TEST(TreeComparisonTest, aDeepTreeIsCompared) {
    const auto deep = [] {
        Ref<Bookmark> top = Bookmark::initEmpty();
        top->makeParent();
        Bookmark* folder = top.get();
        for (int level = 0; level < 100'000; ++level) {
            const Ref<Bookmark> child = Bookmark::initEmpty();
            child->setItemName("f");
            child->makeParent();
            folder->addChild(child);
            folder = child.get();
        }
        return top;
    };
    const Ref<Bookmark> before = deep();
    const Ref<Bookmark> after = deep();
    EXPECT_THAT(linesOf(TreeComparison(*before, *after)), IsEmpty());
}

} // namespace
} // namespace tabulon
