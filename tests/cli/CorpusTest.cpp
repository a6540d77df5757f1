// The corpus folders, read and exported by the tool. tests/corpus/{archive,classic}/<case> contains the input
// and the expected JSON of the tree, or the expected line of the error. tests/corpus/export/<case> contains a
// tree as JSON, optional settings in `defaults`, and the expected output of each format in expected.<format>.
#include "formats/ExportFormats.h"
#include "platform/fake/MemoryFileStore.h"
#include "tests/cli/Tool.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace tabulon {
namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class CorpusTest : public testing::TestWithParam<const char*> {};

TEST_P(CorpusTest, documentsReadAsExpected) {
    int cases = 0;
    for (const auto& entry : fs::directory_iterator(fs::path(TABULON_CORPUS_DIR) / GetParam())) {
        SCOPED_TRACE(entry.path().filename().string());
        test::Tool tool;
        tool.in = contentOf(entry.path() / "input");
        ASSERT_FALSE(tool.in.empty());
        const int status = tool.run({"show", "--json", "-"});
        if (fs::exists(entry.path() / "expected.json")) {
            EXPECT_EQ(status, 0) << tool.error;
            EXPECT_EQ(tool.out, contentOf(entry.path() / "expected.json"));
        } else {
            EXPECT_EQ(status, 1);
            EXPECT_EQ(tool.error, contentOf(entry.path() / "expected.error"));
        }
        ++cases;
    }
    EXPECT_GE(cases, 5);
}

struct ImportCase {
    const char* format;
    const char* folder;
    const char* file;
};

// expected.json is the tree of the imported document, expected.error the line of the error.
TEST(ImportCorpusTest, filesOfOtherProgramsAreImportedAsExpected) {
    constexpr ImportCase kCases[] = {
        {"safari", "plist/safari-xml", "input.plist"},
        {"safari", "plist/safari-binary", "input.plist"},
        {"safari", "plist/safari-shared", "input.plist"},
        {"safari", "plist/safari-doubling", "input.plist"},
        {"icab", "plist/icab", "input.plist"},
        {"icab", "plist/icab-shared", "input.plist"},
        {"text", "text/delimiters", "input.txt"},
        {"text", "text/letter", "input.txt"},
        {"xbel", "xbel/strangers", "input.xbel"},
        {"xbel", "xbel/tabulon", "input.xbel"},
        {"xbel", "xbel/without-declaration", "input.xbel"},
        {"xbel", "xbel/kde", "input.xbel"},
        {"xbel", "xbel/glib", "input.xbel"},
    };
    for (const ImportCase& one : kCases) {
        SCOPED_TRACE(one.folder);
        const fs::path folder = fs::path(TABULON_CORPUS_DIR) / one.folder;
        test::Tool tool;
        tool.files.files["input"] = contentOf(folder / one.file);
        const int status = tool.run({"import", "--from", one.format, "input", "-o", "document"});
        if (fs::exists(folder / "expected.error")) {
            EXPECT_EQ(status, 1);
            EXPECT_EQ(tool.error, contentOf(folder / "expected.error"));
            continue;
        }
        EXPECT_EQ(status, 0) << tool.error;
        EXPECT_EQ(tool.run({"show", "--json", "document"}), 0);
        EXPECT_EQ(tool.out, contentOf(folder / "expected.json"));
    }
}

TEST(ImportCorpusTest, everyFormatIsImportedByItsName) {
    const fs::path corpus(TABULON_CORPUS_DIR);
    test::Tool tool;
    for (const char* format : {"chrome", "chromium", "vivaldi", "brave", "edge", "opera"}) {
        tool.in = contentOf(corpus / "chromium-json/opera/Bookmarks");
        EXPECT_EQ(tool.run({"import", "--from", format, "-"}), 0) << format << tool.error;
        EXPECT_EQ(tool.error, "");
        EXPECT_FALSE(tool.out.empty());
    }
    tool.in = "<base href='https://a.example/'><a href='b'>name</a>";
    ASSERT_EQ(tool.run({"import", "--from", "html-links", "-", "-o", "document"}), 0) << tool.error;
    ASSERT_EQ(tool.run({"show", "document"}), 0);
    EXPECT_NE(tool.out.find("name  <https://a.example/b>"), std::string::npos) << tool.out;
}

std::vector<std::string> exportArguments(const fs::path& folder, const std::string& format) {
    std::vector<std::string> arguments = {"--locale", "en_US"};
    std::istringstream lines(contentOf(folder / "defaults"));
    for (std::string line; std::getline(lines, line);)
        arguments.insert(arguments.end(), {"--default", line});
    arguments.insert(arguments.end(), {"export", "--to", format, "document"});
    return arguments;
}

TEST(ExportCorpusTest, treesAreWrittenAsExpected) {
    int expectations = 0;
    for (const auto& folder : fs::directory_iterator(fs::path(TABULON_CORPUS_DIR) / "export")) {
        test::Tool tool;
        tool.in = contentOf(folder.path() / "input.json");
        ASSERT_EQ(tool.run({"make", "-", "-o", "document"}), 0) << folder.path() << tool.error;
        for (const ExportFormat& format : exportFormats()) {
            const std::string name(format.name);
            const fs::path expected = folder.path() / ("expected." + name);
            if (!fs::exists(expected))
                continue;
            EXPECT_EQ(tool.run(exportArguments(folder.path(), name)), 0) << tool.error;
            EXPECT_EQ(tool.out, contentOf(expected)) << expected;
            ++expectations;
        }
    }
    EXPECT_GE(expectations, 10);
}

INSTANTIATE_TEST_SUITE_P(Folders, CorpusTest, testing::Values("archive", "classic"));

} // namespace
} // namespace tabulon
