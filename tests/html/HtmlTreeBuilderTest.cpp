// Tests the tree of a page, which is the tree that browsers build, for well-formed and malformed markup.
#include "html/HtmlTreeBuilder.h"

#include "tests/CountingProgress.h"

#include <gtest/gtest.h>

namespace tabulon::html {
namespace {

/// Returns the node after `node` in document order, or `nullptr` after the last one.
const Node* nextOf(const Node& node) {
    if (node.first)
        return node.first;
    const Node* left = &node;
    while (left && !left->next)
        left = left->parent;
    return left ? left->next : nullptr;
}

/// Returns the names and texts of the nodes below the first `root` element. Each is preceded by one dot for
/// each ancestor between it and that element.
std::string below(Tag root, std::string_view source) {
    Tree tree;
    EXPECT_EQ(buildTree(source, tree), BuildOutcome::Whole);
    std::string result;
    for (const Node* node = &tree.document(); node; node = nextOf(*node)) {
        int depth = -1;
        const Node* above = node;
        for (; above && !above->isHtml(root); above = above->parent)
            ++depth;
        if (!above || above == node)
            continue;
        result += std::string(static_cast<std::size_t>(depth), '.');
        result +=
            node->kind == Node::Kind::Text ? "'" + std::string(node->text) + "'" : std::string(node->name());
        result += ' ';
    }
    return result;
}

/// Returns the content of the body in the form of `below`.
std::string bodyOf(std::string_view source) {
    return below(Tag::Body, source);
}

TEST(HtmlTreeBuilder, impliedElementsAreThere) {
    EXPECT_EQ(bodyOf("<p>a<b>c</b></p>"), "p .'a' .b ..'c' ");
    EXPECT_EQ(bodyOf("a"), "'a' ");
    EXPECT_EQ(bodyOf(""), "");
}

TEST(HtmlTreeBuilder, aParagraphEndsTheOneBefore) {
    EXPECT_EQ(bodyOf("<p>a<p>b"), "p .'a' p .'b' ");
}

TEST(HtmlTreeBuilder, textInATableGoesBeforeIt) {
    EXPECT_EQ(bodyOf("<table>a<tr><td>b</table>"), "'a' table .tbody ..tr ...td ....'b' ");
}

TEST(HtmlTreeBuilder, formattingIsReopenedAfterAMisnestedEnd) {
    EXPECT_EQ(bodyOf("<b>1<p>2</b>3</p>"), "b .'1' p .b ..'2' .'3' ");
}

TEST(HtmlTreeBuilder, theHeadEndsAtTheFirstOtherElement) {
    EXPECT_EQ(below(Tag::Html, "<title>a<b</title><p>c"), "head .title ..'a<b' body .p ..'c' ");
    EXPECT_EQ(below(Tag::Html, "<head></p></head> <meta>x"), "head .meta ' ' body .'x' ");
    EXPECT_EQ(below(Tag::Html, "<head> y"), "head .' ' body .'y' ");
    EXPECT_EQ(below(Tag::Html, "<noscript><a></noscript>"), "head .noscript ..'<a>' body ");
}

TEST(HtmlTreeBuilder, elementsOfTextContainNoElements) {
    EXPECT_EQ(bodyOf("<p><textarea>\n<b></textarea><xmp><b></xmp><iframe><b></iframe>"),
              "p .textarea ..'<b>' xmp .'<b>' iframe .'<b>' ");
    EXPECT_EQ(bodyOf("<plaintext><b>x</b>"), "plaintext .'<b>x</b>' ");
    EXPECT_EQ(bodyOf("<pre>\nx</pre>"), "pre .'x' ");
}

TEST(HtmlTreeBuilder, endTagsWithoutAnElement) {
    EXPECT_EQ(bodyOf("a</br>b</p>c</div>d"), "'a' br 'b' p 'c' 'd' ");
    EXPECT_EQ(bodyOf("<h1>a<h2>b</h3>c"), "h1 .'a' h2 .'b' 'c' ");
    EXPECT_EQ(bodyOf("<form><div></form>x</div><form>y"), "form .div ..'x' form .'y' ");
    EXPECT_EQ(bodyOf("<object><b>x</object>y"), "object .b ..'x' 'y' ");
}

TEST(HtmlTreeBuilder, anItemEndsTheOneBefore) {
    EXPECT_EQ(bodyOf("<ul><li>a<div><li>b<dl><dt>c<dd>d</ul>"),
              "ul .li ..'a' ..div .li ..'b' ..dl ...dt ....'c' ...dd ....'d' ");
    EXPECT_EQ(bodyOf("<ul><li>a<ul></li>b"), "ul .li ..'a' ..ul ...'b' ");
    EXPECT_EQ(bodyOf("<button>a<button>b"), "button .'a' button .'b' ");
    EXPECT_EQ(bodyOf("<a href=1>x<a href=2>y"), "a .'x' a .'y' ");
    EXPECT_EQ(bodyOf("<nobr>a<nobr>b"), "nobr .'a' nobr .'b' ");
    EXPECT_EQ(bodyOf("<ruby>a<rb>b<rt>c<rtc>d<rp>e"),
              "ruby .'a' .rb ..'b' .rt ..'c' .rtc ..'d' ..rp ...'e' ");
}

TEST(HtmlTreeBuilder, partsOfATableAreImplied) {
    EXPECT_EQ(bodyOf("<table><caption>a<b>b<tr><td>c</table>d"),
              "table .caption ..'a' ..b ...'b' .tbody ..tr ...td ....'c' 'd' ");
    EXPECT_EQ(bodyOf("<table><colgroup> x<col></table>"), "'x' table .colgroup ..' ' .colgroup ..col ");
    EXPECT_EQ(bodyOf("<table><td>a<th>b<tfoot><tr></table>"),
              "table .tbody ..tr ...td ....'a' ...th ....'b' .tfoot ..tr ");
    EXPECT_EQ(bodyOf("<table><form><input type=hidden><input></form><tr></table>"),
              "input table .form .input .tbody ..tr ");
}

TEST(HtmlTreeBuilder, aCommentEndsTheTextOfATable) {
    EXPECT_EQ(bodyOf("<table> <!--c-->x<tr>y<td>z"), "'x' 'y' table .' ' .tbody ..tr ...td ....'z' ");
    EXPECT_EQ(bodyOf("<table> x<tr><td>z"), "' x' table .tbody ..tr ...td ....'z' ");
}

TEST(HtmlTreeBuilder, aParagraphContainsATableInQuirksModeOnly) {
    EXPECT_EQ(bodyOf("<p><table>"), "p .table ");
    EXPECT_EQ(bodyOf("<!doctype html><p><table>"), "p table ");
}

TEST(HtmlTreeBuilder, theFirstTagInATemplateDecidesHowItContinues) {
    EXPECT_EQ(bodyOf("<p><template><tr><td>x</template>y"), "p .template ..tr ...td ....'x' .'y' ");
    EXPECT_EQ(bodyOf("<p><template><col>x<col></template>"), "p .template ..col ..col ");
    EXPECT_EQ(bodyOf("<p><template></p><p>a<td>b"), "p .template ..p ...'a' ...'b' ");
    EXPECT_EQ(bodyOf("<table><template><tr></template><td>x"),
              "table .template ..tr .tbody ..tr ...td ....'x' ");
}

TEST(HtmlTreeBuilder, aSelectContainsWhatABodyContains) {
    EXPECT_EQ(bodyOf("<select><div><a href=x>y</a></div><option>o<hr><option>p</select>z"),
              "select .div ..a ...'y' .option ..'o' .hr .option ..'p' 'z' ");
    EXPECT_EQ(bodyOf("<select><optgroup>a<option>b<optgroup>c"),
              "select .optgroup ..'a' ..option ...'b' .optgroup ..'c' ");
    EXPECT_EQ(bodyOf("<select>a<input>b<select>c<select>d"), "select .'a' input 'b' select .'c' 'd' ");
}

TEST(HtmlTreeBuilder, framesReplaceTheBody) {
    EXPECT_EQ(below(Tag::Html, "<p><frameset><frame><frameset></frameset></frameset><noframes>x</noframes>y"),
              "head frameset .frameset noframes .'x' ");
    EXPECT_EQ(below(Tag::Html, "x<frameset>"), "head body .'x' ");
    EXPECT_EQ(below(Tag::Html, "<body><frameset>"), "head body ");
    EXPECT_EQ(below(Tag::Html, "<frameset></frameset><frameset><a>"), "head frameset ");
}

TEST(HtmlTreeBuilder, contentAfterTheBodyIsInIt) {
    EXPECT_EQ(below(Tag::Html, "x</body></html> y<p>"), "head body .'x' .' y' .p ");
}

TEST(HtmlTreeBuilder, htmlEndsForeignContent) {
    EXPECT_EQ(bodyOf("<svg><desc>a</desc><g/><p>b"), "svg .desc ..'a' .g p .'b' ");
    EXPECT_EQ(bodyOf("<svg><font color=x>a"), "svg font .'a' ");
    EXPECT_EQ(bodyOf("<svg><font>a"), "svg .font ..'a' ");
    EXPECT_EQ(bodyOf("<math><mi><i>x</i><mglyph>"), "math .mi ..i ...'x' ..mglyph ");
    EXPECT_EQ(bodyOf("<svg><![CDATA[<p>]]></svg><![CDATA[<p>]]>"), "svg .'<p>' ']]>' ");
}

TEST(HtmlTreeBuilder, nullCharactersAreRemovedOrReplaced) {
    using namespace std::string_view_literals;
    EXPECT_EQ(bodyOf("a\0b<table>\0<tr><td>\0</table>"sv), "'ab' table .tbody ..tr ...td ");
    EXPECT_EQ(bodyOf("<table>\0 <tr>"sv), "table .' ' .tbody ..tr ");
    EXPECT_EQ(bodyOf("<svg>a\0b"sv), "svg .'a\uFFFDb' ");
}

TEST(HtmlTreeBuilder, linksKeepTheirAttributes) {
    Tree tree;
    ASSERT_EQ(buildTree("<a HREF='u' ADD_DATE=1>x</a>", tree), BuildOutcome::Whole);
    const LinkAttributes* link = nullptr;
    for (const Node* node = &tree.document(); node; node = nextOf(*node))
        if (node->isHtml(Tag::A))
            link = node->link;
    ASSERT_TRUE(link);
    EXPECT_EQ(link->href, "u");
    EXPECT_EQ(link->addDate, "1");
    EXPECT_EQ(link->lastModified, std::nullopt);
}

TEST(HtmlTreeBuilder, buildingCanBeCancelled) {
    Tree tree;
    std::string page;
    for (int i = 0; i < 200000; ++i)
        page += "<p>a";
    test::CountingProgress progress(1);
    EXPECT_EQ(buildTree(page, tree, &progress), BuildOutcome::Cancelled);
    EXPECT_EQ(progress.fractions.size(), 1u);
}

} // namespace
} // namespace tabulon::html
