// The contract of the tool: verbs, exit statuses, messages, outputs.
#include "tests/cli/Tool.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace tabulon {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

constexpr const char* kTree = R"({"name":"Master","folder":true,"openFolder":true,"children":[
  {"name":"b","url":"https://b.example/","dateAdded":1000000000.5},
  {"type":10},
  {"name":"A","folder":true,"children":[{"name":"inner\nline","url":"ftp://c"}]}]})";

constexpr const char* kHTML =
    "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n<DL><p>\n"
    "<DT><A HREF=\"https://a.example/\" ADD_DATE=\"1000000000\">One &amp; only</A>\n"
    "<HR>\n</DL><p>\n";

class CommandLineTest : public testing::Test {
protected:
    void makeDocument() {
        tool.files.files["tree.json"] = kTree;
        ASSERT_EQ(tool.run({"make", "tree.json", "-o", "d.tbln"}), 0) << tool.error;
    }
    void expectFailure(const std::vector<std::string>& arguments) {
        const auto before = tool.files.files;
        EXPECT_EQ(tool.run(arguments), 1);
        EXPECT_EQ(tool.out, "");
        EXPECT_THAT(tool.error, StartsWith("tabulon-cli: "));
        EXPECT_EQ(std::count(tool.error.begin(), tool.error.end(), '\n'), 1);
        EXPECT_EQ(tool.error.back(), '\n');
        EXPECT_EQ(tool.files.files, before);
    }
    void expectWrongUsage(const std::vector<std::string>& arguments) {
        EXPECT_EQ(tool.run(arguments), 2);
        EXPECT_EQ(tool.out, "");
        EXPECT_THAT(tool.error, StartsWith("tabulon-cli: "));
    }
    test::Tool tool;
};

TEST_F(CommandLineTest, anUnknownCommandIsNamed) {
    expectWrongUsage({"sohw", "d.tbln"});
    EXPECT_THAT(tool.error, testing::HasSubstr("There is no command sohw"));
    expectWrongUsage({});
    EXPECT_THAT(tool.error, testing::Not(testing::HasSubstr("There is no command")));
}

TEST_F(CommandLineTest, aSwitchTakesNoValue) {
    makeDocument();
    expectWrongUsage({"show", "--json=false", "d.tbln"});
}

TEST_F(CommandLineTest, makeAndShowAreInverse) {
    makeDocument();
    ASSERT_EQ(tool.run({"show", "--json", "d.tbln"}), 0);
    const std::string json = tool.out;
    EXPECT_EQ(json.find('\n'), json.size() - 1);
    tool.files.files["again.json"] = json;
    ASSERT_EQ(tool.run({"make", "again.json", "-o", "again.tbln"}), 0);
    EXPECT_EQ(tool.files.files["again.tbln"], tool.files.files["d.tbln"]);
}

TEST_F(CommandLineTest, showForPeopleIsOneLineANode) {
    makeDocument();
    ASSERT_EQ(tool.run({"show", "d.tbln"}), 0);
    EXPECT_EQ(tool.out, "Master/\n"
                        "  b  <https://b.example/>\n"
                        "  --------\n"
                        "  A/\n"
                        "    inner line  <ftp://c>\n");
}

TEST_F(CommandLineTest, showStopsIndentingAtThirtyTwoLevels) {
    std::string json;
    for (int i = 0; i < 40; ++i)
        json += R"({"name":"f","folder":true,"children":[)";
    for (int i = 0; i < 40; ++i)
        json += "]}";
    tool.in = json;
    ASSERT_EQ(tool.run({"make", "-", "-o", "deep.tbln"}), 0);
    ASSERT_EQ(tool.run({"show", "deep.tbln"}), 0);
    EXPECT_THAT(tool.out, HasSubstr("\n" + std::string(64, ' ') + "f/\n"));
    EXPECT_EQ(tool.out.find(std::string(65, ' ')), std::string::npos);
}

TEST_F(CommandLineTest, streamsStandInForFiles) {
    tool.in = kTree;
    ASSERT_EQ(tool.run({"make", "-", "-o", "-"}), 0);
    tool.in = tool.out;
    ASSERT_EQ(tool.run({"show", "-"}), 0);
    EXPECT_THAT(tool.out, HasSubstr("https://b.example/"));
    EXPECT_TRUE(tool.files.files.empty());
}

