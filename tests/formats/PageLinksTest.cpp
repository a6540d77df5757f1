// Tests the links of a page: their texts and addresses.
#include "formats/import/PageLinks.h"

#include "tests/CountingProgress.h"
#include "tests/ProcessorTime.h"
#include "tests/RepeatedText.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tabulon {
namespace {

PageLinks linksOf(std::string_view page, std::string_view encoding = {}) {
    const Result<PageLinks> links = readPageLinks(page, encoding);
    EXPECT_TRUE(links) << page.substr(0, 100);
    return links.value_or(PageLinks{});
}
std::string targets(std::string_view page) {
    return linksOf(page).targets;
}
std::string texts(std::string_view page) {
    return linksOf(page).texts;
}

TEST(PageLinks, aPageWithoutLinksHasNoLinks) {
    for (const char* page : {"", "x", "<a name=x>y</a>", "<a>y</a>", "<link href=x>", "<area>", "\xFF\xFE"}) {
        EXPECT_EQ(targets(page), "");
        EXPECT_EQ(texts(page), "");
    }
}

TEST(PageLinks, everyValueIsFollowedByAFormFeed) {
    const PageLinks links = linksOf("<a href='http://h' ADD_DATE=1 last_modified=2>x</a><a href=''>y</a>");
    EXPECT_EQ(links.targets, "http://h/\f\f");
    EXPECT_EQ(links.texts, "x\fy\f");
    EXPECT_EQ(links.datesAdded, "1\fnull\f");
    EXPECT_EQ(links.datesModified, "2\fnull\f");
}

TEST(PageLinks, tagsInLowerCaseAreRead) {
    EXPECT_EQ(targets("<dl><dt><a href=\"http://h/\">x</a></dl>"), "http://h/\f");
}

TEST(PageLinks, relativeAddressesWithoutABaseStandAsTheyAre) {
    EXPECT_EQ(
        targets("<a href='/x'></a><a href='y?z'></a><a href='//h/ '></a><a href='#f'></a><a href=' '></a>"),
        "/x\fy?z\f//h/ \fabout:blank#f\f \f");
    EXPECT_EQ(targets("<a href='http://[bad'></a>"), "http://[bad\f");
}

TEST(PageLinks, theFirstBaseWithAnAddressCountsWhereverItStands) {
    EXPECT_EQ(targets("<a href=x></a><base target=y><base href=http://b/c/d><base href=http://e/>"),
              "http://b/c/x\f");
    EXPECT_EQ(targets("<base href=data:,x><a href=x></a><a href=#y></a>"), "x\fabout:blank#y\f");
    EXPECT_EQ(targets("<base href=sub/><a href=x></a><a href=http://h></a>"), "x\fhttp://h/\f");
    EXPECT_EQ(
        targets("<template><base href=http://t/></template><svg><base href=http://s/ /></svg><a href=x></a>"),
        "x\f");
}

TEST(PageLinks, textIsAllTextInsideWithItsWhiteSpace) {
    EXPECT_EQ(texts("<a href=1> a\n<b>b <i>c</i></b><img alt=no><br>d&nbsp;&amp; </a>"),
              " a\nb cd\u00a0& \f");
    EXPECT_EQ(texts("<a href=1>x<!-- no -->y<script>z</script><noscript><b></noscript></a>"), "xyz<b>\f");
    EXPECT_EQ(texts("<a href=1>a\r\nb\rc</a>"), "a\nb\nc\f");
    EXPECT_EQ(texts("<a href=1>a\fb</a>"), "a\fb\f") << "one value too many";
}

TEST(PageLinks, anAreaHasNoText) {
    EXPECT_EQ(texts("<map><area href=1 alt=x><a href=2>y</a></map>"), "undefined\fy\f");
    EXPECT_EQ(targets("<map><area href=http://h></map>"), "http://h/\f");
}

TEST(PageLinks, whatIsNotInThePageIsPassedOver) {
    EXPECT_EQ(
        targets("<template><a href=1></a></template><noscript><a href=2></a></noscript><textarea><a href=3>"
                "</textarea><!--<a href=4>--><script>'<a href=5>'</script><iframe><a href=6></iframe>"
                "<svg><a href=7></a></svg><math><a href=8></a></math><a href=9></a>"),
        "9\f");
    EXPECT_EQ(targets("<svg><foreignObject><a href=1></a></foreignObject><desc><a href=2></a></desc></svg>"),
              "1\f2\f");
    EXPECT_EQ(targets("<a href=1>x</a><frameset><frame></frameset>"), "1\f");
    EXPECT_EQ(targets("<div><a href=1></a></div><frameset>"), "") << "nothing was shown yet";
}

TEST(PageLinks, aLinkEndsTheOneBefore) {
    EXPECT_EQ(texts("<a href=1>x<a href=2>y</a>z"), "x\fy\f");
    EXPECT_EQ(texts("<a href=1>x<div>y<a href=2>z</div>w"), "x\fy\fz\fw\f") << "a block takes the link along";
}

TEST(PageLinks, brokenMarkupIsMendedAsBrowsersDo) {
    EXPECT_EQ(targets("<table><a href=1>x</a><tr><td><a href=2>y</table>"), "1\f2\f");
    EXPECT_EQ(texts("<b><a href=1>x</b>y</a>z"), "x\fy\f");
    EXPECT_EQ(texts("<p><a href=1>x<p>y"), "x\fy\f");
    EXPECT_EQ(targets("<a href=1>x</a><a href=2"), "1\f") << "a tag that does not end is none";
    EXPECT_EQ(targets("<a href=1 href=2 HREF=3>"), "1\f");
    EXPECT_EQ(targets("<a/href='x\"y'/>"), "x\"y\f");
}

TEST(PageLinks, quirkyPagesKeepTablesInParagraphs) {
    const std::string page = "<p><a href=1>x<table><tr><td>y</table>";
    EXPECT_EQ(texts("<!doctype html>" + page), "x\f");
    EXPECT_EQ(texts(page), "xy\f");
}

TEST(PageLinks, referencesAreDecodedAsTheirPlaceDemands) {
    EXPECT_EQ(targets("<a href='http://h/?a=1&copy=2&amp;b&lt;'></a>"), "http://h/?a=1&copy=2&b%3C\f");
    EXPECT_EQ(texts("<a href=1>&copy=2 &notit; &#128; &#0; &#x1F600; &nosuch; &</a>"),
              "©=2 ¬it; € \uFFFD 😀 &nosuch; &\f");
}

TEST(PageLinks, malformedBytesBecomeReplacementCharacters) {
    EXPECT_EQ(texts("<a href=1>x\xFFy</a>"), "x\uFFFDy\f");
    EXPECT_EQ(targets("<a href='http://h/\xE9'></a>"), "http://h/%EF%BF%BD\f");
    EXPECT_EQ(texts(std::string_view("<a href=1>x\0y</a>", 18)), "xy\f");
}

TEST(PageLinks, queriesAreEscapedInTheEncodingOfThePage) {
    EXPECT_EQ(linksOf("<a href='http://h/?é'></a>", "windows-1252").targets, "http://h/?%E9\f");
}

TEST(PageLinks, elementsNestAHundredThousandsDeep) {
    for (const char* part :
         {"<div>", "<b>", "<p><div>", "<font size=1><font size=2>", "<table><tr><td>", "<ul><li>", "<svg>",
          "<template>", "<p><a href=x><div>", "<x>", "<button>", "<span><p>", "<object><a href=y>"}) {
        const ProcessorTime time;
        const std::string page = repeated(part, 300'000) + "<a href=end>z";
        EXPECT_TRUE(readPageLinks(page)) << part;
        EXPECT_LT(time.seconds(), 30) << part;
    }
}

TEST(PageLinks, entangledPagesEndInBoundedTime) {
    const ProcessorTime time;
    std::string fonts;
    for (int i = 0; i < 100'000; ++i)
        fonts += "<font size=" + std::to_string(i) + ">";
    EXPECT_FALSE(readPageLinks(fonts + "x"));
    EXPECT_FALSE(readPageLinks("<b>" + repeated("<div>", 100'000) + repeated("</b>", 100'000)));
    EXPECT_FALSE(readPageLinks("<p>" + fonts.substr(0, 200'000) + repeated("</p><p>x", 100'000)));
    readPageLinks(fonts.substr(0, 250'000) + repeated("<a href=x>y</a>", 300'000));
    readPageLinks(repeated("<svg>", 100'000) + repeated("</x>", 100'000));
    readPageLinks(repeated("<i>", 100'000) + repeated("</x>", 100'000));
    EXPECT_LT(time.seconds(), 60);
}

TEST(PageLinks, textsOfNestedLinksAreBounded) {
    const Result<PageLinks> links =
        readPageLinks(repeated("<a href=x><object>", 400) + std::string(2'000'000, 'x'));
    EXPECT_FALSE(links);
    EXPECT_FALSE(links.error().message.empty());
}

TEST(PageLinks, addressesThatRepeatALongBaseAreBounded) {
    const std::string links = repeated("<a href=x>", 200'000);
    EXPECT_FALSE(readPageLinks("<base href='http://h/" + std::string(16'000, 'y') + "/'>" + links));
    EXPECT_TRUE(targets("<base href='http://h/" + std::string(17'000, 'y') + "/'><a href=x>") == "x\f")
        << "a base that is too long counts for nothing";
    const ProcessorTime time;
    EXPECT_TRUE(readPageLinks("<base href='http://h/" + std::string(16'300, 'y') + "'>" + links));
    EXPECT_LT(time.seconds(), 30);
}

TEST(PageLinks, aReadingCanBeCancelledAtAnyTimeAndGivesNothingThen) {
    const std::string page = repeated("<a href=https://example.org/>A link</a>\n", 20'000);
    test::CountingProgress whole;
    ASSERT_TRUE(readPageLinks(page, {}, &whole));
    EXPECT_TRUE(std::ranges::is_sorted(whole.fractions));
    EXPECT_GT(whole.fractions.back(), 0.9);
    EXPECT_LE(whole.fractions.back(), 1);
    for (std::size_t call = 1; call <= whole.fractions.size(); call += 5) {
        test::CountingProgress progress(call);
        const Result<PageLinks> links = readPageLinks(page, {}, &progress);
        ASSERT_FALSE(links) << call;
        EXPECT_TRUE(isCancelledByUser(links.error())) << call;
    }
}

} // namespace
} // namespace tabulon
