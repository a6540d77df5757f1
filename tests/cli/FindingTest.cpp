// The verbs that find, remove and sort: duplicates, remove, sort, find.
#include "model/ArchiveWriter.h"
#include "tests/ProcessorTime.h"
#include "tests/cli/Tool.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tabulon {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class FindingTest : public testing::Test {
protected:
    /// Creates a document d.tbln whose root has these children, as JSON.
    void makeDocument(const std::string& children) {
        tool.files.files["tree.json"] =
            R"({"name":"Master","folder":true,"openFolder":true,"children":[)" + children + "]}";
        ASSERT_EQ(tool.run({"make", "tree.json", "-o", "d.tbln"}), 0) << tool.error;
    }
    /// Returns the tree of a document as `show` prints it, without the root.
    std::string shown(const std::string& path) {
        EXPECT_EQ(tool.run({"show", path}), 0) << tool.error;
        return tool.out.substr(tool.out.find('\n') + 1);
    }
    std::string json(const std::string& path) {
        EXPECT_EQ(tool.run({"show", "--json", path}), 0) << tool.error;
        return tool.out;
    }
    void expectWrongUsage(const std::vector<std::string>& arguments) {
        EXPECT_EQ(tool.run(arguments), 2);
        EXPECT_EQ(tool.out, "");
        EXPECT_THAT(tool.error, StartsWith("tabulon-cli: "));
    }
    test::Tool tool;
};

constexpr const char* kThreeAlike = R"({"name":"a","url":"http://u"},
    {"name":"F","folder":true,"children":[{"name":"b","url":"HTTP://U"}]},
    {"name":"c","url":"http://u","status":3},{"name":"d","url":"http://v"})";

TEST_F(FindingTest, duplicatesListsPathAndURL) {
    makeDocument(kThreeAlike);
    ASSERT_EQ(tool.run({"duplicates", "d.tbln"}), 0);
    EXPECT_EQ(tool.out, "1/0\tHTTP://U\n2\thttp://u\n");
    EXPECT_EQ(tool.error, "");
}

TEST_F(FindingTest, duplicatesWithoutAnyListsNothing) {
    makeDocument(R"({"url":"a"},{"url":"b"})");
    ASSERT_EQ(tool.run({"duplicates", "d.tbln"}), 0);
    EXPECT_EQ(tool.out, "");
}

TEST_F(FindingTest, duplicatesEscapesControlCharacters) {
    makeDocument(
        R"({"url":"a"},{"url":"x\t\n\u001b\u0000\u0085\\\u007f"},{"url":"x\t\n\u001b\u0000\u0085\\\u007f"})");
    ASSERT_EQ(tool.run({"duplicates", "d.tbln"}), 0);
    EXPECT_EQ(tool.out, "2\tx\\t\\n\\x1b\\x00\\x85\\\\x7f\n");
}