TEST_F(CommandLineTest, importWritesADocumentToStandardOutputByDefault) {
    tool.files.files["in.html"] = kHTML;
    ASSERT_EQ(tool.run({"import", "--from", "html", "in.html"}), 0) << tool.error;
    tool.in = tool.out;
    ASSERT_EQ(tool.run({"show", "-"}), 0);
    EXPECT_EQ(tool.out, "Master/\n  One & only  <https://a.example/>\n  --------\n");
}

TEST_F(CommandLineTest, importedRootIsNamedMasterAndExpanded) {
    tool.files.files["in.html"] = kHTML;
    ASSERT_EQ(tool.run({"import", "--from", "html", "in.html", "-o", "d.tbln"}), 0) << tool.error;
    ASSERT_EQ(tool.run({"show", "--json", "d.tbln"}), 0);
    EXPECT_THAT(tool.out, StartsWith("{\"name\":\"Master\","));
    EXPECT_THAT(tool.out, HasSubstr("\"folder\":true,\"openFolder\":true,\"autoTab\":false,\"children\":[{"));
    EXPECT_THAT(tool.out, HasSubstr("\"url\":\"https://a.example/\",\"note\":null,\"tags\":null,"
                                    "\"dateAdded\":1000000000.0,\"dateModified\":null,"));
}

TEST_F(CommandLineTest, importWithoutLinksFailsWithTheTextOfTheAlert) {
    tool.files.files["in.html"] = "<html>nothing</html>";
    expectFailure({"import", "--from", "html", "in.html", "-o", "out.tbln"});
    EXPECT_THAT(tool.error, HasSubstr("in.html: No links were found"));
}

TEST_F(CommandLineTest, exportWritesHTML) {
    makeDocument();
    ASSERT_EQ(tool.run({"export", "--to", "html", "d.tbln", "-o", "out.html"}), 0) << tool.error;
    EXPECT_THAT(tool.files.files["out.html"], StartsWith("<!DOCTYPE NETSCAPE-Bookmark-file-1>\n"));
    EXPECT_THAT(tool.files.files["out.html"],
                HasSubstr("\t<DT><A HREF=\"https://b.example/\" ADD_DATE=\"1000000000\">b</A>"));
}

TEST_F(CommandLineTest, defaultsHoldForOneRun) {
    makeDocument();
    ASSERT_EQ(tool.run({"export", "--to", "html", "d.tbln"}), 0);
    EXPECT_LT(tool.out.find(">b</A>"), tool.out.find(">A</H3>"));
    ASSERT_EQ(tool.run({"--default", "ExportSortName=YES", "export", "--to", "html", "d.tbln"}), 0);
    EXPECT_GT(tool.out.find(">b</A>"), tool.out.find(">A</H3>"));
    ASSERT_EQ(tool.run({"--default", "ExportSortName=1", "--default", "ExportSortName=NO", "export", "--to",
                        "html", "d.tbln"}),
              0);
    EXPECT_LT(tool.out.find(">b</A>"), tool.out.find(">A</H3>"));
}

TEST_F(CommandLineTest, optionsOfTheTextExportDoNotApplyToHTML) {
    makeDocument();
    ASSERT_EQ(tool.run({"export", "--to", "html", "d.tbln"}), 0);
    const std::string html = tool.out;
    for (const std::string key :
         {"ExportName", "ExportURL", "ExportTags", "ExportNote", "SkipFolders", "SkipSeparators"})
        for (const char* value : {"=YES", "=NO"}) {
            ASSERT_EQ(tool.run({"--default", key + value, "export", "--to", "html", "d.tbln"}), 0);
            EXPECT_EQ(tool.out, html) << key << value;
        }
}

TEST_F(CommandLineTest, localeChoosesTheCollation) {
    tool.in = R"({"folder":true,"children":[{"name":"ö","url":"u"},{"name":"z","url":"u"}]})";
    ASSERT_EQ(tool.run({"make", "-", "-o", "d.tbln"}), 0);
    const auto sortedFirst = [&](const char* locale) {
        EXPECT_EQ(tool.run({"--locale", locale, "--default", "ExportSortName=YES", "export", "--to", "html",
                            "d.tbln"}),
                  0);
        return tool.out.find("ö") < tool.out.find(">z<") ? "ö" : "z";
    };
    EXPECT_STREQ(sortedFirst("de_DE"), "ö");
    EXPECT_STREQ(sortedFirst("sv"), "z");
    EXPECT_STREQ(sortedFirst("C"), "ö");
    EXPECT_STREQ(sortedFirst("POSIX"), "ö");
}

