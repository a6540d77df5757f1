// Compares the tag scanner with its reference implementation: both must return the same tree for tens of
// thousands of random inputs.
#include "tests/formats/ReferenceScanner.h"

#include "formats/import/NetscapeScan.h"
#include "tests/formats/ScanFixture.h"

#include <random>

namespace tabulon {
namespace {

using namespace std::string_literals;

const std::vector<std::string> kTags = {
    "<DL>",
    "<DL><p>",
    "</DL>",
    "</DL><p>\n",
    "<HR>",
    "<DD>",
    "<DT>",
    "<D",
    "</A>",
    "</H3>",
    "</H",
    "<A",
    "<A ",
    "<DT><A HREF=\"",
    "<DT><A\tHREF=\"",
    "<DT><A HREF=\"http://a.example/\">",
    "<DT><A HREF=\"#",
    "<DT><A ",
    "<DT><A\t",
    "<DT><H3",
    "<DT><H3>",
    "<DT><H3 ADD_DATE=\"1\"",
    "<DT><H3 FOLDER_GROUP=\"true\">",
    "<DT>xH",
    "<DxxxA",
    "<dt><a href=\"x\">",
    "HREF",
    "HREF=\"",
    "\">",
    "\"",
    "\"\"",
    ">",
    "<",
    "#",
    "\"#",
};
const std::vector<std::string> kValues = {
    " ADD_DATE=\"1600000000\"",
    "ADD_DATE=\"",
    " ADD_DATE=\"\"",
    " ADD_DATE=5",
    " LAST_MODIFIED=\"1700000000\"",
    "LAST_MODIFIED=\"",
    "LAST_MODIFIED=",
    "FOLDER_GROUP=\"true\"",
    "FOLDER_GROUP=\"",
    "true\"",
    "=",
    "-",
    "0",
    "7",
    "99999999999999999999",
    "1e5",
    "mailto:a@b.example",
    "a@b",
    "ftp://f.example",
    "Bookmarks Toolbar",
    "Toolbar Favorites",
    "Name",
    "name with blanks",
    "\t",
    "\r",
    "\n",
    "\r\n",
    " ",
    "&amp;",
    "&lt;",
    "&#45;",
    "&#x2D;",
    "&#65",
    "&#0;",
    "&#xD800;",
    "&#x110000;",
    "&copy;",
    "&",
    ";",
    "amp;",
    "\xC3\xA9",
    "\xC3",
    "\xA9",
    "\xE2\x82",
    "\xF0\x9F\x94\x96",
    "\xED\xA0\x80",
    "\xFF",
    "\0"s,
    "<b>",
    "</b>",
    "<img src=x>",
};

const std::vector<std::string> kItems = {
    "<DT><A HREF=\"http://a.example/\" ADD_DATE=\"5\">Name</A>",
    "<DT><H3 LAST_MODIFIED=\"6\">Folder</H3>\n<DL>",
    "<DT><A\tHREF=\"u\">Tab</A>",
    "<HR></DL>",
    "<DD>note\n",
};

std::string soup(std::mt19937& random, std::size_t longest) {
    std::string bytes;
    for (std::size_t count = 1 + random() % longest; count > 0; --count) {
        const std::size_t kind = random() % 12;
        const auto& words = kind < 2 ? kItems : kind < 8 ? kTags : kValues;
        bytes += words[random() % words.size()];
        if (random() % 400 == 0)
            bytes += std::string(490 + random() % 40, 'n');
        if (random() % 800 == 0)
            bytes += std::string(1010 + random() % 30, "ab\n\xC3"[random() % 4]);
    }
    // Every second input ends with the ends of all open elements, so that it is read to its end.
    if (random() % 2 == 0)
        bytes += "\"\">.</A>.</H3><A HREF=\"\"><";
    return bytes;
}

// Returns a file like that of a browser, with damaged bytes and misplaced tags. Random tokens alone seldom
// lead to deep trees.
std::string damagedFile(std::mt19937& random) {
    std::string bytes;
    for (int count = 1 + static_cast<int>(random() % 12); count > 0; --count) {
        switch (random() % 6) {
        case 0:
            bytes += "<DT><H3 ADD_DATE=\"12\" LAST_MODIFIED=\"34\">Folder</H3>\n<DL><p>\n";
            break;
        case 1:
            bytes += "</DL><p>\n";
            break;
        case 2:
            bytes += "<HR>\n<DD>note &amp; more\n";
            break;
        case 3:
            bytes += "<DT><A\tHREF=\"http://tab.example/\" ADD_DATE=\"56\">Tab</A>\n";
            break;
        default:
            bytes += "<DT><A HREF=\"http://a.example/?a=1&amp;b\" ADD_DATE=\"78\"><b>Link &lt;1></b></A>\n";
        }
        if (random() % 3 == 0) {
            const auto& words = random() % 2 ? kTags : kValues;
            bytes.insert(random() % bytes.size(), words[random() % words.size()]);
        }
        if (random() % 6 == 0)
            bytes.erase(random() % bytes.size(), 1 + random() % 8);
    }
    return bytes;
}

// Returns a sequence of links in the form of browsers' files, or in a similar form.
std::string rowOfLinks(std::mt19937& random) {
    const auto oneOf = [&random](std::initializer_list<const char*> words) {
        return std::string(words.begin()[random() % words.size()]);
    };
    std::string bytes;
    for (std::size_t count = 1 + random() % 6; count > 0; --count) {
        bytes +=
            oneOf({"", "\n", "\n\t\t", "\r\n ", "\n\f", "<DL><p>\n", "<DD>note\n", "<HR>\n", ".", "</DL>\n"});
        bytes += oneOf(
            {"<DT><A HREF=\"", "<DT><A HREF=\"", "<DT><A HREF=\"", "<DT><A  HREF=\"", "<DT><A\tHREF=\""});
        bytes += oneOf({"http://a.example/", "http://a.example/?a=1&amp;b=2&c", "mailto:a@b", "", "#top",
                        "a_b", "caf\xE9", "é", ">", "ADD_DATE=", "x ADD_DATE=", "a<b", "&#45;", "-"});
        bytes += random() % 8 == 0 ? std::string(random() % 200, 'u') : "";
        bytes +=
            oneOf({"\" ADD_DATE=\"1600000000", "\" ADD_DATE=\"1600000000", "\" ADD_DATE=\"160000000",
                   "\" ADD_DATE=\"99999999999", "\" ADD_DATE=\"", "\" ADD_DATE=\"16000x0000", "\" ICON=\"x"});
        bytes += oneOf(
            {"", "", "\" LAST_MODIFIED=\"1700000000", "\" LAST_MODIFIED=\"17", "\" LAST_VISIT=\"1700000000"});
        bytes += oneOf({"\">", "\">", "\">", "\" ICON=\"data:,x\">", "\" A_B>",
                        "\" LAST_MODIFIED=\"1800000000\">", ">", "\"\n>"});
        bytes += oneOf({"Name", "-", "", " n", "n ", "<b>n</b>", "n>", "a & b", "a &lt; b", "a\nb", "a\rb",
                        "a_b", "\xC3\xA9", "\xFF", "ADD_DATE=\"1\"", "LAST_MODIFIED=\"1900000000\"", "a<b",
                        "&#45;", "\n"});
        bytes += random() % 8 == 0 ? std::string(1015 + random() % 12, 'n') : "";
        bytes += oneOf({"</A>", "</A>", "</A>", "</A>LAST_MODIFIED=\"1900000000\"", "</A>L", "</a>", "</A"});
    }
    return bytes;
}

class ReferenceScanner : public test::ScanFixture {
protected:
    // Returns true if both scanners return the same tree for `bytes`. Otherwise fails the test.
    bool same(const std::string& bytes) {
        const double now = fakes.now().unixSeconds();
        const std::string expected = test::treeText(reference.scan(bytes), now);
        const std::string found = scanText(bytes);
        nodes += static_cast<std::size_t>(std::count(found.begin(), found.end(), '\n'));
        EXPECT_EQ(found, expected) << "from: " << testing::PrintToString(bytes);
        return found == expected;
    }

