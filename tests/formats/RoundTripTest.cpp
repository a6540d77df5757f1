// Tests documents that are written and read again, for the two formats that support both: the values that are
// kept, and every difference that docs/formats.md lists.
#include "formats/ExportFormats.h"
#include "formats/ImportFormats.h"
#include "model/TreeWalk.h"
#include "platform/fake/FakeBaseServices.h"
#include "tests/formats/TreeFixture.h"

#include <fmt/format.h>

#include <functional>
#include <random>

namespace tabulon {
namespace {

std::string quoted(const Text& text) {
    return text.isNull() ? "null" : fmt::format("[{}]", text.view());
}

std::string seconds(Date date) {
    return date.isNull() ? "null" : fmt::format("{}", date.unixSeconds());
}

// Returns one line for each node below `root`, indented by two blanks for each level: its texts, dates, type,
// label, status, expanded state and auto-tab flag.
std::string described(const Bookmark& root) {
    std::string text;
    std::size_t level = 0;
    const auto enter = [&](const Bookmark& node) {
        text += std::string(2 * level, ' ');
        text += node.isSeparator() ? "separator" : node.isFolder() ? "folder" : "link";
        text += fmt::format(" {} {} note {} tags {} added {} modified {} checked {} opened {}",
                            quoted(node.itemName()), quoted(node.itemURL()), quoted(node.itemNote()),
                            quoted(node.itemTags()), seconds(node.itemDateAdded()),
                            seconds(node.itemDateModified()), seconds(node.itemLastChecked()),
                            seconds(node.itemLastOpened()));
        text += fmt::format(" type {} label {} status {} expanded {} tab {}\n", node.getType(),
                            node.getLabel(), node.getStatus(), node.showHier(), node.getAutoTab());
        level += node.getChildren() ? 1 : 0;
        return true;
    };
    walkBelow(root, enter, [&level](const Bookmark&) { --level; });
    return text;
}

class RoundTrip : public TreeTest {
protected:
    std::string write(const char* format, const Bookmark& tree) {
        return exportFormatNamed(format)->write(tree, fakes.services(), nullptr).value();
    }
    Ref<Bookmark> read(const char* format, const std::string& file) {
        return importFormatNamed(format)->read(file, {fakes.services()}).value();
    }
    Ref<Bookmark> through(const char* format, const Bookmark& tree) {
        return read(format, write(format, tree));
    }
    Ref<Bookmark> throughHTML() { return through("html", *master); }
    Ref<Bookmark> throughXBEL() { return through("xbel", *master); }
    static Bookmark& only(const Ref<Bookmark>& tree) {
        EXPECT_TRUE(tree->hasChildren() && tree->getChildren()->size() == 1);
        return *tree->getChild();
    }

    // Sets the four dates, the tags, the label and the status of `node`.
    static void fill(Bookmark& node) {
        node.setItemDateAdded(Date::fromUnixSeconds(1000000000));
        node.setItemDateModified(Date::fromUnixSeconds(1100000000));
        node.setItemLastChecked(Date::fromUnixSeconds(1200000000));
        node.setItemLastOpened(Date::fromUnixSeconds(1300000000));
        node.setItemTags("one, two");
        node.setLabel(3);
        node.setStatus(2);
    }

