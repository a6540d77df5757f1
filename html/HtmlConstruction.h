// The construction of one page's tree: the state that the rules of all insertion modes share, and the steps
// that they are made of. The rules of each group of modes are in a class of their own.
#pragma once

#include "html/HtmlFormatting.h"
#include "html/HtmlNode.h"
#include "html/HtmlOpenElements.h"
#include "html/HtmlTokenizer.h"

#include <string_view>

namespace tabulon::html {

/// The insertion modes of the standard.
enum class Mode : std::uint8_t {
    Initial,    ///< before the document type
    BeforeHtml, ///< before the element html
    BeforeHead, ///< in html, before head
    InHead,
    AfterHead, ///< before body or frameset
    InBody,
    Text, ///< in an element whose content is text
    InTable,
    InTableText, ///< while the texts of a table are collected
    InCaption,
    InColumnGroup, ///< in colgroup
    InTableBody,   ///< in tbody, thead or tfoot, outside of its rows
    InRow,         ///< in a row, outside of its cells
    InCell,
    InTemplate, ///< in a template, before its first start tag
    AfterBody,  ///< after the end tag of body
    InFrameset,
    AfterFrameset,  ///< after the end tag of the outermost frameset
    AfterAfterBody, ///< after the end tag of html
    AfterAfterFrameset,
};

/// What follows after a token has been processed.
enum class Step : std::uint8_t {
    Done,   ///< the next token
    Again,  ///< the same token, in the current mode
    AsHtml, ///< the same token, in the current mode, but not by the rules of SVG and MathML
};

/// Where a node is inserted: in `parent` before `before`, or at the end if that is nullptr.
struct Place {
    Node* parent;
    Node* before;
};

/// Refers to the tree and the page's source, which must outlive it. Inserting an element is linear in the
/// size of its tag, closing elements in their number; other functions take constant time unless they say
/// otherwise. Functions that use the current place require that an element is open, except `insertElement`
/// and `insertNamed`, which begin the tree.
class Construction {
public:
    /// The cost of moving one open element on the stack, in steps.
    static constexpr std::size_t kStepsPerMove = 32;
    /// The cost of copying an element.
    static constexpr std::size_t kStepsPerCopy = 64;

    /// Requires: `source` is well-formed UTF-8 without carriage returns, and `treeToBuild` is new.
    Construction(std::string_view source, Tree& treeToBuild);

    // What the modes share.
    Tree& tree;
    Tokenizer tokenizer;
    OpenElements open;
    FormattingElements formatting;
    /// The mode by whose rules the next token is processed.
    Mode mode = Mode::Initial;
    Node* head = nullptr; ///< nullptr before the head
    Node* form = nullptr; ///< the form whose end tag has not been read; nullptr if there is none
    /// Whether the page is in quirks mode (HtmlQuirks.h).
    bool isQuirky = false;
    bool allowsFrameset = true; ///< a frameset can still replace the body
    bool fosters = false;       ///< content that a table does not allow is inserted before it
    bool skipsNewline = false;  ///< a line feed at the beginning of the next text is ignored
    /// Whether no further token is processed.
    bool isStopped = false;

    /// Stops at the end of the page.
    void stop() { isStopped = true; }
    /// Subtracts steps from the limit, and stops at 0. Called where one tag can cause many steps. Does not
    /// interrupt the caller, which reads `isStopped` in its loops.
    void spend(std::size_t steps);
    /// Returns true if the limit was reached: a constant, and a constant number of steps for each byte of the
    /// source.
    bool isOverLimit() const { return stepsLeft_ == 0; }

    /// Inserts an element at the current place, or into the document if no element is open, and opens it. Its
    /// link is kept if it is an HTML a, area or base with an address. Owned by the tree, as are all nodes.
    Node& insertElement(const Token& token, Namespace space = Namespace::Html);
    /// Inserts and opens an HTML element without attributes. Requires: `tag` is not Other.
    Node& insertNamed(Tag tag);
    /// Inserts an element that has no content, and does not leave it open.
    void insertVoid(const Token& token);
    /// Inserts a text at the current place. Does nothing if it is empty. Requires: `text` is valid as long as
    /// the tree.
    void insertText(std::string_view text);
    /// Inserts the white space that a text begins with, and removes it from the token. Returns true if the
    /// text is empty then. Linear in the white space.
    bool insertBlanks(Token& text);
    /// Returns `text` without NUL characters, valid as long as the tree. Linear.
    std::string_view withoutNuls(std::string_view text);
    /// Returns a new HTML element with the name and link of `node`, without a parent and without children. It
    /// is not open.
    Node& cloneOf(const Node& node);
    /// Returns the place of a new node in `target`. While `fosters` is set, and if `target` is a part of a
    /// table, this is before the table. It is in a template if one is open inside the table, and in the
    /// element around the table if the table has no parent.
    Place placeFor(Node& target) const;
    /// Inserts an element at the place. If more than 512 elements are open, an element at the end of its
    /// parent becomes a sibling of the parent, as in browsers. Requires: `node` has no parent.
    void attach(Node& node, Place place);

    // Ends of elements.
    /// Closes the innermost elements as long as their end tag is optional and their tag is not `except`.
    void closeImpliedEnds(Tag except = Tag::Other);
    /// Closes an open paragraph if it is in button scope.
    void closeParagraph();
    /// Closes the innermost element of the tag with everything in it, and returns true, if it is in `scope`.
    /// Returns false, and closes no element, if it is not.
    bool closeInScope(Tag tag, Scope scope = Scope::Normal);
    /// Closes the innermost element of the token's name with everything in it, unless a special element is
    /// inside it. Linear in the number of elements inside it; they are subtracted from the limit.
    void closeNamed(const Token& token);

private:
    /// Returns a new element for the token, without a parent.
    Node& newElement(const Token& token, Namespace space);
    /// Returns the token's link, which the tree owns, or nullptr if the token has no address. The attributes
    /// are copied, because the next token replaces them.
    const LinkAttributes* linkOf(const Token& token);

    /// The number of steps until the limit.
    std::size_t stepsLeft_;
};

} // namespace tabulon::html
