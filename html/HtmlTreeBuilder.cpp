// The processing of a page's tokens, each by the rules of the current mode.
#include "html/HtmlTreeBuilder.h"

#include "html/HtmlBodyMode.h"
#include "html/HtmlConstruction.h"
#include "html/HtmlEndModes.h"
#include "html/HtmlForeignContent.h"
#include "html/HtmlFormattingRules.h"
#include "html/HtmlHeadModes.h"
#include "html/HtmlTableModes.h"
#include "html/HtmlTemplateMode.h"
#include "html/HtmlTemplates.h"

#include <utility>

namespace tabulon::html {
namespace {

class TreeBuilder {
public:
    TreeBuilder(std::string_view source, Tree& tree) : state_(source, tree) {}

    BuildOutcome run(ProgressSteps steps) {
        while (!state_.isStopped) {
            if (!steps.goOn(state_.tokenizer.position()))
                return BuildOutcome::Cancelled;
            state_.tokenizer.setAllowsCdata(!state_.open.isEmpty() &&
                                            state_.open.top().space != Namespace::Html);
            process(state_.tokenizer.next());
        }
        return state_.isOverLimit() ? BuildOutcome::Entangled : BuildOutcome::Whole;
    }

private:
    void process(Token& token) {
        const bool skipsNewline = std::exchange(state_.skipsNewline, false);
        if (skipsNewline && token.kind == Token::Kind::Text && token.text.starts_with('\n')) {
            token.text.remove_prefix(1);
            if (token.text.empty())
                return;
        }
        while (!state_.isStopped && dispatch(token) == Step::Again) {
        }
        state_.spend(state_.formatting.takeSteps());
    }

    Step dispatch(Token& token) {
        if (foreign_.takes(token))
            if (const Step step = foreign_.process(token); step != Step::AsHtml)
                return step;
        // Comments are in no tree. They only end the text of a table.
        const bool isIgnored = token.kind == Token::Kind::Comment || token.kind == Token::Kind::Doctype;
        if (isIgnored && state_.mode != Mode::Initial && state_.mode != Mode::InTableText)
            return Step::Done;
        return inMode(token);
    }

    Step inMode(Token& token) {
        switch (state_.mode) {
        case Mode::Initial:
            return head_.initial(token);
        case Mode::BeforeHtml:
            return head_.beforeHtml(token);
        case Mode::BeforeHead:
            return head_.beforeHead(token);
        case Mode::InHead:
            return head_.inHead(token);
        case Mode::AfterHead:
            return head_.afterHead(token);
        case Mode::InBody:
            return body_.process(token);
        case Mode::Text:
            return head_.inText(token);
        case Mode::InTable:
            return tables_.inTable(token);
        case Mode::InTableText:
            return tables_.inTableText(token);
        case Mode::InCaption:
            return tables_.inCaption(token);
        case Mode::InColumnGroup:
            return tables_.inColumnGroup(token);
        case Mode::InTableBody:
            return tables_.inTableBody(token);
        case Mode::InRow:
            return tables_.inRow(token);
        case Mode::InCell:
            return tables_.inCell(token);
        case Mode::InTemplate:
            return template_.process(token);
        case Mode::AfterBody:
        case Mode::AfterAfterBody:
            return end_.afterBody(token);
        case Mode::InFrameset:
            return end_.inFrameset(token);
        case Mode::AfterFrameset:
        case Mode::AfterAfterFrameset:
            return end_.afterFrameset(token);
        }
        return Step::Done;
    }

    Construction state_;
    Templates templates_{state_};
    FormattingRules formatting_{state_};
    HeadModes head_{state_, templates_};
    BodyMode body_{state_, formatting_, head_, templates_};
    TableModes tables_{state_, body_, head_, templates_};
    TemplateMode template_{body_, head_, templates_};
    EndModes end_{state_, body_, head_, templates_};
    ForeignContent foreign_{state_};
};

} // namespace

BuildOutcome buildTree(std::string_view source, Tree& tree, Progress* progress) {
    return TreeBuilder(source, tree).run(ProgressSteps(progress, source.size()));
}

} // namespace tabulon::html