TEST_F(FindingTest, duplicatesAsJsonAreNodesWithTheirPath) {
    makeDocument(kThreeAlike);
    ASSERT_EQ(tool.run({"duplicates", "--json", "d.tbln"}), 0);
    EXPECT_EQ(std::count(tool.out.begin(), tool.out.end(), '\n'), 2);
    EXPECT_THAT(tool.out, StartsWith(R"({"name":"b","url":"HTTP://U","note":null)"));
    EXPECT_THAT(
        tool.out,
        HasSubstr(
            R"("status":5,"browser":0,"folder":false,"openFolder":false,"autoTab":false,"path":"1/0"})"));
    EXPECT_EQ(tool.out.find("children"), std::string::npos);
}

TEST_F(FindingTest, duplicatesThatWereMarkedBeforeAreScannedAnew) {
    makeDocument(R"({"name":"a","url":"u","status":5},{"name":"b","url":"v","status":5})");
    ASSERT_EQ(tool.run({"duplicates", "d.tbln"}), 0);
    EXPECT_EQ(tool.out, "");
    ASSERT_EQ(tool.run({"duplicates", "--mark", "d.tbln", "-o", "out.tbln"}), 0);
    EXPECT_THAT(json("out.tbln"), testing::Not(HasSubstr("\"status\":5")));
}

TEST_F(FindingTest, duplicatesMarkWritesTheMarkedDocument) {
    makeDocument(kThreeAlike);
    ASSERT_EQ(tool.run({"duplicates", "--mark", "d.tbln", "-o", "out.tbln"}), 0);
    EXPECT_EQ(tool.out, "");
    EXPECT_EQ(tool.error, "");
    EXPECT_EQ(shown("out.tbln"), shown("d.tbln"));
    const std::string marked = json("out.tbln");
    EXPECT_EQ(marked.find("\"status\":3"), std::string::npos) << "a broken duplicate is a duplicate";
    std::size_t count = 0;
    for (std::size_t at = 0; (at = marked.find("\"status\":5", at)) != std::string::npos; ++at)
        ++count;
    EXPECT_EQ(count, 2u);
}

TEST_F(FindingTest, duplicatesDeleteWritesTheDocumentWithoutThem) {
    makeDocument(kThreeAlike);
    ASSERT_EQ(tool.run({"duplicates", "--delete", "d.tbln", "-o", "-"}), 0);
    EXPECT_EQ(tool.error, "2 bookmarks were deleted.\n");
    tool.in = tool.out;
    EXPECT_EQ(shown("-"), "  a  <http://u>\n  F/\n  d  <http://v>\n");
}

TEST_F(FindingTest, theWasteBasketCountsAsTheLastItemWhenLinksAreMarked) {
    makeDocument(R"({"name":"waste basket","folder":true,"children":[{"name":"w","url":"u"}]},
                    {"name":"a","url":"u"})");
    ASSERT_EQ(tool.run({"duplicates", "d.tbln"}), 0);
    EXPECT_EQ(tool.out, "1/0\tu\n");
    ASSERT_EQ(tool.run({"duplicates", "--mark", "d.tbln", "-o", "out.tbln"}), 0);
    EXPECT_EQ(shown("out.tbln"), "  a  <u>\n  waste basket/\n    w  <u>\n");
    ASSERT_EQ(tool.run({"duplicates", "--delete", "d.tbln", "-o", "out.tbln"}), 0);
    EXPECT_EQ(shown("out.tbln"), "  waste basket/\n    w  <u>\n") << "deleting does not move the basket";
}

TEST_F(FindingTest, duplicatesWantsAnOutputExactlyWhereItWrites) {
    makeDocument(kThreeAlike);
    expectWrongUsage({"duplicates", "--mark", "d.tbln"});
    expectWrongUsage({"duplicates", "--delete", "d.tbln"});
    expectWrongUsage({"duplicates", "d.tbln", "-o", "out.tbln"});
    expectWrongUsage({"duplicates", "--mark", "--delete", "d.tbln", "-o", "out.tbln"});
    expectWrongUsage({"duplicates", "--mark", "--json", "d.tbln", "-o", "out.tbln"});
    EXPECT_FALSE(tool.files.files.contains("out.tbln"));
}

constexpr const char* kOneOfEach = R"({"name":"valid","status":1},{"name":"moved","status":2},
    {"name":"broken","status":3},{"name":"unknown","status":4},{"name":"duplicate","status":5})";

TEST_F(FindingTest, removeTakesTheNamedStatuses) {
    makeDocument(kOneOfEach);
    ASSERT_EQ(tool.run({"remove", "--status", "duplicate,unknown", "d.tbln", "-o", "out.tbln"}), 0);
    EXPECT_EQ(tool.out, "");
    EXPECT_EQ(tool.error, "2 bookmarks were deleted.\n");
    EXPECT_EQ(shown("out.tbln"), "  valid\n  moved\n  broken\n");
    ASSERT_EQ(tool.run({"remove", "--status", "broken", "d.tbln", "-o", "out.tbln"}), 0);
    EXPECT_EQ(shown("out.tbln"), "  valid\n  moved\n  unknown\n  duplicate\n");
}

TEST_F(FindingTest, removeMovesIntoTheWasteBasket) {
    makeDocument(kOneOfEach);
    ASSERT_EQ(
        tool.run({"remove", "--status", "duplicate,broken,unknown", "--move", "d.tbln", "-o", "out.tbln"}),
        0);
    EXPECT_EQ(tool.error, "3 bookmarks were moved to the Waste Basket.\n");
    EXPECT_EQ(shown("out.tbln"),
              "  valid\n  moved\n  Waste Basket/\n    duplicate\n    unknown\n    broken\n");
}

TEST_F(FindingTest, removeMovesTheWasteBasketToTheEndFirst) {
    makeDocument(R"({"name":"Waste Basket","folder":true,"children":[]},{"name":"a","status":3})");
    ASSERT_EQ(tool.run({"remove", "--status", "unknown", "d.tbln", "-o", "out.tbln"}), 0);
    EXPECT_EQ(tool.error, "0 bookmarks were deleted.\n");
    EXPECT_EQ(shown("out.tbln"), "  a\n  Waste Basket/\n");
}

TEST_F(FindingTest, removeDoesNotScan) {
    makeDocument(kThreeAlike);
    ASSERT_EQ(tool.run({"remove", "--status", "duplicate", "d.tbln", "-o", "out.tbln"}), 0);
    EXPECT_EQ(shown("out.tbln"), shown("d.tbln"));
}

TEST_F(FindingTest, removeWantsAStatusThatItKnowsAndAnOutput) {
    makeDocument(kOneOfEach);
    expectWrongUsage({"remove", "d.tbln", "-o", "out.tbln"});
    expectWrongUsage({"remove", "--status", "valid", "d.tbln", "-o", "out.tbln"});
    expectWrongUsage({"remove", "--status", "", "d.tbln", "-o", "out.tbln"});
    expectWrongUsage({"remove", "--status", "broken", "d.tbln"});
}

constexpr const char* kUnsorted = R"({"name":"b","url":"z","dateAdded":3,"dateModified":1},
    {"name":"F","folder":true,"children":[{"name":"d"},{"name":"C"}]},
    {"name":"A","url":"Y","tags":"t","dateAdded":2,"lastOpened":5})";

