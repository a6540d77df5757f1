// Tests the classification of links, labels, status marks and browsers.
#include "model/LinkType.h"

#include "model/Bookmark.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

std::uint8_t typeOf(const char* url, std::uint8_t before = kWebType) {
    const Ref<Bookmark> node = Bookmark::initEmpty();
    node->setType(before);
    node->setItemURL(url);
    const std::uint8_t result = node->determineType();
    EXPECT_EQ(result, node->getType());
    return result;
}

TEST(LinkType, everyPrefixInBothSpellings) {
    const std::vector<std::pair<const char*, std::uint8_t>> cases = {
        {"http:", 0},   {"https:", 0},  {"HTTP:", 0},   {"HTTPS:", 0},  {"mailto:", 3}, {"MAILTO:", 3},
        {"ftp:", 1},    {"ftps:", 1},   {"FTP:", 1},    {"FTPS:", 1},   {"file:", 11},  {"FILE:", 11},
        {"news:", 4},   {"NEWS:", 4},   {"nntp:", 4},   {"NNTP:", 4},   {"finder:", 7}, {"FINDER:", 7},
        {"telnet:", 5}, {"TELNET:", 5}, {"rlogin:", 5}, {"RLOGIN:", 5}, {"tn3270:", 5}, {"TN3270:", 5},
        {"whois:", 7},  {"WHOIS:", 7}};
    for (const auto& [url, type] : cases)
        EXPECT_EQ(typeOf(url, kUnknownType), type) << url;
}

TEST(LinkType, mixedCaseSchemesKeepTheOldType) {
    EXPECT_EQ(typeOf("Http://a.example/", kNewsType), kNewsType);
    EXPECT_EQ(typeOf("finger://a", kUnknownType), kUnknownType);
    EXPECT_EQ(typeOf(" http://a", kGopherType), kGopherType);
}

TEST(LinkType, anAtSignMeansMailOnlyWhenNoSchemeMatched) {
    EXPECT_EQ(typeOf("someone@a.example"), kMailType);
    EXPECT_EQ(typeOf("ftp://user@a.example/", kUnknownType), kFTPType);
    EXPECT_EQ(typeOf("Http://a@b", kUnknownType), kMailType);
}

TEST(LinkType, nothingMatchedKeepsTheType) {
    EXPECT_EQ(typeOf("just text", kNewsType), kNewsType);
    EXPECT_EQ(typeOf("", kFileType), kFileType);
}

TEST(LinkType, queriesAndSeparatorsStayWhatTheyAre) {
    EXPECT_EQ(typeOf("http://a", kQueryType), kQueryType);
    EXPECT_EQ(typeOf("http://a", kSeparatorType), kSeparatorType);
}

TEST(LinkType, withoutURLOrOnAFolderTheResultIsZeroAndNothingChanges) {
    const Ref<Bookmark> node = Bookmark::initEmpty();
    node->setType(kNewsType);
    EXPECT_EQ(node->determineType(), 0);
    EXPECT_EQ(node->getType(), kNewsType);
    node->setItemURL("ftp://a");
    node->makeParent();
    EXPECT_EQ(node->determineType(), 0);
    EXPECT_EQ(node->getType(), kNewsType);
}

TEST(LinkType, iconsByType) {
    const std::vector<std::string_view> names = {"httpType",  "ftpType",     "gopherType", "mailType",
                                                 "newsType",  "telnetType",  "",           "fingerType",
                                                 "queryType", "unknownType", "",           "fileURLType"};
    for (std::size_t type = 0; type < names.size(); ++type)
        EXPECT_EQ(imageName(iconForType(static_cast<std::uint8_t>(type))), names[type]);
    EXPECT_EQ(iconForType(12), ItemIcon::None);
}

TEST(LinkType, statusMarks) {
    EXPECT_EQ(statusImageName(0), "");
    EXPECT_EQ(statusImageName(1), "validStatus");
    EXPECT_EQ(statusImageName(2), "movedStatus");
    EXPECT_EQ(statusImageName(3), "brokenStatus");
    EXPECT_EQ(statusImageName(4), "unknownStatus");
    EXPECT_EQ(statusImageName(5), "duplicateStatus");
    EXPECT_EQ(statusImageName(6), "");
}

TEST(LinkType, labelColours) {
    EXPECT_EQ(labelColor(0), (LabelColor{0, 0, 0, 1}));
    EXPECT_EQ(labelColor(1), (LabelColor{1, 0.5, 0, 1}));
    EXPECT_EQ(labelColor(2), (LabelColor{1, 0, 0, 1}));
    EXPECT_EQ(labelColor(3), (LabelColor{1, 0, 1, 1}));
    EXPECT_EQ(labelColor(5), (LabelColor{0, 0, 1, 1}));
    EXPECT_EQ(labelColor(7), (LabelColor{0.6, 0.4, 0.2, 1}));
    EXPECT_EQ(labelColor(8), (LabelColor{0.5, 0, 0.5, 1}));
    EXPECT_EQ(labelColor(9), (LabelColor{0.5, 0.5, 0.5, 1}));
    EXPECT_EQ(labelColor(10), (LabelColor{1, 1, 0, 1}));
    EXPECT_EQ(labelColor(4), (LabelColor{0.4, 0.6, 0.8, 1}));
    EXPECT_EQ(labelColor(6), (LabelColor{0, 0.4, 0.07, 1}));
    EXPECT_EQ(labelColor(11), (LabelColor{0, 1, 1, 1}));
    EXPECT_EQ(labelColor(12), (LabelColor{0, 0, 0, 1}));
    EXPECT_EQ(labelColor(255), (LabelColor{0, 0, 0, 1}));
}

TEST(LinkType, browsersByIndex) {
    const std::vector<std::pair<std::int64_t, const char*>> known = {
        {5, "com.operasoftware.Opera"}, {6, "de.icab.iCab"},       {10, "com.apple.Safari"},
        {11, "org.mozilla.Firefox"},    {15, "com.google.Chrome"}, {16, "org.chromium.Chromium"},
        {17, "com.vivaldi.Vivaldi"},    {18, "com.brave.Browser"}, {19, "com.microsoft.edgemac"}};
    for (const auto& [index, identifier] : known)
        EXPECT_EQ(browserID(index, "x.default"), identifier);
    for (const std::int64_t other : {0LL, 4LL, 7LL, 9LL, 12LL, 14LL, 20LL, -1LL, (1LL << 32) + 5})
        EXPECT_EQ(browserID(other, "x.default"), "x.default") << other;
}

TEST(LinkType, defaultBrowserFallsBackToSafari) {
    EXPECT_EQ(browserID(0, ""), "com.apple.Safari");
    EXPECT_EQ(browserID(0, "com.apple.safari"), "com.apple.Safari");
    EXPECT_EQ(browserID(0, "com.apple.SAFARI"), "com.apple.SAFARI");
}

} // namespace
} // namespace tabulon
