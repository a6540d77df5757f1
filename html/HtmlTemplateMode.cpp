#include "html/HtmlTemplateMode.h"

namespace tabulon::html {
namespace {

Mode modeFor(Tag tag) {
    switch (tag) {
    case Tag::Caption:
    case Tag::Colgroup:
    case Tag::Tbody:
    case Tag::Tfoot:
    case Tag::Thead:
        return Mode::InTable;
    case Tag::Col:
        return Mode::InColumnGroup;
    case Tag::Tr:
        return Mode::InTableBody;
    case Tag::Td:
    case Tag::Th:
        return Mode::InRow;
    default:
        return Mode::InBody;
    }
}

} // namespace

Step TemplateMode::process(const Token& token) {
    if (token.kind == Token::Kind::EndTag) {
        if (token.tag == Tag::Template)
            templates_.end();
        return Step::Done;
    }
    if (token.kind != Token::Kind::StartTag)
        return body_.process(token);
    return head_.start(token) ? Step::Done : templates_.continueIn(modeFor(token.tag));
}

} // namespace tabulon::html
