// Reads the bookmark files of tests/corpus/netscape-html/. Each folder contains an input.html and an
// expected.txt with the expected tree as text.
#include "formats/export/NetscapeHTML.h"
#include "tests/formats/ScanFixture.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tabulon {
namespace {

namespace fs = std::filesystem;

using NetscapeCorpus = test::ScanFixture;

std::string contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST_F(NetscapeCorpus, everyFileGivesTheExpectedTree) {
    int cases = 0;
    for (const auto& entry : fs::directory_iterator(fs::path(TABULON_CORPUS_DIR) / "netscape-html")) {
        SCOPED_TRACE(entry.path().filename().string());
        scanner = NetscapeScanner(); // clears the last item of the previous file
        EXPECT_EQ(scanText(contentOf(entry.path() / "input.html")), contentOf(entry.path() / "expected.txt"));
        ++cases;
    }
    EXPECT_GE(cases, 10);
}

TEST_F(NetscapeCorpus, ourOwnExportIsTheFileItWasScannedFrom) {
    const std::string html = contentOf(fs::path(TABULON_CORPUS_DIR) / "netscape-html/tabulon/input.html");
    EXPECT_EQ(exportToHTML(*scan(html), {}).value(), html);
}

} // namespace
} // namespace tabulon
