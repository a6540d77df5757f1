// Tests the reader of files with one link, in the forms of three desktops.
#include "formats/import/LinkFileReader.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tabulon {
namespace {

using namespace std::string_literals;

std::string corpusFile(const char* name) {
    std::ifstream file(std::filesystem::path(TABULON_CORPUS_DIR) / "link-file" / name / "input",
                       std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string urlIn(std::string_view bytes) {
    const auto content = readLinkFile(bytes);
    return content ? content->url.string() : "none";
}

TEST(LinkFileReader, readsAllThreeForms) {
    for (const char* name : {"webloc", "url", "desktop"})
        EXPECT_EQ(urlIn(corpusFile(name)), "https://example.org/?a=1&b=2") << name;
    EXPECT_EQ(readLinkFile(corpusFile("desktop"))->name, Text("An example"));
    EXPECT_TRUE(readLinkFile(corpusFile("url"))->name.isNull());
}

TEST(LinkFileReader, whatHoldsNoLinkIsNone) {
    EXPECT_EQ(urlIn(corpusFile("application")), "none");
    for (const std::string& bytes :
         {""s, "text"s, "URL=https://a/"s, "[InternetShortcut]\nURL="s, "[Other]\nURL=https://a/"s, "\0\0\0"s,
          "[Desktop Entry]\nType=Link\n"s, "<?xml version=\"1.0\"?><plist><dict/></plist>"s,
          "<?xml version=\"1.0\"?><plist><array/></plist>"s, "bplist00"s})
        EXPECT_EQ(urlIn(bytes), "none") << bytes;
}

TEST(LinkFileReader, shortcutsHaveAnyLetterCaseAndTheFirstKeyCounts) {
    EXPECT_EQ(urlIn("\xEF\xBB\xBF[INTERNETSHORTCUT]\n url = https://a/ \r\nURL=https://b/\n"), "https://a/");
    EXPECT_EQ(urlIn("[InternetShortcut]\nURL=https://a/\xFF"), "https://a/\uFFFD");
}

} // namespace
} // namespace tabulon
