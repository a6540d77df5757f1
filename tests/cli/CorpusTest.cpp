// The corpus folders through the tool: tests/corpus/{archive,classic}/<case>/input and the JSON of the tree,
// or the one line of the refusal.
#include "platform/fake/MemoryFileStore.h"
#include "tests/cli/Tool.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

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

INSTANTIATE_TEST_SUITE_P(Folders, CorpusTest, testing::Values("archive", "classic"));

} // namespace
} // namespace tabulon