TEST_F(FindingTest, sortSortsTheWholeTreeFoldersFirst) {
    makeDocument(kUnsorted);
    ASSERT_EQ(tool.run({"sort", "--by", "name", "d.tbln", "-o", "out.tbln"}), 0) << tool.error;
    EXPECT_EQ(shown("out.tbln"), "  F/\n    C\n    d\n  A  <Y>\n  b  <z>\n");
    ASSERT_EQ(tool.run({"sort", "--by", "name", "--descending", "d.tbln", "-o", "out.tbln"}), 0);
    EXPECT_EQ(shown("out.tbln"), "  F/\n    d\n    C\n  b  <z>\n  A  <Y>\n");
}

TEST_F(FindingTest, sortKnowsEveryKey) {
    makeDocument(kUnsorted);
    const auto firstLink = [this](const char* key) {
        EXPECT_EQ(tool.run({"sort", "--by", key, "d.tbln", "-o", "out.tbln"}), 0) << tool.error;
        const std::string text = shown("out.tbln");
        return text.substr(text.find("<") - 3, 1);
    };
    EXPECT_EQ(firstLink("name"), "A");
    EXPECT_EQ(firstLink("url"), "A");
    EXPECT_EQ(firstLink("tags"), "A");
    EXPECT_EQ(firstLink("added"), "A");
    EXPECT_EQ(firstLink("modified"), "b");
    EXPECT_EQ(firstLink("opened"), "A");
}

TEST_F(FindingTest, sortFollowsTheLocale) {
    makeDocument(R"({"name":"öl"},{"name":"zebra"})");
    ASSERT_EQ(tool.run({"--locale", "sv_SE", "sort", "--by", "name", "d.tbln", "-o", "out.tbln"}), 0);
    EXPECT_EQ(shown("out.tbln"), "  zebra\n  öl\n");
    ASSERT_EQ(tool.run({"--locale", "de_DE", "sort", "--by", "name", "d.tbln", "-o", "out.tbln"}), 0);
    EXPECT_EQ(shown("out.tbln"), "  öl\n  zebra\n");
}

TEST_F(FindingTest, sortWantsAKeyThatItKnowsAndAnOutput) {
    makeDocument(kUnsorted);
    expectWrongUsage({"sort", "d.tbln", "-o", "out.tbln"});
    expectWrongUsage({"sort", "--by", "colour", "d.tbln", "-o", "out.tbln"});
    expectWrongUsage({"sort", "--by", "3", "d.tbln", "-o", "out.tbln"});
    expectWrongUsage({"sort", "--by", "name", "d.tbln"});
}

constexpr const char* kHits = R"({"name":"a hit","url":"u","tags":"hit"},
    {"name":"F","folder":true,"children":[{"name":"Hït\nline","note":"hit"},{"name":"none"}]},
    {"name":"b","tags":"hit","note":"hit"})";

TEST_F(FindingTest, findPrintsTheCountAndTheVisits) {
    makeDocument(kHits);
    ASSERT_EQ(tool.run({"find", "HIT", "d.tbln"}), 0) << tool.error;
    EXPECT_EQ(tool.out, "6 matches\n0\ta hit  <u>\n0\ta hit  <u>\n1/0\tHït line\n1/0\tHït line\n2\tb\n");
}

TEST_F(FindingTest, findAsJsonPrintsNodesWithTheirPath) {
    makeDocument(kHits);
    ASSERT_EQ(tool.run({"find", "--json", "hit", "d.tbln"}), 0) << tool.error;
    EXPECT_THAT(tool.out, StartsWith("{\"matches\": 6}\n{\"name\":\"a hit\",\"url\":\"u\","));
    EXPECT_EQ(std::count(tool.out.begin(), tool.out.end(), '\n'), 6);
    EXPECT_THAT(tool.out, HasSubstr("\"path\":\"1/0\"}\n"));
    EXPECT_EQ(tool.out.find("children"), std::string::npos);
}

TEST_F(FindingTest, findWithTheColumnOfTagsTakesThemForNames) {
    makeDocument(kHits);
    ASSERT_EQ(tool.run({"--default", "AddTagsColumn=YES", "find", "hit", "d.tbln"}), 0) << tool.error;
    EXPECT_EQ(tool.out, "5 matches\n0\ta hit  <u>\n1/0\tHït line\n1/0\tHït line\n2\tb\n2\tb\n");
}

