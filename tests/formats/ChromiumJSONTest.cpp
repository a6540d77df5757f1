// Tests the import of bookmarks of Chromium's family and of Opera, rule by rule.
#include "formats/import/ChromiumJSON.h"

#include "base/Utf8.h"
#include "formats/ImportFormats.h"
#include "model/ArchiveWriter.h"
#include "platform/fake/FakeBaseServices.h"
#include "tests/formats/ReferenceChromium.h"
#include "tests/formats/TreeText.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tabulon {
namespace {

namespace fs = std::filesystem;

using Read = decltype(&readChromiumBookmarks);

std::string withRoots(const std::string& roots) {
    return R"({"checksum": "x", "roots": {)" + roots + R"(}, "version": 1})";
}

class ChromiumJSON : public testing::Test {
protected:
    Ref<Bookmark> read(Read reader, const std::string& json) {
        auto tree = reader(json, {fakes.services()});
        EXPECT_TRUE(tree) << json;
        return tree ? *tree : Bookmark::initEmpty();
    }
    Ref<Bookmark> chromium(const std::string& roots) { return read(readChromiumBookmarks, withRoots(roots)); }
    Ref<Bookmark> opera(const std::string& roots) { return read(readOperaBookmarks, withRoots(roots)); }
    /// Returns the bookmarks bar with these children.
    Ref<Bookmark> bar(const std::string& children) {
        return chromium(R"("bookmark_bar": {"children": [)" + children + "]}")->getChild();
    }
    std::string text(const Bookmark& root) {
        return test::treeText(test::treeLines(root), fakes.now().unixSeconds());
    }
    static const Bookmark& child(const Bookmark& parent, std::size_t index) {
        return *parent.getChildren()->at(index);
    }

