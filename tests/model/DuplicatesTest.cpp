// Tests the duplicate scan: which URLs are equal, which of several items are marked, and that the marks are
// those of a comparison of every pair.
#include "model/Duplicates.h"

#include "model/TreeWalk.h"
#include "tests/model/TreeText.h"

#include <gtest/gtest.h>

#include <random>

namespace tabulon {
namespace {

using test::LetterTree;

// Returns the letters of the marked items in document order, "-" for a separator.
std::string marked(const Bookmark& root) {
    std::string letters;
    walkBelow(root, [&](const Bookmark& item) {
        if (item.getStatus() == kDuplicateStatus)
            letters += item.isSeparator() ? "-" : item.itemName().string();
        return true;
    });
    return letters;
}

void setURLs(LetterTree& tree, std::initializer_list<std::pair<char, Text>> urls) {
    for (const auto& [letter, url] : urls)
        tree[letter].setItemURL(url);
}

TEST(DuplicatesTest, thoseThatDifferInTheCaseOfAsciiLettersAreMarkedAfterTheFirst) {
    LetterTree tree("abc");
    setURLs(tree, {{'a', "http://Example.org/"}, {'b', "HTTP://example.ORG/"}, {'c', "http://example.org/"}});
    markDuplicates(*tree.root);
    EXPECT_EQ(marked(*tree.root), "bc");
}

TEST(DuplicatesTest, aLaterTopLevelLinkIsTheDuplicateOfOneInAFolder) {
    LetterTree tree("A(b)c");
    setURLs(tree, {{'b', "u"}, {'c', "u"}});
    markDuplicates(*tree.root);
    EXPECT_EQ(marked(*tree.root), "c");
}

TEST(DuplicatesTest, theFirstInDocumentOrderStaysWhateverTheDepth) {
    LetterTree tree("A(B(c)d)e");
    setURLs(tree, {{'c', "u"}, {'d', "u"}, {'e', "u"}});
    markDuplicates(*tree.root);
    EXPECT_EQ(marked(*tree.root), "de");
}

TEST(DuplicatesTest, missingURLsAreNeverEqualAndEmptyOnesAre) {
    LetterTree tree("abcd");
    setURLs(tree, {{'c', ""}, {'d', ""}});
    markDuplicates(*tree.root);
    EXPECT_EQ(marked(*tree.root), "d");
}

TEST(DuplicatesTest, separatorsWithoutAURLAndFoldersAreNotMarked) {
    LetterTree tree("a-B()C()");
    setURLs(tree, {{'a', "u"}, {'B', "u"}, {'C', "u"}});
    markDuplicates(*tree.root);
    EXPECT_EQ(marked(*tree.root), "");
}

TEST(DuplicatesTest, aSeparatorWithAURLTakesPart) {
    LetterTree tree("a-");
    setURLs(tree, {{'a', "u"}, {'-', "U"}});
    markDuplicates(*tree.root);
    EXPECT_EQ(marked(*tree.root), "-");
}

TEST(DuplicatesTest, aSlashAnotherLetterOrAnAccentMakesAnotherURL) {
    LetterTree tree("abcdef");
    setURLs(tree, {{'a', "http://a.example"},
                   {'b', "http://a.example/"},
                   {'c', "http://\xC3\xA9"},
                   {'d', "http://\xC3\x89"},
                   {'e', "http://[`{@"},
                   {'f', "http://{@[`"}});
    markDuplicates(*tree.root);
    EXPECT_EQ(marked(*tree.root), "");
}

TEST(DuplicatesTest, whatFollowsANullCharacterCounts) {
    LetterTree tree("abc");
    using std::string_view_literals::operator""sv;
    setURLs(tree, {{'a', Text("u\0a"sv)}, {'b', Text("u\0b"sv)}, {'c', Text("U\0A"sv)}});
    markDuplicates(*tree.root);
    EXPECT_EQ(marked(*tree.root), "c");
}

TEST(DuplicatesTest, nameNoteTagsAndTypeDoNotCount) {
    LetterTree tree("ab");
    setURLs(tree, {{'a', "u"}, {'b', "u"}});
    tree['b'].setItemNote("note");
    tree['b'].setItemTags("tags");
    tree['b'].setType(kQueryType);
    markDuplicates(*tree.root);
    EXPECT_EQ(marked(*tree.root), "b");
}

TEST(DuplicatesTest, earlierMarksStayUntilTheyAreCleared) {
    LetterTree tree("abC(d)");
    tree['a'].setStatus(kDuplicateStatus);
    tree['b'].setStatus(kBrokenStatus);
    tree['C'].setStatus(kDuplicateStatus);
    tree['d'].setStatus(kDuplicateStatus);
    markDuplicates(*tree.root);
    EXPECT_EQ(tree['a'].getStatus(), kDuplicateStatus);
    EXPECT_EQ(clearDuplicateStatus(*tree.root), (std::vector<Bookmark*>{&tree['a'], &tree['d']}));
    EXPECT_EQ(tree['a'].getStatus(), kNoStatus);
    EXPECT_EQ(tree['b'].getStatus(), kBrokenStatus);
    EXPECT_EQ(tree['C'].getStatus(), kDuplicateStatus) << "the status of a folder is not touched";
}

TEST(DuplicatesTest, foldingIsOfAsciiLettersAlone) {
    for (int a = 0; a < 256; ++a)
        for (int b = 0; b < 256; ++b) {
            const auto lower = [](int c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; };
            const bool same = lower(a) == lower(b);
            for (const std::size_t length : {std::size_t{1}, std::size_t{8}, std::size_t{13}}) {
                std::string first(length, 'q');
                std::string second(length, 'Q');
                first[length - 1] = static_cast<char>(a);
                second[length - 1] = static_cast<char>(b);
                ASSERT_EQ(equalIgnoringAsciiCase(first, second), same) << a << " " << b << " " << length;
            }
        }
    EXPECT_FALSE(equalIgnoringAsciiCase("ab", "abc"));
    EXPECT_TRUE(equalIgnoringAsciiCase("", ""));
}

// Returns the duplicates that a comparison of every item, except folders, with every earlier one finds.
std::vector<Bookmark*> duplicatesByPairs(const Bookmark& root) {
    const auto lower = [](std::string text) {
        for (char& c : text)
            c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        return text;
    };
    std::vector<Bookmark*> items;
    walkBelow(root, [&](Bookmark& item) {
        if (!item.isFolder())
            items.push_back(&item);
        return item.isFolder();
    });
    std::vector<Bookmark*> duplicates;
    for (std::size_t later = 0; later < items.size(); ++later)
        for (std::size_t earlier = 0; earlier < later; ++earlier)
            if (!items[earlier]->itemURL().isNull() && !items[later]->itemURL().isNull() &&
                lower(items[earlier]->itemURL().string()) == lower(items[later]->itemURL().string())) {
                duplicates.push_back(items[later]);
                break;
            }
    return duplicates;
}

Ref<Bookmark> randomTree(std::mt19937& random) {
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    Ref<Bookmark> root = Bookmark::initEmpty();
    root->makeParent();
    std::vector<Bookmark*> parents{root.get()};
    for (std::size_t count = below(40); count > 0; --count) {
        const Ref<Bookmark> node = Bookmark::initEmpty();
        std::string url;
        for (std::size_t length = below(2) * 7 + below(4); length > 0; --length)
            url += "aAbB\xC3/"[below(6)];
        if (below(8) != 0)
            node->setItemURL(Text::fromBytes(url));
        parents[below(parents.size())]->addChild(node);
        if (below(4) == 0) {
            node->makeParent();
            parents.push_back(node.get());
        } else if (below(12) == 0) {
            node->setType(kSeparatorType);
        } else if (below(20) == 0) {
            node->addChild(Bookmark::initEmpty()); // below a node that is not a folder
            node->getChild()->setItemURL("a");
        }
    }
    return root;
}

TEST(DuplicatesTest, theMarksAreThoseOfComparingEveryPair) {
    std::mt19937 random(5);
    std::size_t found = 0;
    for (int round = 0; round < 5000; ++round) {
        const Ref<Bookmark> root = randomTree(random);
        const std::vector<Bookmark*> duplicates = findDuplicates(*root);
        ASSERT_EQ(duplicates, duplicatesByPairs(*root)) << round;
        found += duplicates.size();
    }
    EXPECT_GT(found, 5000u) << "the trees have something to find";
}

TEST(DuplicatesTest, aDeepTreeIsScanned) {
    const Ref<Bookmark> root = Bookmark::initEmpty();
    root->makeParent();
    Bookmark* folder = root.get();
    for (int level = 0; level < 200000; ++level) {
        const Ref<Bookmark> link = Bookmark::initEmpty();
        link->setItemURL("u");
        const Ref<Bookmark> inner = Bookmark::initEmpty();
        inner->makeParent();
        folder->addChild(link);
        folder->addChild(inner);
        folder = inner.get();
    }
    EXPECT_EQ(findDuplicates(*root).size(), 199999u);
}

} // namespace
} // namespace tabulon