TEST_F(FindingTest, findOfNothingFindsNothing) {
    makeDocument(kHits);
    ASSERT_EQ(tool.run({"find", "zzz", "d.tbln"}), 0);
    EXPECT_EQ(tool.out, "0 matches\n");
    ASSERT_EQ(tool.run({"find", "", "d.tbln"}), 0);
    EXPECT_EQ(tool.out, "0 matches\n");
    ASSERT_EQ(tool.run({"find", "Master", "d.tbln"}), 0);
    EXPECT_EQ(tool.out, "0 matches\n") << "once round does not meet the root";
}

TEST_F(FindingTest, aFailureWritesNothing) {
    tool.files.files["bad.tbln"] = "no document";
    const auto before = tool.files.files;
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"duplicates", "bad.tbln"},
          {"duplicates", "--mark", "bad.tbln", "-o", "out.tbln"},
          {"sort", "--by", "name", "bad.tbln", "-o", "out.tbln"},
          {"find", "text", "bad.tbln"},
          {"remove", "--status", "broken", "none.tbln", "-o", "out.tbln"}}) {
        EXPECT_EQ(tool.run(arguments), 1);
        EXPECT_EQ(tool.out, "");
        EXPECT_EQ(std::count(tool.error.begin(), tool.error.end(), '\n'), 1);
    }
    EXPECT_EQ(tool.files.files, before);
}

TEST_F(FindingTest, aBrokenOutputIsReportedOnce) {
    makeDocument(kThreeAlike);
    tool.outputBroken = true;
    EXPECT_EQ(tool.run({"duplicates", "d.tbln"}), 1);
    EXPECT_EQ(tool.error, "tabulon-cli: Cannot write the standard output: Broken pipe.\n");
}

// A hundred thousand links share one long address. The output would be 500 GB if it contained the address for
// each link.
TEST_F(FindingTest, aLongAddressThatManyLinksShareIsNotWrittenOutForEach) {
    const Text address("http://example.org/" + std::string(5'000'000, 'x'));
    Ref<Bookmark> master = Bookmark::initEmpty();
    master->makeParent();
    for (int i = 0; i < 100'000; ++i) {
        Ref<Bookmark> link = Bookmark::initEmpty();
        link->setItemName("n");
        link->setItemURL(address);
        master->addChild(std::move(link));
    }
    tool.files.files["d.tbln"] = writeDocumentArchive(*master);
    const ProcessorTime time;
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"find", "example", "d.tbln"},
                                                      {"find", "example", "d.tbln", "--json"},
                                                      {"duplicates", "d.tbln"},
                                                      {"duplicates", "d.tbln", "--json"},
                                                      {"show", "d.tbln"},
                                                      {"show", "--json", "d.tbln"},
                                                      {"export", "--to", "html", "d.tbln"},
                                                      {"export", "--to", "xbel", "d.tbln"},
                                                      {"export", "--to", "text", "d.tbln"}}) {
        EXPECT_EQ(tool.run(arguments), 1) << arguments[0];
        EXPECT_EQ(tool.out, "");
        EXPECT_THAT(tool.error, HasSubstr("share texts that are too long"));
    }
    // Commands that preserve the shared texts in their output succeed.
    EXPECT_EQ(tool.run({"sort", "--by", "url", "d.tbln", "-o", "s.tbln"}), 0) << tool.error;
    EXPECT_EQ(tool.run({"duplicates", "--delete", "d.tbln", "-o", "u.tbln"}), 0) << tool.error;
    EXPECT_LT(tool.files.files["s.tbln"].size(), 2 * tool.files.files["d.tbln"].size());
    EXPECT_LT(time.seconds(), 60);
}

// The paths alone would be twenty gigabytes of output.
TEST_F(FindingTest, pathsInADeepTreeAreNotWrittenOutForEachNode) {
    Ref<Bookmark> master = Bookmark::initEmpty();
    master->makeParent();
    Bookmark* folder = master.get();
    for (int i = 0; i < 200'000; ++i) {
        Ref<Bookmark> child = Bookmark::initEmpty();
        child->makeParent();
        child->setItemName("hit");
        folder->addChild(child);
        folder = child.get();
    }
    tool.files.files["d.tbln"] = writeDocumentArchive(*master);
    const ProcessorTime time;
    EXPECT_EQ(tool.run({"find", "hit", "d.tbln", "--json"}), 1);
    EXPECT_EQ(tool.out, "");
    EXPECT_THAT(tool.error, HasSubstr("nested too deep"));
    EXPECT_LT(time.seconds(), 30);
}

} // namespace
} // namespace tabulon
