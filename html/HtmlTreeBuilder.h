// The tree construction of the WHATWG's HTML standard, with scripting enabled but without running scripts.
// The implementation is divided by groups of modes: HtmlTreeBuilder.cpp (outside of the body), _body, _end
// (end tags of the body), _tables, _foreign (SVG and MathML), _formatting.
#pragma once

#include "base/Progress.h"
#include "html/HtmlFormatting.h"
#include "html/HtmlNode.h"
#include "html/HtmlOpenElements.h"
#include "html/HtmlTokenizer.h"

#include <vector>

namespace tabulon::html {

class TreeBuilder {
public:
    enum class Outcome {
        Whole,
        Entangled, ///< the page needs more steps than the limit for its size
        Cancelled, ///< by the user, through the progress
    };

    /// Builds the tree of `source` in `tree`. After an outcome other than Whole the tree contains what was
    /// built until then. Linear: the number of steps is limited by a constant and a constant number for each
    /// byte. With more than 512 open elements a new one becomes a sibling of its parent. `progress` may be
    /// nullptr. Requires: `source` is well-formed UTF-8 without carriage returns and outlives the tree, and
    /// the tree is new.
    static Outcome build(std::string_view source, Tree& tree, Progress* progress = nullptr);

private:
    enum class Mode : std::uint8_t {
        Initial,
        BeforeHtml,
        BeforeHead,
        InHead,
        AfterHead,
        InBody,
        Text,
        InTable,
        InTableText,
        InCaption,
        InColumnGroup,
        InTableBody,
        InRow,
        InCell,
        InTemplate,
        AfterBody,
        InFrameset,
        AfterFrameset,
        AfterAfterBody,
        AfterAfterFrameset,
    };
    /// Whether a token is processed, or must be processed again in the current mode.
    enum class Step : std::uint8_t { Done, Again };
    /// Where a node is inserted: in `parent` before `before`, or at the end if that is nullptr.
    struct Place {
        Node* parent;
        Node* before;
    };

    TreeBuilder(std::string_view source, Tree& tree);

    /// Processes all tokens.
    Outcome run(ProgressSteps steps);
    void process(const Token& token);
    Step dispatch(const Token& token);
    Step inMode(Mode mode, const Token& token);
    bool isForeign(const Token& token) const;

    // The functions `in…`, `before…` and `after…` process a token in the mode of their name. `start…` and
    // `end…` process the start tag and the end tag of the elements of their name.

    // Outside of the body.
    Step initial(const Token& token);
    Step beforeHtml(const Token& token);
    Step beforeHead(const Token& token);
    Step inHead(const Token& token);
    Step inHeadStart(const Token& token);
    Step afterHead(const Token& token);
    Step afterBody(const Token& token);
    Step inFrameset(const Token& token);
    Step afterFrameset(const Token& token);
    Step inText(const Token& token);
    Step inTemplate(const Token& token);
    Step startTemplate(const Token& token);
    Step endTemplate();
    Step endOfPage(const Token& token);
    void stop() { isStopped_ = true; }
    void resetMode();

    // In the body.
    Step inBody(const Token& token);
    Step bodyText(std::string_view text);
    Step bodyStart(const Token& token);
    Step bodyStartGrouped(const Token& token);
    Step bodyStartOther(const Token& token);
    Step startFrameset(const Token& token);
    Step startHeading(const Token& token);
    Step startForm(const Token& token);
    Step startListItem(const Token& token, std::initializer_list<Tag> ends);
    Step startButton(const Token& token);
    Step startLink(const Token& token);
    Step startNobr(const Token& token);
    Step startFormatting(const Token& token);
    Step startTable(const Token& token);
    Step startInput(const Token& token);
    Step startSelect(const Token& token);
    Step startOption(const Token& token);
    Step startVoid(const Token& token);
    Step startRaw(const Token& token, Content content);
    Step startForeign(const Token& token, Namespace space);
    Step bodyEnd(const Token& token);
    Step bodyEndOther(const Token& token);
    Step endForm();
    Step endHeading();
    Step endBlock(Tag tag, Scope scope);
    Step endObject(Tag tag);
    Step endAny(const Token& token);

    // In tables.
    Step inTable(const Token& token);
    Step inTableStart(const Token& token);
    Step inTableEnd(const Token& token);
    Step fostering(const Token& token);
    Step inTableText(const Token& token);
    Step inCaption(const Token& token);
    Step inColumnGroup(const Token& token);
    Step inTableBody(const Token& token);
    Step inRow(const Token& token);
    Step inCell(const Token& token);
    Step endTable();
    Step endCaption();
    Step endRow();
    Step endCell();
    void clearBackTo(std::initializer_list<Tag> tags);
    Step startPart(const Token& token, Mode mode);

    // In SVG and MathML.
    Step inForeign(const Token& token);
    Step foreignText(std::string_view text);
    Step foreignStart(const Token& token);
    Step foreignEnd(const Token& token);
    void leaveForeign();

    // Formatting elements.
    void reopenFormatting();
    void addFormatting(Node& node, const Token& token);
    Step endFormatting(const Token& token);
    bool endFormattingOnce(const Token& token, Step& step);
    void moveOutOf(std::size_t index, std::size_t furthest, std::size_t entry);
    Node& moveUp(std::size_t index, std::size_t furthest, std::size_t& bookmark);

    // Nodes.
    /// Returns a new element without a parent.
    Node& newElement(const Token& token, Namespace space);
    const LinkAttributes* linkOf(const Token& token);
    /// Returns a new HTML element with the tag and link of `node`, without a parent.
    Node& cloneOf(const Node& node);
    /// Inserts an element at the current place and opens it.
    Node& insertElement(const Token& token, Namespace space = Namespace::Html);
    /// Inserts and opens an HTML element without attributes.
    Node& insertNamed(Tag tag);
    /// Inserts an element that has no content, and does not leave it open.
    void insertVoid(const Token& token);
    /// Inserts a text at the current place. Does nothing if it is empty.
    void insertText(std::string_view text);
    Place placeFor(Node& target) const;
    /// Inserts an element, as a sibling of its parent if the elements are nested too deep.
    void attach(Node& node, Place place);
    /// Closes the innermost elements as long as their end tag is optional and their tag is not `except`.
    void closeImpliedEnds(Tag except = Tag::Other);
    /// Closes an open paragraph if it is in button scope.
    void closeParagraph();
    bool popIfOpen(Tag tag);

    /// The cost of moving one open element, and of a copy of an element, in steps.
    static constexpr std::size_t kStepsPerMove = 32;
    static constexpr std::size_t kStepsPerCopy = 64;
    /// Subtracts steps from the limit, and stops at 0. Called where one tag can cause many steps.
    void spend(std::size_t steps);

    Tree& tree_;
    Tokenizer tokenizer_;
    OpenElements open_;
    FormattingElements formatting_;
    std::vector<Mode> templateModes_;
    std::vector<std::string_view> tableTexts_;
    Node* head_ = nullptr;
    Node* form_ = nullptr;
    Mode mode_ = Mode::Initial;
    Mode originalMode_ = Mode::Initial;
    Mode modeBeforeTableText_ = Mode::Initial;
    bool isQuirky_ = false;
    bool allowsFrameset_ = true;
    bool fosters_ = false;
    bool skipsNewline_ = false;
    bool isStopped_ = false;
    std::size_t stepsLeft_;
};

} // namespace tabulon::html