    FakeBaseServices fakes;
};

// HTML

TEST_F(RoundTrip, htmlKeepsNamesAddressesTwoDatesAndFolders) {
    Bookmark& folder = addFolder(*master, "Folder <1> & \"2\"");
    Bookmark& link = addLink(folder, "日本語 & 'é'", "https://example.org/?a=<1>");
    for (Bookmark* node : {&folder, &link}) {
        node->setItemDateAdded(Date::fromUnixSeconds(1000000000));
        node->setItemDateModified(Date::fromUnixSeconds(1100000000));
    }
    addFolder(*master, "Empty").setItemDateAdded(Date::fromUnixSeconds(5));
    EXPECT_EQ(described(*throughHTML()), described(*master));
}

TEST_F(RoundTrip, htmlLosesTagsMarksLabelsAndTheOtherDates) {
    Bookmark& link = addLink(*master, "n", "https://example.org/");
    fill(link);
    EXPECT_EQ(described(*throughHTML()),
              "link [n] [https://example.org/] note null tags null added 1000000000 modified 1100000000 "
              "checked null opened null type 0 label 0 status 0 expanded false tab false\n");
}

TEST_F(RoundTrip, htmlCollapsesFoldersAndLosesTheirNotes) {
    Bookmark& folder = addFolder(*master, "f", "note");
    folder.setShowHier(true);
    const Ref<Bookmark> tree = throughHTML();
    EXPECT_FALSE(only(tree).showHier());
    EXPECT_TRUE(only(tree).itemNote().isNull());
}

TEST_F(RoundTrip, htmlMakesTheKindOfALinkFromItsAddress) {
    addLink(*master, "n", "mailto:a@a.example").setType(kUnknownType);
    EXPECT_EQ(only(throughHTML()).getType(), kMailType);
}

TEST_F(RoundTrip, htmlHasWholeSecondsAndAMissingDateAddedIs1970) {
    addLink(*master, "n", "u").setItemDateModified(Date::fromUnixSeconds(1.9));
    const Ref<Bookmark> tree = throughHTML();
    EXPECT_EQ(only(tree).itemDateAdded().unixSeconds(), 0);
    EXPECT_EQ(only(tree).itemDateModified().unixSeconds(), 1);
}

TEST_F(RoundTrip, htmlKeepsDatesOfThisAgeAndOfAnImportersArithmetic) {
    const auto back = [this](double seconds) {
        master->setChildren({});
        addLink(*master, "n", "u").setItemDateAdded(Date::fromUnixSeconds(seconds));
        return only(throughHTML()).itemDateAdded().unixSeconds();
    };
    EXPECT_EQ(back(1355526400), 1355526400);
    EXPECT_EQ(back(-5), 0) << "a number without a sign is read";
    EXPECT_EQ(back(18446744062065078272.0), 18446744062065078272.0);
    EXPECT_EQ(back(1e30), 18446744073709551615.0);
}

TEST_F(RoundTrip, htmlSeparatorsLoseAllAndAreOfToday) {
    Bookmark& separator = addSeparator(*master);
    separator.setItemName("name");
    fill(separator);
    const Ref<Bookmark> tree = throughHTML();
    EXPECT_TRUE(only(tree).isSeparator());
    EXPECT_TRUE(only(tree).itemName().isNull());
    EXPECT_EQ(only(tree).itemDateAdded(), fakes.now());
}

TEST_F(RoundTrip, htmlNotesAreOneLineWithApostrophesAndGainTheIndentOfTheNextLine) {
    addLink(*master, "a", "u", "one\ntwo \"three\"");
    addLink(*master, "b", "u", "last");
    const Ref<Bookmark> tree = throughHTML();
    EXPECT_EQ(tree->getChild()->itemNote().view(), "one two 'three'\n\t");
    EXPECT_EQ(tree->getLast()->itemNote().view(), "last");
}

TEST_F(RoundTrip, htmlLosesLinksWithoutNameOrAddressButNotTheirNotes) {
    addLink(*master, "first", "u");
    addLink(*master, nullptr, "u", "of the second");
    addLink(*master, "third", nullptr);
    const Ref<Bookmark> tree = throughHTML();
    EXPECT_EQ(only(tree).itemName().view(), "first");
    EXPECT_EQ(only(tree).itemNote().view(), "of the second") << "it goes to the one before";
}

TEST_F(RoundTrip, htmlEmptyNamesOfLinksAreUntitledAndBlanksInFrontGo) {
    addLink(*master, "", "u");
    addLink(*master, " \t blanks", "u");
    const Ref<Bookmark> tree = throughHTML();
    EXPECT_EQ(tree->getChild()->itemName().view(), "Untitled");
    EXPECT_EQ(tree->getLast()->itemName().view(), "blanks");
}

TEST_F(RoundTrip, htmlNamesOfLinksAreOneLineOfAtMost1024Bytes) {
    addLink(*master, "one\ntwo", "u");
    addLink(*master, Text(std::string(1100, 'x')), "u");
    const Ref<Bookmark> tree = throughHTML();
    EXPECT_EQ(tree->getChild()->itemName().view(), "one two");
    EXPECT_EQ(tree->getLast()->itemName().view(), std::string(1024, 'x'));
}

TEST_F(RoundTrip, htmlAFolderNameOf512BytesEndsTheFile) {
    addFolder(*master, Text(std::string(507, 'x') + "<"));
    EXPECT_EQ(only(throughHTML()).itemName().view().size(), 508u);
    master->setChildren({});
    addLink(*master, "before", "u");
    addFolder(*master, Text(std::string(508, 'x') + "<"));
    addLink(*master, "after", "u");
    EXPECT_EQ(only(throughHTML()).itemName().view(), "before");
}

TEST_F(RoundTrip, htmlAFolderWithoutANameIsLostAndWhatFollowsItMovesUp) {
    Bookmark& outer = addFolder(*master, "outer");
    addLink(addFolder(outer, nullptr), "inside", "u");
    addLink(outer, "behind", "u");
    const Ref<Bookmark> tree = throughHTML();
    ASSERT_EQ(tree->getChildren()->size(), 2u);
    EXPECT_EQ(tree->getChild()->getChild()->itemName().view(), "inside");
    EXPECT_EQ(tree->getLast()->itemName().view(), "behind");
}

TEST_F(RoundTrip, htmlAddressesLoseWhatFollowsAQuoteAndReadEntities) {
    addLink(*master, "n", "https://a.example/\"b");
    EXPECT_EQ(only(throughHTML()).itemURL().view(), "https://a.example/");
    master->removeLast();
    addLink(*master, "n", "https://a.example/?b&amp;c");
    EXPECT_EQ(only(throughHTML()).itemURL().view(), "https://a.example/?b&c");
}

TEST_F(RoundTrip, htmlAnAddressInThePageIsNoLink) {
    addLink(*master, "gone", "#part");
    addLink(*master, "stays", "u");
    EXPECT_EQ(only(throughHTML()).itemName().view(), "stays");
}

TEST_F(RoundTrip, htmlADashIsASeparatorAndABrowsersToolbarHasOurName) {
    addLink(*master, "-", "u");
    addFolder(*master, "Bookmarks Toolbar");
    const Ref<Bookmark> tree = throughHTML();
    EXPECT_TRUE(tree->getChild()->isSeparator());
    EXPECT_EQ(tree->getLast()->itemName().view(), "Favourites");
}

// XBEL

TEST_F(RoundTrip, xbelKeepsNamesAddressesNotesTagsAndFolders) {
    Bookmark& folder = addFolder(*master, "Folder <1> & \"2\" ");
    addLink(folder, " 日本語 & 'é'", "https://example.org/?a=<1>&b=\"2\"&amp;", "plain note",
            "one, <two> & é");
    addLink(*master, nullptr, "#part");
    addLink(*master, "-", nullptr);
    folder.setItemDateAdded(fakes.now());
    EXPECT_EQ(described(*throughXBEL()), described(*master));
}

TEST_F(RoundTrip, xbelLosesMarksLabelsAndAllDates) {
    fill(addLink(*master, "n", "u", "note"));
    EXPECT_EQ(described(*throughXBEL()), "link [n] [u] note [note] tags [one, two] added null modified null "
                                         "checked null opened null type 0 label 0 status 0 expanded false "
                                         "tab false\n");
}

TEST_F(RoundTrip, xbelFoldersAndSeparatorsAreOfTodayCollapsedAndWithoutNotesAndTags) {
    Bookmark& folder = addFolder(*master, "f", "note");
    fill(folder);
    folder.setShowHier(true);
    Bookmark& separator = addSeparator(*master);
    separator.setItemName("name");
    fill(separator);
    const Ref<Bookmark> tree = throughXBEL();
    for (const Bookmark* node : {tree->getChild(), tree->getLast()}) {
        EXPECT_EQ(node->itemDateAdded(), fakes.now());
        EXPECT_TRUE(node->itemNote().isNull() && node->itemTags().isNull());
        EXPECT_TRUE(node->itemDateModified().isNull());
        EXPECT_FALSE(node->showHier());
    }
    EXPECT_TRUE(tree->getLast()->isSeparator());
    EXPECT_TRUE(tree->getLast()->itemName().isNull());
}

TEST_F(RoundTrip, xbelLinksAreClassifiedByTheirScheme) {
    addLink(*master, "n", "mailto:a@a.example").setType(kQueryType);
    EXPECT_EQ(only(throughXBEL()).getType(), kMailType);
}

TEST_F(RoundTrip, xbelNotesAreOneLineAndComeBackEscapedOnceMore) {
    addLink(*master, "n", "u", "a & \"b\"\r\nc\t<d>");
    const Ref<Bookmark> once = throughXBEL();
    EXPECT_EQ(only(once).itemNote().view(), "a &amp; &quot;b&quot;  c &lt;d&gt;");
    EXPECT_EQ(only(through("xbel", *once)).itemNote().view(),
              "a &amp;amp; &amp;quot;b&amp;quot;  c &amp;lt;d&amp;gt;");
}

TEST_F(RoundTrip, xbelEmptyAndBlankTextsAreNoneButForAddresses) {
    addLink(*master, "", "", "", "");
    addLink(*master, " \t", " ", "\n", "\n ");
    EXPECT_EQ(described(*throughXBEL()),
              "link null null note null tags null added null modified null checked null opened null type 0 "
              "label 0 status 0 expanded false tab false\n"
              "link null [ ] note null tags null added null modified null checked null opened null type 0 "
              "label 0 status 0 expanded false tab false\n");
}

TEST_F(RoundTrip, xbelCarriageReturnsAreLineFeedsAndBothAreBlanksInAddresses) {
    addLink(*master, "a\rb\r\nc\td", "u\r\n\tv", nullptr, "x\ry\nz");
    const Ref<Bookmark> tree = throughXBEL();
    EXPECT_EQ(only(tree).itemName().view(), "a\nb\nc\td");
    EXPECT_EQ(only(tree).itemURL().view(), "u  v");
    EXPECT_EQ(only(tree).itemTags().view(), "x\ny\nz");
}

TEST_F(RoundTrip, xbelControlCharactersComeBackThoughTheyAreNoXML) {
    addLink(*master, "a\x01\x1f", "u\x02");
    const Ref<Bookmark> tree = throughXBEL();
    EXPECT_EQ(only(tree).itemName().view(), "a\x01\x1f");
    EXPECT_EQ(only(tree).itemURL().view(), "u\x02");
}

// Both

Text oneOf(std::mt19937& random, std::initializer_list<Text> texts) {
    return *(texts.begin() + random() % texts.size());
}

// Returns a random tree that both formats keep, except that XBEL does not contain its dates.
Ref<Bookmark> plainTree(unsigned seed) {
    std::mt19937 random(seed);
    Ref<Bookmark> root = Bookmark::initEmpty();
    std::vector<Bookmark*> folders{root.get()};
    for (int count = 0; count < 200; ++count) {
        Bookmark& parent = *folders[folders.size() - 1 - random() % std::min<std::size_t>(folders.size(), 3)];
        Ref<Bookmark> node = Bookmark::initEmpty();
        node->setItemName(oneOf(
            random, {"Plain", "Q&A", "<b>", "\"quoted\" 'text'", "日本語", "&amp;", "]]>", "\U0001F516"}));
        node->setItemDateAdded(Date::fromUnixSeconds(static_cast<double>(random())));
        if (random() % 4 == 0) {
            node->makeParent();
            folders.push_back(node.get());
        } else {
            node->setItemURL(
                oneOf(random, {"https://a.example/?a=1&b=2", "http://b.example/<x>", "https://é.example/"}));
        }
        parent.addChild(node);
    }
    return root;
}

TEST_F(RoundTrip, filesOfPlainTreesComeBackByteForByte) {
    for (unsigned seed = 0; seed < 100; ++seed)
        for (const char* format : {"html", "xbel"}) {
            const Ref<Bookmark> tree = plainTree(seed);
            const std::string file = write(format, *tree);
            ASSERT_EQ(write(format, *read(format, file)), file) << format << " " << seed;
        }
}

TEST_F(RoundTrip, htmlTreesOfPlainTreesComeBackWhole) {
    for (unsigned seed = 0; seed < 100; ++seed) {
        const Ref<Bookmark> tree = plainTree(seed);
        ASSERT_EQ(described(*through("html", *tree)), described(*tree)) << seed;
    }
}

} // namespace
} // namespace tabulon
