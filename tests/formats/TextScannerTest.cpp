// Tests the scanner for links in plain text.
#include "formats/import/TextScanner.h"

#include "platform/fake/FakeBaseServices.h"
#include "tests/ProcessorTime.h"
#include "text/XmlEntities.h"

#include <gtest/gtest.h>

#include <cctype>
#include <random>

namespace tabulon {
namespace {

using Urls = std::vector<std::string>;

class TextScanner : public testing::Test {
protected:
    Urls urls(std::string_view text) {
        const Ref<Bookmark> root = readText(text, {fakes.services()}).value();
        Urls found;
        if (root->getChildren())
            for (const Bookmark* link : *root->getChildren())
                found.push_back(link->itemURL().string());
        return found;
    }

    FakeBaseServices fakes;
};

TEST_F(TextScanner, aCommaEndsALink) {
    EXPECT_EQ(urls("see https://server/a?b=1, and more"), Urls{"https://server/a?b=1"});
}

TEST_F(TextScanner, parenthesesAreDelimiters) {
    EXPECT_EQ(urls("(http://server)"), Urls{"http://server"});
}

TEST_F(TextScanner, aSemicolonCutsAnEntity) {
    EXPECT_EQ(urls("http://s/?a=1&amp;b=2"), Urls{"http://s/?a=1&amp"});
}

TEST_F(TextScanner, mailtoInAnyCaseIsOneLink) {
    EXPECT_EQ(urls("write MAILTO:someone@server now"), Urls{"MAILTO:someone@server"});
    EXPECT_EQ(urls("mAiLtO:x"), Urls{"mAiLtO:x"});
    EXPECT_EQ(urls("mailt:x"), Urls{});
}

TEST_F(TextScanner, anAddressIsALinkOfItsOwn) {
    EXPECT_EQ(urls("user@server"), Urls{"user@server"});
    EXPECT_EQ(urls("a <user@server> b"), Urls{"user@server"});
    EXPECT_EQ(urls("@"), Urls{"@"});
    EXPECT_EQ(urls(" @x"), Urls{"@x"});
}

TEST_F(TextScanner, schemesBeginWhereTheirThirdLetterFromTheEndSays) {
    EXPECT_EQ(urls("file://a news://b ftp://c gopher://d telnet://e https://f http://g smb://h ssh://i"),
              (Urls{"file://a", "news://b", "ftp://c", "gopher://d", "telnet://e", "https://f", "http://g",
                    "smb://h", "ssh://i"}));
    EXPECT_EQ(urls("HTTPS://A"), Urls{"HTTPS://A"});
}

TEST_F(TextScanner, aSchemeThatDoesNotFitHasAStrayByteOrIsNoLink) {
    EXPECT_EQ(urls("xafp://server"), Urls{"xafp://server"});
    EXPECT_EQ(urls("x afp://server"), Urls{});
    EXPECT_EQ(urls("afp://server"), Urls{"afp://server"}) << "no byte before the first one";
}

TEST_F(TextScanner, aSchemeThatIsTooShortIsNoLinkAndScanningGoesOn) {
    EXPECT_EQ(urls("xyz ws://host"), Urls{});
    EXPECT_EQ(urls("xyz ws://host http://s"), Urls{"http://s"});
    EXPECT_EQ(urls("xyz ws://user@host"), Urls{"user@host"}) << "the rest of the word is still looked at";
}

TEST_F(TextScanner, aStartInAnEarlierWordIsNoLink) {
    EXPECT_EQ(urls("a b ht://x y@z"), (Urls{"y@z"}));
}

TEST_F(TextScanner, theInfoMacPathIsTheLink) {
    EXPECT_EQ(urls("get /info-mac/app/x.hqx now"), Urls{"/info-mac/app/x.hqx"});
    EXPECT_EQ(urls("get pub/info-mac/app/x.hqx now"), Urls{"/info-mac/app/x.hqx"});
    EXPECT_EQ(urls("/Info-Mac/x"), Urls{});
}

TEST_F(TextScanner, hostsWithoutASchemeAreNotFound) {
    EXPECT_EQ(urls("www.example.org example.org/path"), Urls{});
}

TEST_F(TextScanner, duplicatesStay) {
    EXPECT_EQ(urls("http://a http://a"), (Urls{"http://a", "http://a"}));
}

TEST_F(TextScanner, aWordBeforeAnAtIsCutAfterFiveHundredElevenBytes) {
    const std::string word(600, 'x');
    EXPECT_EQ(urls(word + "@s"), Urls{std::string(511, 'x') + "@s"});
    EXPECT_EQ(urls(" " + std::string(511, 'x') + "@s"), Urls{std::string(511, 'x') + "@s"});
    EXPECT_EQ(urls(" " + std::string(510, 'x') + "@s"), Urls{std::string(510, 'x') + "@s"});
}

TEST_F(TextScanner, linksAreUntitledClassifiedAndOfNow) {
    const Ref<Bookmark> root = readText("ftp://s mailto:a@b", {fakes.services()}).value();
    EXPECT_EQ(root->itemName().view(), "Master");
    EXPECT_TRUE(root->isFolder());
    ASSERT_EQ(root->getChildren()->size(), 2u);
    EXPECT_EQ(root->getChild()->itemName().view(), "Untitled");
    EXPECT_EQ(root->getChild()->getType(), 1);
    EXPECT_EQ(root->getLast()->getType(), 3);
    EXPECT_EQ(root->getChild()->itemDateAdded(), fakes.now());
}

TEST_F(TextScanner, bytesAreDecodedLenientlyAndHighOnesAreNoDelimiters) {
    EXPECT_EQ(urls("http://s/\xC3\xA9\xFF x"), Urls{"http://s/é\xEF\xBF\xBD"});
    EXPECT_EQ(urls("http://s/\xC2\xA0x"), Urls{"http://s/\xC2\xA0x"});
    EXPECT_EQ(urls(std::string_view("http://s\0http://t", 17)), (Urls{"http://s", "http://t"}));
    EXPECT_EQ(urls(""), Urls{});
    EXPECT_EQ(urls("://"), Urls{"://"});
}

// Returns the links in `text` by a direct implementation of the rules, one byte at a time.
Urls referenceUrls(const std::string& text) {
    const auto delimiter = [&](std::size_t i) {
        return std::string_view("\0\t\n\r \"'(),;<>", 13).find(text[i]) != std::string_view::npos;
    };
    const auto find = [&](std::string_view marker, std::size_t from, bool anyCase) {
        for (std::size_t i = from; i + marker.size() <= text.size(); ++i) {
            bool same = true;
            for (std::size_t k = 0; k < marker.size(); ++k) {
                const char c = anyCase
                                   ? static_cast<char>(std::tolower(static_cast<unsigned char>(text[i + k])))
                                   : text[i + k];
                same = same && c == marker[k];
            }
            if (same)
                return i;
        }
        return std::string::npos;
    };
    Urls found;
    std::size_t cursor = 0;
    while (cursor < text.size()) {
        const std::size_t scheme = find("://", cursor, false);
        const std::size_t mailto = find("mailto:", cursor, true);
        const std::size_t at = find("@", cursor, false);
        const std::size_t info = find("/info-mac/", cursor, false);
        std::size_t first = scheme;
        bool isScheme = true;
        bool isAt = false;
        if (mailto != std::string::npos && mailto <= first)
            first = mailto, isScheme = false;
        if (at != std::string::npos && at <= first)
            first = at, isScheme = false, isAt = true;
        if (info != std::string::npos && info < first)
            first = info, isScheme = isAt = false;
        if (first == std::string::npos)
            break;
        std::size_t start = first;
        if (isScheme) {
            std::size_t back = 3;
            const char third = first >= 3 ? text[first - 3] : '-';
            switch (std::tolower(static_cast<unsigned char>(third))) {
            case 'a':
            case 'e':
            case 'i':
                back = 4;
                break;
            case 'g':
            case 'h':
            case 'n':
                back = 6;
                break;
            case 't':
                back = text[first - 1] == 's' || text[first - 1] == 'S' ? 5 : 4;
                break;
            default:
                break;
            }
            start = first >= back ? first - back : 0;
        } else if (isAt) {
            std::size_t walked = 0;
            while (true) {
                if (start == cursor || walked == 511)
                    break;
                if (delimiter(start - 1))
                    break;
                --start;
                ++walked;
            }
        }
        std::size_t end = start;
        while (end < text.size() && !delimiter(end))
            ++end;
        if (isScheme && end <= first) {
            cursor = first + 3;
            continue;
        }
        found.push_back(unescapeXmlEntities(text.substr(start, end - start)));
        cursor = end + 1;
    }
    return found;
}

TEST_F(TextScanner, agreesWithTheReferenceOnRandomTexts) {
    const std::vector<std::string> parts = {"://", "mailto:", "MailTo:", "@", "/info-mac/", " ",
                                            "\"",  "<",       ";",       "t", "s",          "https",
                                            "a",   "f",       "n",       "x", "ftp",        "&lt"};
    std::mt19937 random(7);
    std::size_t links = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        for (std::size_t count = random() % 12; count > 0; --count)
            text += parts[random() % parts.size()];
        const Urls expected = referenceUrls(text);
        ASSERT_EQ(urls(text), expected) << text;
        links += expected.size();
    }
    EXPECT_GT(links, 10000u);
}

TEST_F(TextScanner, hostileTextsTakeLinearTime) {
    const std::size_t size = 1'000'000;
    const auto repeated = [&](std::string_view part) {
        std::string text;
        while (text.size() < size)
            text += part;
        return text;
    };
    for (const char* part :
         {"://", " s://", ":", "@ ", "x@ ", "mailto", "mailto: ", "/info-mac", "x", "a://\n", "@"}) {
        const std::string text = repeated(part);
        const ProcessorTime time;
        const Ref<Bookmark> root = readText(text, {fakes.services()}).value();
        EXPECT_LT(time.seconds(), 20) << part;
    }
}

} // namespace
} // namespace tabulon