    FakeBaseServices fakes;
};

TEST_F(ChromiumJSON, linkHasNameURLDatesAndNote) {
    EXPECT_EQ(text(*bar(R"({"date_added": "13000000000000000", "date_modified": "13000000001000000",
        "meta_info": {"Description": "note", "x": "y"}, "name": "N", "type": "url", "url": "HTTP://Example.org"})")),
              "link \"N\" <HTTP://Example.org> added 1355526400 modified 1355526401 note \"note\"\n");
}

TEST_F(ChromiumJSON, whatIsAbsentIsNullButForTheName) {
    EXPECT_EQ(text(*bar(R"({"type": "url"})")), "link \"Untitled\" added null\n");
    EXPECT_EQ(text(*bar(R"({"type": "url", "name": "", "url": "", "meta_info": {"Description": ""}})")),
              "link \"Untitled\" <> added null note \"\"\n");
    EXPECT_EQ(text(*bar(R"({"type": "url", "name": "n", "meta_info": {}})")), "link \"n\" added null\n");
}

TEST_F(ChromiumJSON, linksAreClassified) {
    EXPECT_EQ(bar(R"({"type": "url", "url": "mailto:a@example.org"})")->getChild()->getType(), kMailType);
    EXPECT_EQ(bar(R"({"url": "ftp://example.org", "type": "url"})")->getChild()->getType(), kFTPType);
}

TEST_F(ChromiumJSON, folderHasNameAndAddedDateOnly) {
    EXPECT_EQ(text(*bar(R"({"type": "folder", "name": "F", "url": "u", "meta_info": {"Description": "d"},
        "date_added": "13000000000000000", "date_modified": "13000000000000000",
        "children": [{"type": "folder"}]})")),
              "folder \"F\" added 1355526400\n  folder \"Untitled\" added null\n");
}

TEST_F(ChromiumJSON, folderWithoutChildrenIsAnEmptyFolder) {
    const Ref<Bookmark> folder = bar(R"({"type": "folder", "name": "F"})");
    EXPECT_TRUE(folder->getChild()->isFolder());
    ASSERT_NE(folder->getChild()->getChildren(), nullptr);
    EXPECT_TRUE(folder->getChild()->getChildren()->empty());
}

TEST_F(ChromiumJSON, anyOtherTypeIsSkippedWithItsSubtree) {
    for (const char* type : {R"("type": "separator",)", R"("type": "URL",)", R"("type": "Folder",)",
                             R"("type": 1,)", R"("type": null,)", ""})
        EXPECT_EQ(text(*bar(std::string("{") + type +
                            R"("name": "x", "children": [{"type": "url"}]}, {"type": "url", "name": "y"})")),
                  "link \"y\" added null\n");
    EXPECT_EQ(text(*bar(R"(1, "url", null, [{"type": "url"}], {"type": "url", "name": "y"})")),
              "link \"y\" added null\n");
}

TEST_F(ChromiumJSON, keysComeInAnyOrder) {
    EXPECT_EQ(
        text(*bar(
            R"({"children": [{"url": "u", "type": "url", "name": "n"}], "name": "F", "type": "folder"})")),
        "folder \"F\" added null\n  link \"n\" <u> added null\n");
    EXPECT_EQ(text(*bar(R"({"children": [{"type": "url"}], "name": "n", "url": "u", "type": "url"})")),
              "link \"n\" <u> added null\n");
    EXPECT_EQ(bar(R"({"children": [], "type": "url"})")->getChild()->getChildren(), nullptr);
}

TEST_F(ChromiumJSON, ofEqualKeysTheLastCounts) {
    EXPECT_EQ(text(*bar(R"({"type": "folder", "name": "a", "children": [{"type": "url"}], "children": [],
        "name": "b", "type": "folder"})")),
              "folder \"b\" added null\n");
    EXPECT_EQ(
        text(*bar(
            R"({"type": "folder", "name": "a", "children": [{"type": "url"}], "children": 5, "name": 1})")),
        "folder \"Untitled\" added null\n");
    EXPECT_EQ(
        text(*bar(R"({"type": "folder", "type": "url", "date_added": "13000000000000000", "date_added": 0,
        "meta_info": {"Description": "d"}, "meta_info": {}})")),
        "link \"Untitled\" added null\n");
    EXPECT_EQ(text(*chromium(R"("other": {"children": [{"type": "url"}]}, "other": {})")),
              "folder \"Favourites\" added null\nfolder \"Other Bookmarks\" added null\n");
    EXPECT_EQ(text(*read(readChromiumBookmarks,
                         R"({"roots": {"other": {"children": [{"type": "url"}]}}, "roots": {}})")),
              "folder \"Favourites\" added null\nfolder \"Other Bookmarks\" added null\n");
}

TEST_F(ChromiumJSON, valuesOfAnotherKindCountAsAbsent) {
    EXPECT_EQ(text(*bar(R"({"type": "url", "name": 5, "url": ["u"], "date_added": 13000000000000000,
        "date_modified": {}, "meta_info": "Description"})")),
              "link \"Untitled\" added null\n");
    EXPECT_EQ(text(*chromium(R"("bookmark_bar": {"children": {"type": "url"}}, "other": [])")),
              "folder \"Favourites\" added null\nfolder \"Other Bookmarks\" added null\n");
}

TEST_F(ChromiumJSON, emptyRootsGiveTwoEmptyFolders) {
    const Ref<Bookmark> master = chromium("");
    EXPECT_EQ(master->itemName().view(), "Master");
    EXPECT_TRUE(master->isFolder());
    EXPECT_EQ(text(*master), "folder \"Favourites\" added null\nfolder \"Other Bookmarks\" added null\n");
    EXPECT_EQ(child(*master, 0).getLabel(), 1);
    EXPECT_EQ(child(*master, 1).getLabel(), 0);
}

TEST_F(ChromiumJSON, ofTheRootsOnlyTheBarHasAModifiedDate) {
    const std::string root =
        R"({"name": "Own", "date_added": "13000000000000000", "date_modified": "13000000002000000", "type": "x"})";
    EXPECT_EQ(text(*chromium("\"bookmark_bar\": " + root + ", \"other\": " + root)),
              "folder \"Favourites\" added 1355526400 modified 1355526402\n"
              "folder \"Other Bookmarks\" added 1355526400\n");
    EXPECT_TRUE(child(*opera("\"bookmark_bar\": " + root), 0).itemDateModified().isNull());
}

TEST_F(ChromiumJSON, chromiumNeverReadsOtherRoots) {
    const std::string full = R"({"children": [{"type": "url"}]})";
    EXPECT_EQ(text(*chromium("\"synced\": " + full + ", \"mobile\": " + full +
                             R"(, "custom_root": {"userRoot": )" + full + "}")),
              "folder \"Favourites\" added null\nfolder \"Other Bookmarks\" added null\n");
}

TEST_F(ChromiumJSON, withoutRootsNothingIsImportedAndNoAlertIsShown) {
    for (const Read reader : {readChromiumBookmarks, readOperaBookmarks})
        for (const char* json : {"{}", "[]", R"({"roots": []})", R"({"roots": {}, "roots": null})",
                                 R"({"x": {"roots": {}}})", R"([{"roots": {}}])"}) {
            const auto tree = reader(json, {fakes.services()});
            ASSERT_FALSE(tree) << json;
            EXPECT_EQ(tree.error().domain, ErrorDomain::Cocoa);
            EXPECT_EQ(tree.error().code, kUserCancelledError);
            EXPECT_TRUE(tree.error().message.ends_with('.'));
        }
}

TEST_F(ChromiumJSON, operaAlwaysHasFiveFolders) {
    const Ref<Bookmark> master = opera("");
    EXPECT_EQ(text(*master),
              "folder \"Favourites\" added null\nfolder null added null\nfolder null added null\n"
              "folder null added null\nfolder null added null\n");
    EXPECT_EQ(master->getChild()->getLabel(), 1);
}

TEST_F(ChromiumJSON, operaRootsHaveTheirOwnNamesButTheBar) {
    const auto root = [](const char* name) {
        return std::string(R"({"name": ")") + name +
               R"(", "date_added": "13000000000000000", "children": [{"type": "url", "name": "in )" + name +
               "\"}]}";
    };
    EXPECT_EQ(text(*opera(R"("trash": )" + root("no trash") + R"(, "synced": )" + root("S") +
                          R"(, "other": )" + root("O") + R"(, "custom_root": {"trash": )" + root("T") +
                          R"(, "userRoot": )" + root("U") + R"(}, "bookmark_bar": )" + root("B"))),
              "folder \"Favourites\" added 1355526400\n  link \"in B\" added null\n"
              "folder \"U\" added 1355526400\n  link \"in U\" added null\n"
              "folder \"T\" added 1355526400\n  link \"in T\" added null\n"
              "folder \"O\" added 1355526400\n  link \"in O\" added null\n"
              "folder \"S\" added 1355526400\n  link \"in S\" added null\n");
}

TEST_F(ChromiumJSON, operaFillsTheSyncedFolderOnlyWhereThereIsAnOtherRoot) {
    const std::string synced = R"("synced": {"name": "S", "children": [{"type": "url"}]})";
    EXPECT_FALSE(child(*opera(synced), 4).hasChildren());
    EXPECT_EQ(child(*opera(synced), 4).itemName().view(), "S");
    EXPECT_FALSE(child(*opera(synced + R"(, "other": "text")"), 4).hasChildren());
    EXPECT_TRUE(child(*opera(synced + R"(, "other": {})"), 4).hasChildren());
}

TEST_F(ChromiumJSON, operaReadsUserRootAndTrashOnlyInTheCustomRoot) {
    const std::string full = R"({"name": "n", "children": [{"type": "url"}]})";
    EXPECT_EQ(
        text(*opera("\"userRoot\": " + full + ", \"trash\": " + full + R"(, "custom_root": [)" + full + "]")),
        text(*opera("")));
}

double secondsOf(std::string_view timestamp) {
    const Date date = dateOfChromium(timestamp);
    EXPECT_FALSE(date.isNull()) << timestamp;
    return date.unixSeconds();
}

TEST_F(ChromiumJSON, timestampsAreMicrosecondsSince1601WithoutTheFraction) {
    EXPECT_EQ(secondsOf("13000000000000000"), 1355526400);
    EXPECT_EQ(secondsOf("13000000000999999"), 1355526400);
    EXPECT_EQ(secondsOf("11644473600000000"), 0);
    EXPECT_TRUE(dateOfChromium("0").isNull());
    EXPECT_TRUE(dateOfChromium("").isNull());
}

TEST_F(ChromiumJSON, timestampsBefore1970ComeOutFarInTheFuture) {
    EXPECT_EQ(secondsOf("11644473599999999"), 18446744073709551615.0);
    EXPECT_EQ(secondsOf("1"), 18446744062065078016.0);
    EXPECT_EQ(secondsOf("00"), 18446744062065078016.0);
    EXPECT_EQ(secondsOf("no number"), 18446744062065078016.0);
}

TEST_F(ChromiumJSON, negativeAndHugeTimestampsAreReadAs64Bits) {
    EXPECT_EQ(secondsOf("-1"), 18446744073709.0 - 11644473600.0);
    EXPECT_EQ(secondsOf("9223372036854775807"), 9223372036854.0 - 11644473600.0);
    EXPECT_EQ(secondsOf("99999999999999999999999999"), secondsOf("9223372036854775807"));
    EXPECT_EQ(secondsOf("-99999999999999999999999999"), secondsOf("-9223372036854775808"));
    EXPECT_EQ(secondsOf("  +13000000000000000 and more"), 1355526400);
}

TEST_F(ChromiumJSON, hugeDatesSurviveInTheTree) {
    const Ref<Bookmark> folder = bar(R"({"type": "url", "date_added": "1"})");
    EXPECT_EQ(folder->getChild()->itemDateAdded().unixSeconds(), 18446744062065078016.0);
}

TEST_F(ChromiumJSON, textsAreUnescaped) {
    EXPECT_EQ(bar(R"({"ty\u0070e": "\u0075rl", "name": "a\u003Cb\"\\\/\n\ud83d\udd16é\u0000"})")
                  ->getChild()
                  ->itemName()
                  .view(),
              std::string_view("a<b\"\\/\n\xF0\x9F\x94\x96\xC3\xA9\0", 14));
}

TEST_F(ChromiumJSON, aByteOrderMarkIsPassedOver) {
    EXPECT_TRUE(readChromiumBookmarks("\xEF\xBB\xBF{\"roots\":{}}", {fakes.services()}));
}

TEST_F(ChromiumJSON, numbersOfAnySizeAreSound) {
    read(readChromiumBookmarks,
         R"({"roots": {}, "a": [123456789012345678901234567890, 1e9999, -0, 0.5E-7, 1e+2]})");
}

TEST_F(ChromiumJSON, aFlawAnywhereIsRefused) {
    for (const char* value : {"tru",
                              "nul",
                              "truefalse",
                              "01",
                              "1.",
                              ".5",
                              "-",
                              "1e",
                              "+1",
                              "NaN",
                              "'x'",
                              "\"\\x\"",
                              "\"\\ud83d\"",
                              "\"\\udd16\"",
                              "\"\\u12\"",
                              "\"\t\"",
                              "\"\xFF\"",
                              "[1,]",
                              "[,1]",
                              "[1 2]",
                              "{\"a\"}",
                              "{\"a\":}",
                              "{\"a\":1,}",
                              "{a:1}",
                              "{\"a\":1 \"b\":2}",
                              "{\"a\":\"b\":1}",
                              "[1}",
                              "{\"a\":1]",
                              "",
                              "[",
                              "{",
                              "]",
                              "}",
                              "1 2",
                              "\"",
                              "{\"\\x\":1}",
                              "{\"\\ud83d\":1}",
                              "// c\n1",
                              "\xEF\xBB\xBF"
                              "1"}) {
        const std::string last = std::string(R"({"roots": {}, "x": )") + value + "}";
        const std::string inside = std::string(R"({"x": {"y": [0, )") + value + R"(]}, "roots": {}})";
        for (const std::string& json : {last, inside}) {
            const auto tree = readChromiumBookmarks(json, {fakes.services()});
            ASSERT_FALSE(tree) << json;
            EXPECT_EQ(tree.error().domain, ErrorDomain::None);
            EXPECT_TRUE(tree.error().message.ends_with('.'));
        }
    }
}

TEST_F(ChromiumJSON, whatIsNoJSONIsRefused) {
    for (const char* json :
         {"", " ", "text", "{", "}", "[", "{}{}", "{} x", "{}}", "null", "\"roots\"", "5", "{\"roots\":{}",
          "{\"roots\":{\"other\":{}}", "\xEF\xBB\xBF", "<html/>", "{\"roots\":{}}\xFF"}) {
        const auto tree = readOperaBookmarks(json, {fakes.services()});
        ASSERT_FALSE(tree) << json;
        EXPECT_EQ(tree.error().domain, ErrorDomain::None) << json;
    }
}

TEST_F(ChromiumJSON, everyCutOffFileIsRefused) {
    const std::string json = withRoots(R"("other": {"children": [{"name": "n", "type": "url"}]})");
    for (std::size_t size = 0; size < json.size(); ++size)
        EXPECT_FALSE(readChromiumBookmarks(std::string(json, 0, size), {fakes.services()})) << size;
}

std::string nested(std::size_t folders) {
    std::string json = R"({"roots": {"other": {"children": [)";
    for (std::size_t i = 0; i < folders; ++i)
        json += R"({"type": "folder", "children": [)";
    for (std::size_t i = 0; i < folders; ++i)
        json += "]}";
    return json + "]}}}";
}

TEST_F(ChromiumJSON, deepFoldersAreReadWithoutRecursion) {
    const Ref<Bookmark> master = read(readChromiumBookmarks, nested(200'000));
    const Bookmark* folder = child(*master, 1).getChild();
    std::size_t depth = 0;
    for (; folder; folder = folder->getChild())
        ++depth;
    EXPECT_EQ(depth, 200'000u);
}

TEST_F(ChromiumJSON, nestingBeyondTheLimitIsRefusedWithItsReason) {
    for (const std::string& json :
         {nested(500'000), std::string(5'000'000, '['),
          R"({"roots": {}, "x": )" + std::string(1'000'000, '[') + std::string(1'000'000, ']') + "}"}) {
        const auto tree = readChromiumBookmarks(json, {fakes.services()});
        ASSERT_FALSE(tree);
        // The input that consists of "[" only fails earlier, with another error.
        EXPECT_EQ(tree.error().message.find("nested") != std::string::npos, json.front() == '{');
    }
}

TEST_F(ChromiumJSON, randomFilesAreReadAsStepByStep) {
    std::mt19937 random(1601);
    int read = 0;
    for (int i = 0; i < 4000; ++i) {
        const test::Json file = test::randomBookmarks(random);
        const std::string json = test::written(file, random);
        for (const bool isOpera : {false, true}) {
            const Ref<Bookmark> expected = isOpera ? test::referenceOpera(file, fakes.services())
                                                   : test::referenceChromium(file, fakes.services());
            const auto tree = isOpera ? readOperaBookmarks(json, {fakes.services()})
                                      : readChromiumBookmarks(json, {fakes.services()});
            ASSERT_EQ(static_cast<bool>(tree), static_cast<bool>(expected)) << json;
            if (!tree)
                continue;
            ASSERT_EQ(text(**tree), text(*expected)) << json;
            ASSERT_EQ(writeDocumentArchive(**tree), writeDocumentArchive(*expected)) << json;
            ++read;
        }
    }
    EXPECT_GT(read, 4000);
}

std::string contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Each folder contains a file and, for one or both readers, the expected tree as text or the expected error.
TEST_F(ChromiumJSON, everyFileOfTheCorpusGivesTheExpectedTree) {
    int cases = 0;
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(TABULON_CORPUS_DIR) / "chromium-json"))
        for (const char* format : {"chromium", "opera"}) {
            const fs::path expected = entry.path() / (std::string("expected-") + format + ".txt");
            if (!fs::exists(expected))
                continue;
            SCOPED_TRACE(expected.string());
            const auto tree =
                importFormatNamed(format)->read(contentOf(entry.path() / "Bookmarks"), {fakes.services()});
            EXPECT_EQ(tree ? text(**tree) : tree.error().message + '\n', contentOf(expected));
            ++cases;
        }
    EXPECT_GE(cases, 8);
}

TEST_F(ChromiumJSON, theFiveBrowsersOfTheFamilyAreReadAlike) {
    for (const char* name : {"chrome", "chromium", "vivaldi", "brave", "edge"}) {
        const ImportFormat* format = importFormatNamed(name);
        ASSERT_NE(format, nullptr) << name;
        const auto tree = format->read(withRoots(""), {fakes.services()});
        ASSERT_TRUE(tree);
        EXPECT_EQ((*tree)->getChildren()->size(), 2u) << name;
    }
}

TEST(OperaLog, theLineEndsAfterAKilobyteAndAWholeCharacter) {
    FakeBaseServices fakes;
    std::string name;
    for (int i = 0; i < 3000; ++i)
        name += "é";
    ASSERT_TRUE(readOperaBookmarks(R"({"roots":{"other":{"name":")" + name + R"("}}})", {fakes.services()}));
    ASSERT_EQ(fakes.log.lines.size(), 1u);
    const std::string& line = fakes.log.lines.front();
    EXPECT_TRUE(line.starts_with("dictionary : {\"roots\""));
    EXPECT_LE(line.size(), 1024u);
    EXPECT_GE(line.size(), 1023u);
    EXPECT_TRUE(isValidUtf8(line));
}

} // namespace
} // namespace tabulon