TEST_F(CommandLineTest, countryOfTheLocaleChoosesTheEncodingOfClassicFiles) {
    const std::string record = std::string("\0\0\0\1", 4) + std::string(44, '\0');
    tool.files.files["classic"] = std::string("\0\3\0\0\0\0\0\0\0\0\0\1", 12) + std::string(8, '\0') +
                                  record + std::string("\0\2\x93\xFA\0", 5);
    ASSERT_EQ(tool.run({"--locale", "en_JP", "show", "classic"}), 0) << tool.error;
    EXPECT_THAT(tool.out, HasSubstr("日"));
    ASSERT_EQ(tool.run({"--locale", "ja", "show", "classic"}), 0) << tool.error;
    EXPECT_THAT(tool.out, HasSubstr("ì˙"));
}

TEST_F(CommandLineTest, failuresAreOneLineStatusOneAndNoOutput) {
    tool.files.files["bad.tbln"] = "neither this\nnor that";
    tool.files.files["kept.html"] = "kept";
    expectFailure({"show", "missing.tbln"});
    expectFailure({"show", "--json", "bad.tbln"});
    expectFailure({"export", "--to", "html", "bad.tbln", "-o", "kept.html"});
    expectFailure({"import", "--from", "html", "missing.html", "-o", "out.tbln"});
    expectFailure({"make", "missing.json", "-o", "out.tbln"});
    expectFailure({"show", "a\nb"});
}

TEST_F(CommandLineTest, failedWriteIsReported) {
    makeDocument();
    tool.files.diskFull = true;
    expectFailure({"export", "--to", "html", "d.tbln", "-o", "out.html"});
    tool.files.diskFull = false;
    tool.outputBroken = true;
    expectFailure({"show", "d.tbln"});
}

