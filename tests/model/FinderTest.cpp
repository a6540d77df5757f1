// Tests the search in one document: counts, the order of visits, the phases that windows share, and restarts.
#include "model/Finder.h"

#include "tests/model/TreeText.h"
#include "text/Collation.h"

#include <gtest/gtest.h>

#include <random>

namespace tabulon {
namespace {

using test::LetterTree;

class FinderTest : public testing::Test {
protected:
    /// Returns the first letters of the names of the nodes visited, with a suffix for the place of the match:
    /// ".t" for tags, ".n" for the note, no suffix for name and URL.
    std::string visits(Bookmark& root, const char* text) {
        std::string all;
        Finder::Start start = finder.findText(root, text);
        for (Bookmark* node = start.matched ? finder.foundBookmark() : nullptr; node;
             node = finder.findNext(root)) {
            all += all.empty() ? "" : " ";
            all += node == &root ? "root" : node->itemName().string().substr(0, 1);
            all += phases.foundInTags ? ".t" : phases.foundInNote ? ".n" : "";
        }
        return all;
    }
    std::size_t count(const Bookmark& root, const char* text) { return finder.findText(root, text).count; }

    FindPhases phases;
    const Collation collation{"en_US"};
    Finder finder{phases, collation};
};

TEST_F(FinderTest, nameOrURLCountsOnceTagsAndNoteOnceEach) {
    LetterTree tree("abcde");
    tree['a'].setItemName("a hit");
    tree['a'].setItemURL("hit");
    tree['b'].setItemURL("hit");
    tree['c'].setItemTags("hit");
    tree['d'].setItemNote("hit");
    tree['e'].setItemTags("hit");
    tree['e'].setItemNote("hit");
    EXPECT_EQ(count(*tree.root, "hit"), 6u);
    phases.tagsWithName = true;
    EXPECT_EQ(count(*tree.root, "hit"), 6u);
    tree['a'].setItemTags("hit");
    EXPECT_EQ(count(*tree.root, "hit"), 6u) << "with the column of tags they are part of the first group";
    phases.tagsWithName = false;
    EXPECT_EQ(count(*tree.root, "hit"), 7u);
}

TEST_F(FinderTest, theRootIsNotCounted) {
    LetterTree tree("a");
    tree['a'].setItemName("Master of all");
    EXPECT_EQ(count(*tree.root, "master"), 1u);
}

TEST_F(FinderTest, foldersCountAndAreDescendedInto) {
    LetterTree tree("A(bC(d))e");
    for (const char letter : {'A', 'C', 'd', 'e'})
        tree[letter].setItemName(std::string(1, letter) + " hit");
    EXPECT_EQ(count(*tree.root, "hit"), 4u);
    EXPECT_EQ(visits(*tree.root, "hit"), "A C d e");
}

TEST_F(FinderTest, caseAndDiacriticsDoNotCount) {
    LetterTree tree("ab");
    tree['a'].setItemName("a Résumé");
    EXPECT_EQ(count(*tree.root, "RESUME"), 1u);
    EXPECT_EQ(count(*tree.root, "résumé"), 1u);
    EXPECT_EQ(count(*tree.root, "resume x"), 0u);
}

TEST_F(FinderTest, aNodeIsVisitedForItsNameThenForItsTags) {
    LetterTree tree("ab");
    tree['a'].setItemName("a hit");
    tree['a'].setItemTags("hit");
    tree['b'].setItemName("b hit");
    EXPECT_EQ(visits(*tree.root, "hit"), "a a.t b");
}

TEST_F(FinderTest, aNodeIsVisitedForItsNameThenForItsNote) {
    LetterTree tree("ab");
    tree['a'].setItemURL("hit");
    tree['a'].setItemNote("hit");
    EXPECT_EQ(visits(*tree.root, "hit"), "a a.n");
}

TEST_F(FinderTest, aMatchInTheTagsLeavesOutTheNote) {
    LetterTree tree("ab");
    tree['a'].setItemTags("hit");
    tree['a'].setItemNote("hit");
    tree['b'].setItemNote("hit");
    EXPECT_EQ(count(*tree.root, "hit"), 3u);
    EXPECT_EQ(visits(*tree.root, "hit"), "a.t b.n");
}

TEST_F(FinderTest, withTheColumnOfTagsAMatchInThemIsOneInTheName) {
    phases.tagsWithName = true;
    LetterTree tree("ab");
    tree['a'].setItemTags("hit");
    tree['a'].setItemNote("hit");
    tree['b'].setItemName("b hit");
    tree['b'].setItemTags("hit");
    EXPECT_EQ(visits(*tree.root, "hit"), "a a.n b");
}

TEST_F(FinderTest, behindTheLastMatchItBeginsAgain) {
    LetterTree tree("ab");
    tree['b'].setItemName("b hit");
    EXPECT_EQ(finder.findText(*tree.root, "hit").count, 1u);
    EXPECT_EQ(finder.foundBookmark(), &tree['b']);
    EXPECT_EQ(finder.findNext(*tree.root), nullptr);
    EXPECT_EQ(finder.foundBookmark(), nullptr);
    EXPECT_EQ(finder.findNext(*tree.root), &tree['b']);
}

TEST_F(FinderTest, beginningAgainItLooksAtTheRootAsWell) {
    LetterTree tree("ab");
    tree['b'].setItemName("b master");
    EXPECT_EQ(visits(*tree.root, "master"), "b");
    EXPECT_EQ(finder.findNext(*tree.root), tree.root.get());
    EXPECT_EQ(finder.findNext(*tree.root), &tree['b']);
    EXPECT_EQ(finder.findNext(*tree.root), nullptr);
}

TEST_F(FinderTest, afterTheFoundNodeHasLeftItBeginsAgain) {
    LetterTree tree("abC(d)");
    for (const char letter : {'a', 'b', 'd'})
        tree[letter].setItemName(std::string(1, letter) + " hit");
    finder.findText(*tree.root, "hit");
    EXPECT_EQ(finder.findNext(*tree.root), &tree['b']);
    tree['b'].detachMe();
    EXPECT_EQ(finder.findNext(*tree.root), &tree['a']);
    EXPECT_EQ(finder.findNext(*tree.root), &tree['d']);
    tree['C'].detachMe();
    EXPECT_EQ(finder.findNext(*tree.root), &tree['a']) << "its folder has left";
    LetterTree other("e");
    other['e'].setItemName("e hit");
    EXPECT_EQ(finder.findNext(*other.root), &other['e']) << "the document has another tree";
}

TEST_F(FinderTest, withoutAMatchTheNodeFoundBeforeStays) {
    LetterTree tree("ab");
    finder.findText(*tree.root, "a");
    EXPECT_FALSE(finder.findText(*tree.root, "zzz").matched);
    EXPECT_EQ(finder.foundBookmark(), &tree['a']);
    EXPECT_EQ(finder.searchString(), "zzz");
}

TEST_F(FinderTest, inAnEmptyDocumentNothingIsFound) {
    LetterTree tree("");
    EXPECT_EQ(finder.findText(*tree.root, "x").count, 0u);
    EXPECT_EQ(finder.findNext(*tree.root), nullptr);
}

TEST_F(FinderTest, twoWindowsShareThePhases) {
    LetterTree one("a");
    LetterTree two("b");
    one['a'].setItemName("a hit");
    one['a'].setItemTags("hit");
    two['b'].setItemName("b hit");
    two['b'].setItemNote("hit");
    Finder other(phases, collation);
    finder.findText(*one.root, "hit");
    other.findText(*two.root, "hit");
    EXPECT_EQ(other.findNext(*two.root), &two['b']);
    EXPECT_TRUE(phases.foundInNote);
    EXPECT_EQ(finder.findNext(*one.root), nullptr) << "the tags of a count as looked at";
}

TEST_F(FinderTest, whatIsBelowALinkIsNotCountedAndMetOnlyRightAfterItsNote) {
    LetterTree tree("ab");
    tree['a'].setItemName("a hit");
    tree['a'].addChild(LetterTree("").root);
    tree['a'].getChild()->setItemName("x hit");
    EXPECT_EQ(count(*tree.root, "hit"), 1u);
    EXPECT_EQ(visits(*tree.root, "hit"), "a");
    tree['a'].setItemNote("hit");
    EXPECT_EQ(visits(*tree.root, "hit"), "a a.n x");
}

// Appends the expected visits level by level. Nodes below a node that is not a folder are left out.
void appendVisits(const Bookmark& parent, const Collation& collation, bool tagsWithName,
                  std::vector<const Bookmark*>& visited) {
    const auto hit = [&](const Text& text) {
        return !text.isNull() && collation.standardContains(text.view(), "x");
    };
    for (const Bookmark* node : *parent.getChildren()) {
        const bool tags = hit(node->itemTags());
        if (hit(node->itemName()) || hit(node->itemURL()) || (tagsWithName && tags))
            visited.push_back(node);
        if (!tagsWithName && tags)
            visited.push_back(node);
        else if (hit(node->itemNote()))
            visited.push_back(node);
        if (node->isFolder())
            appendVisits(*node, collation, tagsWithName, visited);
    }
}

TEST_F(FinderTest, theVisitsAreThoseOfALookAtEveryNode) {
    std::mt19937 random(11);
    const auto text = [&random] {
        return random() % 4 == 0 ? Text("aXb") : (random() % 2 == 0 ? Text("ab") : Text());
    };
    for (int round = 0; round < 500; ++round) {
        const Ref<Bookmark> root = Bookmark::initEmpty();
        root->makeParent();
        std::vector<Bookmark*> parents{root.get()};
        for (std::size_t count = random() % 30; count > 0; --count) {
            const Ref<Bookmark> node = Bookmark::initEmpty();
            node->setItemName(text());
            node->setItemURL(text());
            node->setItemTags(text());
            node->setItemNote(text());
            parents[random() % parents.size()]->addChild(node);
            if (random() % 3 == 0) {
                node->makeParent();
                parents.push_back(node.get());
            }
        }
        phases.tagsWithName = random() % 2 == 0;
        std::vector<const Bookmark*> expected;
        appendVisits(*root, collation, phases.tagsWithName, expected);
        std::vector<const Bookmark*> visited;
        const Finder::Start start = finder.findText(*root, "x");
        Finder inPortions(phases, collation);
        inPortions.begin(*root, "x");
        std::optional<Finder::Start> portion;
        while (!portion)
            portion = inPortions.goOn(*root, 1 + random() % 5);
        EXPECT_EQ(portion->count, start.count);
        EXPECT_EQ(inPortions.foundBookmark(), finder.foundBookmark());
        EXPECT_EQ(inPortions.goOn(*root, 1), std::nullopt);
        const bool matched = start.matched;
        for (const Bookmark* node = matched ? finder.foundBookmark() : nullptr; node;
             node = finder.findNext(*root))
            visited.push_back(node);
        ASSERT_EQ(visited, expected) << round;
    }
}

TEST_F(FinderTest, aDeepTreeIsSteppedThrough) {
    LetterTree tree("");
    Bookmark* folder = tree.root.get();
    for (int level = 0; level < 200000; ++level) {
        const Ref<Bookmark> inner = Bookmark::initEmpty();
        inner->makeParent();
        folder->addChild(inner);
        folder = inner.get();
    }
    folder->setItemName("z hit");
    EXPECT_EQ(visits(*tree.root, "hit"), "z");
}

TEST_F(FinderTest, aMatchThatGoesBetweenTwoPortionsIsNoMatch) {
    LetterTree tree("abc");
    tree['a'].setItemName("a hit");
    finder.setFoundBookmark(&tree['b']);
    finder.begin(*tree.root, "hit");
    EXPECT_FALSE(finder.goOn(*tree.root, 1));
    tree['a'].setItemName("a");
    const std::optional<Finder::Start> start = finder.goOn(*tree.root, 10);
    ASSERT_TRUE(start);
    EXPECT_FALSE(start->matched);
    EXPECT_EQ(finder.foundBookmark(), &tree['b']);
}

TEST_F(FinderTest, aMatchThatGoesBetweenTwoPortionsLeavesTheNextOne) {
    LetterTree tree("abc");
    tree['a'].setItemName("a hit");
    tree['c'].setItemName("c hit");
    finder.begin(*tree.root, "hit");
    EXPECT_FALSE(finder.goOn(*tree.root, 1));
    tree['a'].setItemName("a");
    const std::optional<Finder::Start> start = finder.goOn(*tree.root, 10);
    ASSERT_TRUE(start && start->matched);
    EXPECT_EQ(finder.foundBookmark(), &tree['c']);
}

} // namespace
} // namespace tabulon
