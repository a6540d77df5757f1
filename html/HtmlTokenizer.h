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

    /// Determines which of the fields below have a value.
    Kind kind = Kind::End;
    /// Of tags: Other for a name without rules.
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

    /// Returns the value of the attribute with the name `wanted`, or nullptr if there is none. Valid as long
    /// as the token is unchanged. Linear in the number of attributes. Requires: `wanted` is in lower case,
    /// and the token is a tag.
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

    /// Returns the number of bytes of the source that have been tokenized. Never decreases.
    std::size_t position() const { return cursor_; }

    /// Sets how the content of the element is tokenized whose start tag was returned last. From its end tag
    /// on, the source is markup again. Requires: `next` has returned a start tag last.
    void setContent(Content content) {
        content_ = content;
        endName_ = token_.name;
    }
    /// Sets whether "<![CDATA[" begins a text, as in SVG and MathML, or a comment, as in HTML. It is a
    /// comment at first.
    void setAllowsCdata(bool allows) { allowsCdata_ = allows; }

private:
    // Each of these functions reads from `cursor_` on, moves it to the end of what it has read, and sets
    // `token_`. Markup that is no token, such as "</>", only moves the cursor.

    /// Reads a tag, a comment, a document type or a text. A tag without an end discards the rest of the
    /// source.
    void readMarkup();
    /// Reads a text up to the next "<". Its first character belongs to it even if it is "<".
    void readText();
    /// Reads a text up to the end tag `endName_`. If it would be empty, sets the content to Markup and reads
    /// the end tag instead.
    void readRaw();
    /// Reads a text up to "]]>", without decoding references. Requires: "<![CDATA[" is at the cursor.
    void readCdata();
    /// Reads a comment, a document type or, where it is allowed, CDATA. Requires: "<!" is at the cursor.
    void readMarkupDeclaration();
    /// Reads a comment up to "-->" or "--!>", or to the end of the source.
    void readComment();
    /// Reads a comment up to the next ">", or to the end of the source.
    void readBogusComment();
    /// Reads a document type up to the next ">", which may be inside quotes. One without a name or an end
    /// forces quirks mode.
    void readDoctype();
    /// Reads the identifiers in `rest`, the text after the name. Malformed ones force quirks mode.
    void readDoctypeIds(std::string_view rest);

    // These return false if the tag has no end before the end of the source.

    /// Reads a tag whose name begins at `nameBegin`. Sets its kind only if it has an end.
    bool readTag(Token::Kind kind, std::size_t nameBegin);
    /// Reads attributes up to the ">" of the tag, and that character.
    bool readAttributes();
    /// Adds one attribute, whose name may repeat one before. An equals sign as its first character belongs to
    /// the name.
    bool readAttribute();
    /// Appends the value that begins at the cursor, with its references decoded and with U+FFFD for each NUL.
    bool readValue(std::string& value);
    /// Appends a name in lower case, with U+FFFD for each NUL.
    void appendName(std::string_view bytes, std::string& name);
    /// Keeps the first of attributes with equal names. Linear in the number of attributes.
    void removeRepeatedAttributes();
    /// Returns the position of the end tag `endName_`, or the size of the source if there is none.
    std::size_t rawEnd() const;
    /// Does the same for a script, in which a comment can contain the end tag.
    std::size_t scriptEnd() const;
    /// Returns true if the end tag `endName_` begins at the position, in either case.
    bool isEndTagAt(std::size_t position) const;
    /// Returns true if `name` is there, in either case, with a character after it that ends a name.
    bool isNameAt(std::size_t position, std::string_view name) const;
    /// Sets a text as the token, unless it is empty. Decodes its references, and replaces NUL by U+FFFD, as
    /// requested. A text without "&" to decode and NUL to replace stays a part of the source. Any other is
    /// stored in `texts_`.
    void giveText(std::string_view raw, bool decodes, bool replacesNul);
    /// Moves the cursor to the next character that is no white space, or to the end of the source.
    void skipSpaces();

    /// Returns the byte at a position, or NUL after the end of the source.
    char at(std::size_t position) const { return position < source_.size() ? source_[position] : '\0'; }
    bool isAtEnd() const { return cursor_ >= source_.size(); }

    std::string_view source_;
    std::deque<std::string>& texts_;
    /// The position of the next byte to be read.
    std::size_t cursor_ = 0;
    Content content_ = Content::Markup;
    /// The name whose end tag ends the content; valid unless that is markup.
    std::string endName_;
    /// See `setAllowsCdata`.
    bool allowsCdata_ = false;
    /// The token that `next` returns.
    Token token_;
};

} // namespace tabulon::html
