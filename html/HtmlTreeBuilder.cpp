#include "html/HtmlTreeBuilder.h"

#include "html/HtmlQuirks.h"
#include "html/HtmlText.h"

#include <algorithm>
#include <utility>

namespace tabulon::html {
namespace {

constexpr std::size_t kFreeSteps = std::size_t{1} << 28;
constexpr std::size_t kStepsPerByte = 64;

bool isAnyOf(Tag tag, std::initializer_list<Tag> tags) {
    return std::ranges::find(tags, tag) != tags.end();
}

} // namespace

TreeBuilder::Outcome TreeBuilder::build(std::string_view source, Tree& tree, Progress* progress) {
    return TreeBuilder(source, tree).run(ProgressSteps(progress, source.size()));
}

TreeBuilder::TreeBuilder(std::string_view source, Tree& tree)
    : tree_(tree), tokenizer_(source, tree.texts()), stepsLeft_(kFreeSteps + kStepsPerByte * source.size()) {}

TreeBuilder::Outcome TreeBuilder::run(ProgressSteps steps) {
    while (!isStopped_) {
        if (!steps.goOn(tokenizer_.position()))
            return Outcome::Cancelled;
        tokenizer_.setAllowsCdata(!open_.isEmpty() && open_.top().space != Namespace::Html);
        process(tokenizer_.next());
    }
    return stepsLeft_ > 0 ? Outcome::Whole : Outcome::Entangled;
}

void TreeBuilder::spend(std::size_t steps) {
    stepsLeft_ -= std::min(steps, stepsLeft_);
    if (stepsLeft_ == 0)
        stop();
}

void TreeBuilder::process(const Token& token) {
    const bool skipsNewline = std::exchange(skipsNewline_, false);
    if (token.kind == Token::Kind::Text && skipsNewline && token.text.starts_with('\n')) {
        Token rest;
        rest.kind = Token::Kind::Text;
        rest.text = token.text.substr(1);
        if (!rest.text.empty())
            process(rest);
        return;
    }
    while (!isStopped_ && dispatch(token) == Step::Again) {
    }
    spend(formatting_.takeSteps());
}

TreeBuilder::Step TreeBuilder::dispatch(const Token& token) {
    return isForeign(token) ? inForeign(token) : inMode(mode_, token);
}

bool TreeBuilder::isForeign(const Token& token) const {
    if (open_.isEmpty() || open_.top().space == Namespace::Html || token.kind == Token::Kind::End)
        return false;
    const Node& node = open_.top();
    const bool isStart = token.kind == Token::Kind::StartTag;
    const bool isText = token.kind == Token::Kind::Text;
    if (isMathTextIntegrationPoint(node) &&
        (isText || (isStart && token.tag != Tag::Mglyph && token.tag != Tag::Malignmark)))
        return false;
    if (node.space == Namespace::MathML && node.tag == Tag::AnnotationXml && isStart && token.tag == Tag::Svg)
        return false;
    return !(isHtmlIntegrationPoint(node) && (isStart || isText));
}

TreeBuilder::Step TreeBuilder::inMode(Mode mode, const Token& token) {
    switch (mode) {
    case Mode::Initial:
        return initial(token);
    case Mode::BeforeHtml:
        return beforeHtml(token);
    case Mode::BeforeHead:
        return beforeHead(token);
    case Mode::InHead:
        return inHead(token);
    case Mode::AfterHead:
        return afterHead(token);
    case Mode::InBody:
        return inBody(token);
    case Mode::Text:
        return inText(token);
    case Mode::InTable:
        return inTable(token);
    case Mode::InTableText:
        return inTableText(token);
    case Mode::InCaption:
        return inCaption(token);
    case Mode::InColumnGroup:
        return inColumnGroup(token);
    case Mode::InTableBody:
        return inTableBody(token);
    case Mode::InRow:
        return inRow(token);
    case Mode::InCell:
        return inCell(token);
    case Mode::InTemplate:
        return inTemplate(token);
    case Mode::AfterBody:
    case Mode::AfterAfterBody:
        return afterBody(token);
    case Mode::InFrameset:
        return inFrameset(token);
    case Mode::AfterFrameset:
    case Mode::AfterAfterFrameset:
        return afterFrameset(token);
    }
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::initial(const Token& token) {
    if (token.kind == Token::Kind::Comment || (token.kind == Token::Kind::Text && isBlank(token.text)))
        return Step::Done;
    mode_ = Mode::BeforeHtml;
    isQuirky_ = token.kind != Token::Kind::Doctype || isQuirky(token);
    return token.kind == Token::Kind::Doctype ? Step::Done : Step::Again;
}

TreeBuilder::Step TreeBuilder::beforeHtml(const Token& token) {
    switch (token.kind) {
    case Token::Kind::Doctype:
    case Token::Kind::Comment:
        return Step::Done;
    case Token::Kind::Text:
        if (isBlank(token.text))
            return Step::Done;
        break;
    case Token::Kind::StartTag:
        if (token.tag == Tag::Html) {
            insertElement(token);
            mode_ = Mode::BeforeHead;
            return Step::Done;
        }
        break;
    case Token::Kind::EndTag:
        if (!isAnyOf(token.tag, {Tag::Head, Tag::Body, Tag::Html, Tag::Br}))
            return Step::Done;
        break;
    case Token::Kind::End:
        break;
    }
    insertNamed(Tag::Html);
    mode_ = Mode::BeforeHead;
    return Step::Again;
}

TreeBuilder::Step TreeBuilder::beforeHead(const Token& token) {
    switch (token.kind) {
    case Token::Kind::Doctype:
    case Token::Kind::Comment:
        return Step::Done;
    case Token::Kind::Text:
        if (isBlank(token.text))
            return Step::Done;
        break;
    case Token::Kind::StartTag:
        if (token.tag == Tag::Html)
            return inBody(token);
        if (token.tag == Tag::Head) {
            head_ = &insertElement(token);
            mode_ = Mode::InHead;
            return Step::Done;
        }
        break;
    case Token::Kind::EndTag:
        if (!isAnyOf(token.tag, {Tag::Head, Tag::Body, Tag::Html, Tag::Br}))
            return Step::Done;
        break;
    case Token::Kind::End:
        break;
    }
    head_ = &insertNamed(Tag::Head);
    mode_ = Mode::InHead;
    return Step::Again;
}

TreeBuilder::Step TreeBuilder::inHead(const Token& token) {
    switch (token.kind) {
    case Token::Kind::Doctype:
    case Token::Kind::Comment:
        return Step::Done;
    case Token::Kind::Text: {
        const std::string_view blanks = leadingBlanks(token.text);
        if (blanks.empty())
            break;
        insertText(blanks);
        if (blanks.size() == token.text.size())
            return Step::Done;
        Token rest;
        rest.kind = Token::Kind::Text;
        rest.text = token.text.substr(blanks.size());
        process(rest);
        return Step::Done;
    }
    case Token::Kind::StartTag:
        if (token.tag == Tag::Head)
            return Step::Done;
        if (const Step step = inHeadStart(token); step == Step::Done)
            return step;
        break;
    case Token::Kind::EndTag:
        if (token.tag == Tag::Template)
            return endTemplate();
        if (token.tag == Tag::Head) {
            open_.pop();
            mode_ = Mode::AfterHead;
            return Step::Done;
        }
        if (!isAnyOf(token.tag, {Tag::Body, Tag::Html, Tag::Br}))
            return Step::Done;
        break;
    case Token::Kind::End:
        break;
    }
    open_.pop();
    mode_ = Mode::AfterHead;
    return Step::Again;
}

// Returns Again for an element that does not belong into a head.
TreeBuilder::Step TreeBuilder::inHeadStart(const Token& token) {
    switch (token.tag) {
    case Tag::Html:
        return inBody(token);
    case Tag::Base:
    case Tag::Basefont:
    case Tag::Bgsound:
    case Tag::Link:
    case Tag::Meta:
        insertVoid(token);
        return Step::Done;
    case Tag::Title:
        return startRaw(token, Content::Rcdata);
    case Tag::Noscript:
    case Tag::Noframes:
    case Tag::Style:
        return startRaw(token, Content::Rawtext);
    case Tag::Script:
        return startRaw(token, Content::Script);
    case Tag::Template:
        return startTemplate(token);
    default:
        return Step::Again;
    }
}

TreeBuilder::Step TreeBuilder::afterHead(const Token& token) {
    switch (token.kind) {
    case Token::Kind::Doctype:
    case Token::Kind::Comment:
        return Step::Done;
    case Token::Kind::Text:
        if (!leadingBlanks(token.text).empty())
            return inHead(token); // inserts the leading blanks and processes the rest in the current mode
        break;
    case Token::Kind::StartTag:
        if (token.tag == Tag::Html)
            return inBody(token);
        if (token.tag == Tag::Body || token.tag == Tag::Frameset) {
            insertElement(token);
            allowsFrameset_ &= token.tag != Tag::Body;
            mode_ = token.tag == Tag::Body ? Mode::InBody : Mode::InFrameset;
            return Step::Done;
        }
        if (has(token.tag, kHeadContent)) {
            open_.push(*head_);
            inHeadStart(token);
            open_.removeAt(open_.indexOf(*head_));
            return Step::Done;
        }
        if (token.tag == Tag::Head)
            return Step::Done;
        break;
    case Token::Kind::EndTag:
        if (token.tag == Tag::Template)
            return endTemplate();
        if (!isAnyOf(token.tag, {Tag::Body, Tag::Html, Tag::Br}))
            return Step::Done;
        break;
    case Token::Kind::End:
        break;
    }
    insertNamed(Tag::Body);
    mode_ = Mode::InBody;
    return Step::Again;
}

TreeBuilder::Step TreeBuilder::inText(const Token& token) {
    if (token.kind == Token::Kind::Text) {
        insertText(token.text);
        return Step::Done;
    }
    open_.pop();
    mode_ = originalMode_;
    return token.kind == Token::Kind::End ? Step::Again : Step::Done;
}

TreeBuilder::Step TreeBuilder::startRaw(const Token& token, Content content) {
    insertElement(token);
    tokenizer_.setContent(content);
    originalMode_ = mode_;
    mode_ = Mode::Text;
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::afterBody(const Token& token) {
    switch (token.kind) {
    case Token::Kind::Doctype:
    case Token::Kind::Comment:
        return Step::Done;
    case Token::Kind::Text:
        if (isBlank(token.text))
            return inBody(token);
        break;
    case Token::Kind::StartTag:
        if (token.tag == Tag::Html)
            return inBody(token);
        break;
    case Token::Kind::EndTag:
        if (mode_ == Mode::AfterBody && token.tag == Tag::Html) {
            mode_ = Mode::AfterAfterBody;
            return Step::Done;
        }
        break;
    case Token::Kind::End:
        return endOfPage(token);
    }
    mode_ = Mode::InBody;
    return Step::Again;
}

// Inserts only framesets and the text of noframes: a frameset contains no other elements with links.
TreeBuilder::Step TreeBuilder::inFrameset(const Token& token) {
    if (token.kind == Token::Kind::End)
        return endOfPage(token);
    if (token.kind == Token::Kind::StartTag && token.tag == Tag::Frameset)
        insertElement(token);
    else if (token.kind == Token::Kind::StartTag && token.tag == Tag::Noframes)
        return inHeadStart(token);
    else if (token.kind == Token::Kind::EndTag && token.tag == Tag::Frameset &&
             open_.top().tag != Tag::Html) {
        open_.pop();
        if (open_.top().tag != Tag::Frameset)
            mode_ = Mode::AfterFrameset;
    }
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::afterFrameset(const Token& token) {
    if (token.kind == Token::Kind::End)
        return endOfPage(token);
    if (token.kind == Token::Kind::StartTag && token.tag == Tag::Noframes)
        return inHeadStart(token);
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::endOfPage(const Token& token) {
    if (!templateModes_.empty())
        return inTemplate(token);
    stop();
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::startTemplate(const Token& token) {
    insertElement(token);
    formatting_.addMarker();
    allowsFrameset_ = false;
    mode_ = Mode::InTemplate;
    templateModes_.push_back(Mode::InTemplate);
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::endTemplate() {
    if (!open_.contains(Tag::Template))
        return Step::Done;
    open_.popTo(open_.lastIndexOf(Tag::Template));
    formatting_.clearToMarker();
    templateModes_.pop_back();
    resetMode();
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::inTemplate(const Token& token) {
    const auto switchTo = [this](Mode mode) {
        templateModes_.back() = mode_ = mode;
        return Step::Again;
    };
    if (token.kind == Token::Kind::End) {
        if (!open_.contains(Tag::Template)) {
            stop();
            return Step::Done;
        }
        endTemplate();
        return Step::Again;
    }
    if (token.kind == Token::Kind::EndTag)
        return token.tag == Tag::Template ? endTemplate() : Step::Done;
    if (token.kind != Token::Kind::StartTag)
        return inBody(token);
    if (has(token.tag, kHeadContent))
        return inHeadStart(token);
    switch (token.tag) {
    case Tag::Caption:
    case Tag::Colgroup:
    case Tag::Tbody:
    case Tag::Tfoot:
    case Tag::Thead:
        return switchTo(Mode::InTable);
    case Tag::Col:
        return switchTo(Mode::InColumnGroup);
    case Tag::Tr:
        return switchTo(Mode::InTableBody);
    case Tag::Td:
    case Tag::Th:
        return switchTo(Mode::InRow);
    default:
        return switchTo(Mode::InBody);
    }
}

// Sets the mode by the innermost open element that determines one.
void TreeBuilder::resetMode() {
    struct Row {
        Tag tag;
        Mode mode;
    };
    static constexpr Row kRows[] = {
        {Tag::Td, Mode::InCell},
        {Tag::Th, Mode::InCell},
        {Tag::Tr, Mode::InRow},
        {Tag::Tbody, Mode::InTableBody},
        {Tag::Thead, Mode::InTableBody},
        {Tag::Tfoot, Mode::InTableBody},
        {Tag::Caption, Mode::InCaption},
        {Tag::Colgroup, Mode::InColumnGroup},
        {Tag::Table, Mode::InTable},
        {Tag::Template, Mode::InTemplate},
        {Tag::Head, Mode::InHead},
        {Tag::Body, Mode::InBody},
        {Tag::Frameset, Mode::InFrameset},
    };
    const Row* innermost = nullptr;
    for (const Row& row : kRows) {
        const bool isOpen = open_.contains(row.tag);
        if (isOpen && (!innermost || open_.lastIndexOf(row.tag) > open_.lastIndexOf(innermost->tag)))
            innermost = &row;
    }
    if (!innermost)
        mode_ = head_ ? Mode::AfterHead : Mode::BeforeHead;
    else if (innermost->mode == Mode::InTemplate && !templateModes_.empty())
        mode_ = templateModes_.back();
    else
        mode_ = innermost->mode;
}

} // namespace tabulon::html
