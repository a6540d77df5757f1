// The tokenizer of the WHATWG's HTML standard: divides the text of a page into tags, texts, comments and
// document types. HtmlTreeBuilder.h builds elements from them. The content of comments is not kept.
#pragma once

#include "html/HtmlTag.h"

#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon::html {

/// An attribute of a tag; UTF-8.
struct Attribute {
    /// In lower case.
    std::string name;
    /// With its references decoded; empty if the attribute has no value.
    std::string value;
};

/// One token. A field that does not belong to the token's kind has an unspecified value.
struct Token {
    enum class Kind { Doctype, StartTag, EndTag, Comment, Text, End };

    Kind kind = Kind::End;
    Tag tag = Tag::Other;
    /// Of tags: true if they end with "/>".
    bool selfClosing = false;
    /// Of document types: true if they are malformed.
    bool forcesQuirks = false;
    /// Of document types: true if there is a system identifier, which may be empty.
    bool hasSystemId = false;
    /// Of tags and document types, in lower case.
    std::string name;
    /// Of tags, in the order of the source. Of repeated names only the first is here.
    std::vector<Attribute> attributes;
    /// Of texts: not empty, valid as long as the source and the kept texts. NUL characters of markup are in
    /// it, because the tree builder decides about them by its mode.
    std::string_view text;
    /// Of document types; empty if absent.
    std::string publicId;
    std::string systemId;

    /// Returns the value of the attribute `wanted`, in lower case, or nullptr if there is none. Valid as long
    /// as the token.
    const std::string* attribute(std::string_view wanted) const;

    /// Returns true for a start tag of `wanted`.
    bool isStart(Tag wanted) const { return kind == Kind::StartTag && tag == wanted; }
    /// Returns true for an end tag of `wanted`.
    bool isEnd(Tag wanted) const { return kind == Kind::EndTag && tag == wanted; }
};

/// How the content of an element is tokenized, up to its end tag.
enum class Content {
    Markup,
    Rcdata,  ///< text in which references are decoded
    Rawtext, ///< text without references
    Script,  ///< text without references, in which a comment can contain the end tag
    Plain,   ///< text without references up to the end of the page
};

/// Never fails: malformed markup is tokenized as the standard says.
class Tokenizer {
public:
    /// `texts` receives the texts that differ from their bytes in the source, for example by decoded
    /// references. Requires: `source` is well-formed UTF-8 without carriage returns, and both outlive the
    /// tokenizer and its texts.
    Tokenizer(std::string_view source, std::deque<std::string>& texts) : source_(source), texts_(texts) {}

    /// Returns the next token, valid until the next call. The caller may change it. Returns End after the
    /// last token, and in all later calls. All calls together are linear in the size of the source.
    Token& next();

    /// Returns the number of bytes of the source that have been tokenized.
    std::size_t position() const { return cursor_; }

    /// Sets how the content of the element is tokenized whose start tag was returned last.
    void setContent(Content content) {
        content_ = content;
        endName_ = token_.name;
    }
    /// Sets whether "<![CDATA[" begins a text, as in SVG and MathML, or a comment, as in HTML.
    void setAllowsCdata(bool allows) { allowsCdata_ = allows; }

private:
    void readMarkup();
    void readText();
    void readRaw();
    void readCdata();
    void readMarkupDeclaration();
    void readComment();
    void readBogusComment();
    void readDoctype();
    void readDoctypeIds(std::string_view rest);
    bool readTag(Token::Kind kind, std::size_t nameBegin);
    bool readAttributes();
    bool readAttribute();
    bool readValue(std::string& value);
    void appendName(std::string_view bytes, std::string& name);
    void removeRepeatedAttributes();
    std::size_t rawEnd() const;
    std::size_t scriptEnd() const;
    bool isEndTagAt(std::size_t position) const;
    bool isNameAt(std::size_t position, std::string_view name) const;
    void giveText(std::string_view raw, bool decodes, bool replacesNul);
    void skipSpaces();

    char at(std::size_t position) const { return position < source_.size() ? source_[position] : '\0'; }
    bool isAtEnd() const { return cursor_ >= source_.size(); }

    std::string_view source_;
    std::deque<std::string>& texts_;
    std::size_t cursor_ = 0;
    Content content_ = Content::Markup;
    std::string endName_;
    bool allowsCdata_ = false;
    Token token_;
};

} // namespace tabulon::html
