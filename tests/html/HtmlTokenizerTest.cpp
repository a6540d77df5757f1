// Tests the split of a page into tags, texts and comments.
#include "html/HtmlTokenizer.h"

#include <gtest/gtest.h>

namespace tabulon::html {
namespace {

/// Returns a short text for the token. It is empty for the end of the page.
std::string described(const Token& token) {
    std::string result;
    switch (token.kind) {
    case Token::Kind::Doctype:
        return "!" + token.name + (token.forcesQuirks ? "?" : "");
    case Token::Kind::StartTag:
        result = "<" + token.name;
        for (const Attribute& attribute : token.attributes)
            result += " " + attribute.name + "=[" + attribute.value + "]";
        return result + (token.selfClosing ? "/>" : ">");
    case Token::Kind::EndTag:
        return "</" + token.name + ">";
    case Token::Kind::Comment:
        return "#";
    case Token::Kind::Text:
        return "'" + std::string(token.text) + "'";
    case Token::Kind::End:
        break;
    }
    return result;
}

/// Returns the short texts of all tokens of the page.
std::string tokensOf(std::string_view source) {
    std::deque<std::string> texts;
    Tokenizer tokenizer(source, texts);
    std::string result;
    for (const Token* token = &tokenizer.next(); token->kind != Token::Kind::End; token = &tokenizer.next())
        result += described(*token);
    return result;
}

TEST(HtmlTokenizer, tagsTextsAndCommentsFollowEachOther) {
    EXPECT_EQ(tokensOf("<!DOCTYPE html><P>a<!-- b --></P>c"), "!html<p>'a'#</p>'c'");
    EXPECT_EQ(tokensOf(""), "");
}

TEST(HtmlTokenizer, attributesMayBeQuotedBareOrEmpty) {
    EXPECT_EQ(tokensOf("<a HREF='x y' b=\"&amp;\" c=d e f=>"), "<a href=[x y] b=[&] c=[d] e=[] f=[]>");
    EXPECT_EQ(tokensOf("<br/>"), "<br/>");
}

TEST(HtmlTokenizer, theFirstOfARepeatedAttributeCounts) {
    EXPECT_EQ(tokensOf("<a b=1 B=2>"), "<a b=[1]>");
}

TEST(HtmlTokenizer, anUnfinishedTagAtTheEndIsDropped) {
    EXPECT_EQ(tokensOf("a<b c='d"), "'a'");
}

TEST(HtmlTokenizer, aLessThanBeforeNoNameIsText) {
    std::string text;
    std::deque<std::string> texts;
    const std::string source = "1 < 2";
    Tokenizer tokenizer(source, texts);
    for (const Token* token = &tokenizer.next(); token->kind != Token::Kind::End; token = &tokenizer.next()) {
        EXPECT_EQ(token->kind, Token::Kind::Text);
        text += token->text;
    }
    EXPECT_EQ(text, source);
}

TEST(HtmlTokenizer, rawContentEndsAtItsOwnEndTagAlone) {
    std::deque<std::string> texts;
    Tokenizer tokenizer("<style>a<b>&amp;</i></STYLE>c", texts);
    EXPECT_EQ(described(tokenizer.next()), "<style>");
    tokenizer.setContent(Content::Rawtext);
    EXPECT_EQ(described(tokenizer.next()), "'a<b>&amp;</i>'");
    EXPECT_EQ(described(tokenizer.next()), "</style>");
}

} // namespace
} // namespace tabulon::html