    test::ReferenceScanner reference{fakes.now().unixSeconds()};
    std::size_t nodes = 0;
};

TEST_F(ReferenceScanner, agreesOnShortSoups) {
    std::mt19937 random(1);
    for (int i = 0; i < 60000; ++i)
        ASSERT_TRUE(same(soup(random, 14)));
    EXPECT_GT(nodes, 60000u) << "the soups must have something in them";
}

TEST_F(ReferenceScanner, agreesOnLongSoups) {
    std::mt19937 random(2);
    for (int i = 0; i < 4000; ++i)
        ASSERT_TRUE(same(soup(random, 120)));
    EXPECT_GT(nodes, 20000u);
}

TEST_F(ReferenceScanner, agreesOnDamagedFiles) {
    std::mt19937 random(3);
    for (int i = 0; i < 20000; ++i)
        ASSERT_TRUE(same(damagedFile(random)));
    EXPECT_GT(nodes, 80000u);
}

// Most inputs have bytes after the last link, so that the fast reader has enough bytes for every link.
TEST_F(ReferenceScanner, agreesOnRowsOfLinks) {
    std::mt19937 random(6);
    for (int i = 0; i < 40000; ++i)
        ASSERT_TRUE(same(rowOfLinks(random) + (random() % 4 ? "</A>\n" + std::string(80, '.') : "")));
    EXPECT_GT(nodes, 80000u);
}

TEST_F(ReferenceScanner, agreesOnEveryPrefixOfAFile) {
    std::mt19937 random(4);
    std::string file;
    while (file.size() < 1500)
        file += damagedFile(random) + rowOfLinks(random);
    for (std::size_t size = 0; size <= file.size(); ++size)
        ASSERT_TRUE(same(file.substr(0, size)));
    EXPECT_GT(nodes, 5000u);
}

// Other tests rely on this bound: the scanner examines each byte at most 12 times on average, for any input.
TEST_F(ReferenceScanner, soupsAreGoneOverAFewTimesAtMost) {
    std::mt19937 random(5);
    const BaseServices services = fakes.services();
    for (int i = 0; i < 300; ++i) {
        const std::string bytes = soup(random, 3000);
        Ref<Bookmark> lastItem;
        NetscapeScan scan(bytes, services, lastItem);
        scan.run();
        ASSERT_LE(scan.examined(), 12 * bytes.size()) << testing::PrintToString(bytes);
    }
}

} // namespace
} // namespace tabulon