TEST_F(CommandLineTest, nothingThatIsShownDrivesTheTerminal) {
    tool.in = R"({"children":[{"name":"x\u001b[31my\u009bz\u2028w\u202ev\u2066u\u00e9"}]})";
    ASSERT_EQ(tool.run({"make", "-", "-o", "e.tbln"}), 0) << tool.error;
    ASSERT_EQ(tool.run({"show", "e.tbln"}), 0);
    EXPECT_EQ(tool.out, "Master/\n  x [31my z w v u\u00e9\n");
    expectFailure({"show", "no\x1b[31mfile"});
    EXPECT_EQ(tool.error.find('\x1b'), std::string::npos);
}

TEST_F(CommandLineTest, deepTreeIsNoHTMLFile) {
    std::string json;
    for (int i = 0; i < 60000; ++i)
        json += R"({"folder":true,"children":[)";
    for (int i = 0; i < 60000; ++i)
        json += "]}";
    tool.in = json;
    ASSERT_EQ(tool.run({"make", "-", "-o", "deep.tbln"}), 0) << tool.error;
    expectFailure({"export", "--to", "html", "deep.tbln", "-o", "out.html"});
    EXPECT_THAT(tool.error, HasSubstr("nested too deep"));
}

TEST_F(CommandLineTest, linkWritesTheBookmarkAtThePath) {
    tool.in =
        R"({"children":[{"name":"a","url":"https://a.example/"},)"
        R"({"folder":true,"children":[{"name":"b","url":"mailto:b@b.example?subject=1&2","type":3}]}]})";
    ASSERT_EQ(tool.run({"make", "-", "-o", "d.tbln"}), 0) << tool.error;
    ASSERT_EQ(tool.run({"link", "d.tbln", "--path", "0", "-o", "a.webloc"}), 0) << tool.error;
    EXPECT_THAT(tool.files.files["a.webloc"], HasSubstr("<string>https://a.example/</string>"));
    ASSERT_EQ(tool.run({"link", "d.tbln", "--path", "1/0", "-o", "-"}), 0) << tool.error;
    EXPECT_THAT(tool.out, HasSubstr("<string>mailto:b@b.example?subject=1&amp;2</string>"));
}

TEST_F(CommandLineTest, linkOfWhatIsNotThereOrHasNoURLFailsAndKeepsTheOldFile) {
    tool.in = R"({"children":[{"name":"a","url":"https://a.example/"},{"folder":true},{"name":"n"},)"
              R"({"url":""},{"url":"https://c.example/\u0001"}]})";
    ASSERT_EQ(tool.run({"make", "-", "-o", "d.tbln"}), 0) << tool.error;
    tool.files.files["out"] = "old";
    const auto reasonAt = [&](const char* path) {
        expectFailure({"link", "d.tbln", "--path", path, "-o", "out"});
        EXPECT_EQ(tool.files.files["out"], "old");
        return tool.error;
    };
    for (const char* path : {"5", "0/0", "1/0", "99999999999999999999999"})
        EXPECT_EQ(reasonAt(path),
                  std::string("tabulon-cli: d.tbln: There is no node at the path ") + path + ".\n");
    for (const char* path : {"", "1", "2", "3"})
        EXPECT_THAT(reasonAt(path), HasSubstr("There is no URL to write")) << path;
    EXPECT_THAT(reasonAt("4"), HasSubstr("control characters"));
}

TEST_F(CommandLineTest, linkPathOfAnotherFormIsWrongUsage) {
    makeDocument();
    for (const char* path : {"/", "/0", "0/", "0//1", "-1", "a", "0.1", " 0"})
        expectWrongUsage({"link", "d.tbln", "--path", path, "-o", "out"});
    expectWrongUsage({"link", "d.tbln", "-o", "out"});
    expectWrongUsage({"link", "d.tbln", "--path", "0"});
}

TEST_F(CommandLineTest, helpThatCannotBeWrittenIsAFailure) {
    tool.outputBroken = true;
    expectFailure({"--help"});
}

TEST_F(CommandLineTest, wrongUsageIsStatusTwo) {
    makeDocument();
    expectWrongUsage({});
    expectWrongUsage({"frobnicate"});
    expectWrongUsage({"show"});
    expectWrongUsage({"show", "a", "b"});
    expectWrongUsage({"show", "--unknown", "d.tbln"});
    expectWrongUsage({"import", "in.html"});
    expectWrongUsage({"import", "--from", "nonsense", "in.html"});
    expectWrongUsage({"export", "--to", "nonsense", "d.tbln"});
    expectWrongUsage({"make", "tree.json"});
    expectWrongUsage({"--default", "NoValue", "show", "d.tbln"});
    expectWrongUsage({"--default", "=x", "show", "d.tbln"});
    expectWrongUsage({"--default", "Frobnicate=YES", "show", "d.tbln"});
    expectWrongUsage({"--default", "showmarks=YES", "show", "d.tbln"});
    expectWrongUsage({"--default", "ShowMarks =YES", "show", "d.tbln"});
}

TEST_F(CommandLineTest, wrongUsageNamesTheFault) {
    expectWrongUsage({"frobnicate"});
    EXPECT_EQ(tool.error, "tabulon-cli: There is no command frobnicate (see tabulon-cli --help)\n");
    expectWrongUsage({"--frobnicate"});
    EXPECT_EQ(tool.error, "tabulon-cli: There is no option --frobnicate (see tabulon-cli --help)\n");
    expectWrongUsage({"show"});
    EXPECT_EQ(tool.error, "tabulon-cli: INPUT is required (see tabulon-cli --help)\n");
    expectWrongUsage({"--default", "Frobnicate=YES", "show", "d.tbln"});
    EXPECT_EQ(tool.error,
              "tabulon-cli: --default: there is no setting Frobnicate (see tabulon-cli --help)\n");
}

TEST_F(CommandLineTest, settingsOfEveryTypeAreAccepted) {
    makeDocument();
    for (const char* setting : {"ShowMarks=YES", "CopyFormat=3", "FontSize=12.5", "FontName=Serif",
                                "BackupFolderBookmark=/a=b", "IncludeHistory=YES", "LastOpened="})
        EXPECT_EQ(tool.run({"--default", setting, "show", "d.tbln"}), 0) << setting << tool.error;
}

TEST_F(CommandLineTest, helpAndVersion) {
    for (const char* verb :
         {"import", "export", "show", "make", "link", "duplicates", "remove", "sort", "find"}) {
        EXPECT_EQ(tool.run({verb, "--help"}), 0);
        EXPECT_THAT(tool.out, HasSubstr(verb));
        EXPECT_THAT(tool.out, HasSubstr("INPUT"));
        EXPECT_EQ(tool.error, "");
    }
    EXPECT_EQ(tool.run({"--help"}), 0);
    EXPECT_THAT(tool.out, HasSubstr("Exit status"));
    EXPECT_EQ(tool.run({"--version"}), 0);
    EXPECT_THAT(tool.out, MatchesRegex("tabulon-cli [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

} // namespace
} // namespace tabulon
