#include "html/HtmlTokenizer.h"

#include "base/Ascii.h"
#include "html/HtmlCharacterReference.h"

#include <algorithm>
#include <unordered_set>

namespace tabulon::html {
namespace {

constexpr std::size_t npos = std::string_view::npos;
constexpr std::string_view kReplacement = "\uFFFD";

void appendWithoutNul(std::string_view bytes, std::string& text) {
    for (const char c : bytes) {
        if (c == '\0')
            text += kReplacement;
        else
            text += c;
    }
}

// Appends `raw` with its references decoded, and with U+FFFD for NUL if `replacesNul`.
void appendDecoded(std::string_view raw, ReferencePlace place, bool replacesNul, std::string& text) {
    while (!raw.empty()) {
        const std::size_t plain = std::min(raw.find('&'), raw.size());
        if (replacesNul)
            appendWithoutNul(raw.substr(0, plain), text);
        else
            text += raw.substr(0, plain);
        raw.remove_prefix(plain);
        if (raw.empty())
            return;
        const std::size_t length = readCharacterReference(raw, place, text);
        if (length == 0)
            text += '&';
        raw.remove_prefix(std::max<std::size_t>(length, 1));
    }
}

} // namespace

const std::string* Token::attribute(std::string_view wanted) const {
    const auto found = std::ranges::find(attributes, wanted, &Attribute::name);
    return found == attributes.end() ? nullptr : &found->value;
}

Token& Tokenizer::next() {
    do {
        token_.kind = Token::Kind::End;
        if (isAtEnd())
            break;
        if (content_ == Content::Markup)
            readMarkup();
        else
            readRaw();
        // Markup without a token ("</>") has moved the cursor, so the loop ends.
    } while (token_.kind == Token::Kind::End);
    return token_;
}

void Tokenizer::readMarkup() {
    if (at(cursor_) != '<')
        return readText();
    const char c = at(cursor_ + 1);
    if (ascii::isLetter(c)) {
        if (!readTag(Token::Kind::StartTag, cursor_ + 1))
            cursor_ = source_.size(); // a tag without an end is dropped
        return;
    }
    if (c == '!' && cursor_ + 1 < source_.size())
        return readMarkupDeclaration();
    if (c == '?')
        return readBogusComment();
    if (c != '/' || cursor_ + 2 >= source_.size())
        return readText();
    if (ascii::isLetter(at(cursor_ + 2))) {
        if (!readTag(Token::Kind::EndTag, cursor_ + 2))
            cursor_ = source_.size();
    } else if (at(cursor_ + 2) == '>') {
        cursor_ += 3;
    } else {
        ++cursor_;
        readBogusComment();
    }
}

// Reads a text up to the next "<". The first character belongs to it even if it is "<".
void Tokenizer::readText() {
    const std::size_t end = std::min(source_.find('<', cursor_ + 1), source_.size());
    const std::string_view raw = source_.substr(cursor_, end - cursor_);
    cursor_ = end;
    giveText(raw, true, false);
}

void Tokenizer::giveText(std::string_view raw, bool decodes, bool replacesNul) {
    if (raw.empty())
        return;
    token_.kind = Token::Kind::Text;
    token_.text = raw;
    const bool hasReference = decodes && raw.find('&') != npos;
    if (!hasReference && !(replacesNul && raw.find('\0') != npos))
        return;
    std::string& text = texts_.emplace_back();
    if (decodes)
        appendDecoded(raw, ReferencePlace::Text, replacesNul, text);
    else
        appendWithoutNul(raw, text);
    token_.text = text;
}

void Tokenizer::readMarkupDeclaration() {
    const std::string_view rest = source_.substr(cursor_ + 2);
    if (rest.starts_with("--"))
        return readComment();
    if (ascii::equalsIgnoringCase(rest.substr(0, 7), "doctype"))
        return readDoctype();
    if (allowsCdata_ && rest.starts_with("[CDATA["))
        return readCdata();
    readBogusComment();
}

void Tokenizer::readCdata() {
    const std::size_t begin = cursor_ + std::string_view("<![CDATA[").size();
    const std::size_t end = std::min(source_.find("]]>", begin), source_.size());
    cursor_ = std::min(end + 3, source_.size());
    giveText(source_.substr(begin, end - begin), false, false);
}

void Tokenizer::readComment() {
    token_.kind = Token::Kind::Comment;
    const std::size_t begin = cursor_ + 4;
    if (at(begin) == '>') {
        cursor_ = begin + 1;
        return;
    }
    if (at(begin) == '-' && at(begin + 1) == '>') {
        cursor_ = begin + 2;
        return;
    }
    // The dashes of "<!--" are not part of "-->", but "-->" may follow at once. "--!>" ends a comment too.
    for (std::size_t dash = source_.find("--", begin); dash != npos; dash = source_.find("--", dash + 1)) {
        const std::size_t behind = dash + 2;
        if (at(behind) == '>' || (at(behind) == '!' && at(behind + 1) == '>')) {
            cursor_ = behind + (at(behind) == '>' ? 1 : 2);
            return;
        }
    }
    cursor_ = source_.size();
}

void Tokenizer::readBogusComment() {
    token_.kind = Token::Kind::Comment;
    cursor_ = std::min(source_.find('>', cursor_), source_.size() - 1) + 1;
}

void Tokenizer::readDoctype() {
    const std::size_t begin = cursor_ + std::string_view("<!doctype").size();
    token_.kind = Token::Kind::Doctype;
    token_.name.clear();
    token_.publicId.clear();
    token_.systemId.clear();
    token_.hasSystemId = false;
    // A ">" in the quotes of an identifier also ends the document type.
    const std::size_t end = std::min(source_.find('>', begin), source_.size());
    token_.forcesQuirks = end == source_.size();
    cursor_ = std::min(end + 1, source_.size());
    std::string_view rest = source_.substr(begin, end - begin);
    while (!rest.empty() && ascii::isSpace(rest.front()))
        rest.remove_prefix(1);
    const auto nameEnd = std::ranges::find_if(rest, ascii::isSpace);
    const auto length = static_cast<std::size_t>(nameEnd - rest.begin());
    token_.name = ascii::lowered(rest.substr(0, length));
    if (length == 0)
        token_.forcesQuirks = true;
    readDoctypeIds(rest.substr(length));
}

void Tokenizer::readDoctypeIds(std::string_view rest) {
    const auto skip = [&] {
        while (!rest.empty() && ascii::isSpace(rest.front()))
            rest.remove_prefix(1);
    };
    // Returns true if a quoted text follows. One without its closing quote forces quirks mode.
    const auto quoted = [&](std::string& value) {
        skip();
        if (rest.empty() || (rest.front() != '"' && rest.front() != '\''))
            return false;
        const std::size_t close = rest.find(rest.front(), 1);
        value = rest.substr(1, close == npos ? npos : close - 1);
        rest.remove_prefix(std::min(close, rest.size() - 1) + 1);
        token_.forcesQuirks |= close == npos;
        return true;
    };
    skip();
    if (rest.empty())
        return;
    const std::string_view keyword = rest.substr(0, 6);
    const bool isPublic = ascii::equalsIgnoringCase(keyword, "public");
    if (!isPublic && !ascii::equalsIgnoringCase(keyword, "system")) {
        token_.forcesQuirks = true;
        return;
    }
    rest.remove_prefix(6);
    if (isPublic && !quoted(token_.publicId))
        token_.forcesQuirks = true;
    token_.hasSystemId = quoted(token_.systemId);
    skip();
    if (!token_.hasSystemId && (!isPublic || !rest.empty()))
        token_.forcesQuirks = true;
}

bool Tokenizer::readTag(Token::Kind kind, std::size_t nameBegin) {
    const std::size_t end = std::min(source_.find_first_of(" \t\n\f/>", nameBegin), source_.size());
    token_.name.clear();
    appendName(source_.substr(nameBegin, end - nameBegin), token_.name);
    token_.tag = tagNamed(token_.name);
    cursor_ = end;
    if (!readAttributes())
        return false;
    token_.kind = kind;
    return true;
}

void Tokenizer::appendName(std::string_view bytes, std::string& name) {
    appendWithoutNul(bytes, name);
    std::ranges::transform(name, name.begin(), ascii::lower);
}

void Tokenizer::skipSpaces() {
    while (cursor_ < source_.size() && ascii::isSpace(source_[cursor_]))
        ++cursor_;
}

// Returns false if the tag has no end.
bool Tokenizer::readAttributes() {
    token_.attributes.clear();
    token_.selfClosing = false;
    for (;;) {
        skipSpaces();
        if (isAtEnd())
            return false;
        if (source_[cursor_] == '>') {
            ++cursor_;
            removeRepeatedAttributes();
            return true;
        }
        if (source_[cursor_] == '/') {
            ++cursor_;
            token_.selfClosing = at(cursor_) == '>';
            continue;
        }
        if (!readAttribute())
            return false;
    }
}

bool Tokenizer::readAttribute() {
    // An equals sign as the first character belongs to the name.
    const std::size_t end = std::min(source_.find_first_of(" \t\n\f/>=", cursor_ + 1), source_.size());
    Attribute& attribute = token_.attributes.emplace_back();
    appendName(source_.substr(cursor_, end - cursor_), attribute.name);
    cursor_ = end;
    skipSpaces();
    if (at(cursor_) != '=')
        return true;
    ++cursor_;
    skipSpaces();
    return readValue(attribute.value);
}

bool Tokenizer::readValue(std::string& value) {
    const char quote = at(cursor_);
    std::size_t end = npos;
    if (quote == '"' || quote == '\'') {
        end = source_.find(quote, ++cursor_);
        if (end == npos)
            return false;
    } else {
        end = source_.find_first_of(" \t\n\f>", cursor_);
        if (end == npos)
            return false;
    }
    appendDecoded(source_.substr(cursor_, end - cursor_), ReferencePlace::Attribute, true, value);
    cursor_ = end + (quote == '"' || quote == '\'');
    return true;
}

// Keeps the first of attributes with equal names. Few are compared pairwise, many through a set, so that a
// tag of very many attributes is linear too.
void Tokenizer::removeRepeatedAttributes() {
    std::vector<Attribute>& all = token_.attributes;
    if (all.size() < 2)
        return;
    constexpr std::size_t kFew = 12;
    if (all.size() <= kFew) {
        for (std::size_t i = 1; i < all.size();) {
            const auto before = all.begin() + static_cast<std::ptrdiff_t>(i);
            const bool repeated = std::find_if(all.begin(), before, [&](const Attribute& other) {
                                      return other.name == before->name;
                                  }) != before;
            if (repeated)
                all.erase(before);
            else
                ++i;
        }
        return;
    }
    std::unordered_set<std::string> seen;
    std::erase_if(all, [&](const Attribute& attribute) { return !seen.insert(attribute.name).second; });
}

// Reads the text up to the end tag or, if the text is empty, the end tag as markup.
void Tokenizer::readRaw() {
    const std::size_t end = content_ == Content::Plain    ? source_.size()
                            : content_ == Content::Script ? scriptEnd()
                                                          : rawEnd();
    if (end == cursor_) {
        content_ = Content::Markup;
        return readMarkup();
    }
    const std::string_view raw = source_.substr(cursor_, end - cursor_);
    cursor_ = end;
    giveText(raw, content_ == Content::Rcdata, true);
}

bool Tokenizer::isNameAt(std::size_t position, std::string_view name) const {
    const std::size_t behind = position + name.size();
    return behind < source_.size() &&
           ascii::equalsIgnoringCase(source_.substr(position, name.size()), name) &&
           (ascii::isSpace(source_[behind]) || source_[behind] == '/' || source_[behind] == '>');
}

bool Tokenizer::isEndTagAt(std::size_t position) const {
    return at(position) == '<' && at(position + 1) == '/' && isNameAt(position + 2, endName_);
}

std::size_t Tokenizer::rawEnd() const {
    for (std::size_t found = source_.find("</", cursor_); found != npos;
         found = source_.find("</", found + 2))
        if (isEndTagAt(found))
            return found;
    return source_.size();
}

// Returns the position of the end tag. After "<script" in a comment, the next "</script" does not end the
// script.
std::size_t Tokenizer::scriptEnd() const {
    bool isComment = false;
    bool isHidden = false;
    for (std::size_t i = source_.find_first_of("<-", cursor_); i != npos;
         i = source_.find_first_of("<-", i + 1)) {
        const std::string_view rest = source_.substr(i);
        if (isComment && rest.starts_with("-->")) {
            isComment = isHidden = false;
        } else if (!isComment && rest.starts_with("<!--")) {
            isComment = true;
            ++i; // "<!-->" ends the comment with the same dashes
        } else if (isComment && !isHidden && rest.front() == '<' && isNameAt(i + 1, "script")) {
            isHidden = true;
        } else if (isEndTagAt(i)) {
            if (!isHidden)
                return i;
            isHidden = false;
        }
    }
    return source_.size();
}

} // namespace tabulon::html
