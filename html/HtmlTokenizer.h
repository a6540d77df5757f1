// The text of a page → its tags and texts, as browsers cut it. Which element a tag belongs to is
// HtmlTreeBuilder.h's affair; comments leave no trace but the place where they stood.
#pragma once

#include "html/HtmlTag.h"

#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon::html {

struct Attribute {
    /// In lower case.
    std::string name;
    std::string value;
};

struct Token {
    enum class Kind { Doctype, StartTag, EndTag, Comment, Text, End };

    Kind kind = Kind::End;
    Tag tag = Tag::Other;
    /// Of tags: whether they end with "/>".
    bool selfClosing = false;
    /// Of document types: whether they are broken; whether there is a system identifier, which may be empty.
    bool forcesQuirks = false;
    bool hasSystemId = false;
    /// Of tags and document types, in lower case.
    std::string name;
    /// Of tags, in the order of the source, no name twice.
    std::vector<Attribute> attributes;
    /// Of texts: not empty, valid as long as the source and the kept texts. NUL is still in it where the tree
    /// builder has to decide.
    std::string_view text;
    /// Of document types.
    std::string publicId;
    std::string systemId;

    /// Null where there is no such attribute.
    const std::string* attribute(std::string_view wanted) const;
};

/// How the text up to the next end tag is to be read.
enum class Content {
    Markup,
    Rcdata,  ///< references count, tags do not
    Rawtext, ///< neither counts
    Script,  ///< neither counts, and a comment may hide the end tag
    Plain,   ///< nothing ends it
};

class Tokenizer {
public:
    /// `source` is well-formed UTF-8 without carriage returns and outlives the tokenizer; so does `texts`,
    /// where the texts are kept that do not stand in the source as they are.
    Tokenizer(std::string_view source, std::deque<std::string>& texts) : source_(source), texts_(texts) {}

    /// The next token, valid until the next call; an End for ever after the last one. Linear over all calls.
    const Token& next();

    /// How many bytes of the source are gone through.
    std::size_t position() const { return cursor_; }

    /// How to go on behind the start tag that was given last.
    void setContent(Content content) {
        content_ = content;
        endName_ = token_.name;
    }
    /// Whether "<![CDATA[" begins a text, as it does in SVG and MathML.
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
