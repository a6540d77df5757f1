// A page's tree, as browsers build it from markup that is well-formed and from markup that is not.
#include "html/HtmlTreeBuilder.h"

#include "tests/CountingProgress.h"

#include <gtest/gtest.h>

namespace tabulon::html {
namespace {

const Node* nextOf(const Node& node) {
    if (node.first)
        return node.first;
    const Node* left = &node;
    while (left && !left->next)
        left = left->parent;
    return left ? left->next : nullptr;
}

/// Returns the names and texts below the body, each with one dot for each of its ancestors below the body.
std::string bodyOf(std::string_view source) {
    Tree tree;
    EXPECT_EQ(buildTree(source, tree), BuildOutcome::Whole);
    std::string result;
    for (const Node* node = &tree.document(); node; node = nextOf(*node)) {
        int depth = -1;
        const Node* above = node;
        for (; above && !above->isHtml(Tag::Body); above = above->parent)
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
