#include "opening/BridgeOperations.h"

#include "opening/BrowserEvents.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tabulon {
namespace {

// The scripts of events by their texts. The extension has a function of its own for each.
constexpr auto kScripts = std::to_array<std::pair<std::string_view, BridgeScript>>({
    {"getSelection()+''", BridgeScript::Selection},
    {"x = document.title;", BridgeScript::Title},
    {"txt='';var nl = \"\\f\";var x=document.links;var i;for (i=0;i<x.length;i++) {txt=txt+x[i].href+nl;};",
     BridgeScript::LinkTargets},
    {"txt='';var nl = \"\\f\";var x=document.links;var i;for (i=0;i<x.length;i++) {txt=txt+x[i].text+nl;};",
     BridgeScript::LinkTexts},
    {"txt='';var nl = \"\\f\";var x=document.links;var i;for (i=0;i<x.length;i++) "
     "{txt=txt+x[i].getAttribute('ADD_DATE')+nl;};",
     BridgeScript::DatesAdded},
    {"txt='';var nl = \"\\f\";var x=document.links;var i;for (i=0;i<x.length;i++) "
     "{txt=txt+x[i].getAttribute('LAST_MODIFIED')+nl;};",
     BridgeScript::DatesModified},
});

const EventValue* parameterOf(const AppEvent& event, FourCharCode code) {
    const auto found = std::ranges::find(event.parameters, code, &std::pair<FourCharCode, EventValue>::first);
    return found == event.parameters.end() ? nullptr : &found->second;
}

std::optional<std::string> textOf(const EventValue* value) {
    const auto* const text = value ? std::get_if<std::string>(value) : nullptr;
    return text ? std::optional(*text) : std::nullopt;
}

std::optional<std::string> directText(const AppEvent& event) {
    return event.directObject ? textOf(&*event.directObject) : std::nullopt;
}

bool isEvent(const AppEvent& event, FourCharCode eventClass, FourCharCode identifier) {
    return event.eventClass == eventClass && event.eventIdentifier == identifier;
}

// Returns the object of a question, or nullptr for another event.
const ObjectSpecifier* questionedObject(const AppEvent& event) {
    return isEvent(event, "core", "getd") && event.directObject
               ? std::get_if<ObjectSpecifier>(&*event.directObject)
               : nullptr;
}

// A question for the window itself, and not for a property of it.
bool asksForWindow(const ObjectSpecifier& object) {
    return object.steps.size() == 1 && object.steps.front().position.has_value();
}

std::optional<BridgeRequest> showRequest(const AppEvent& event, std::int64_t id) {
    const auto url = directText(event);
    if (!url)
        return std::nullopt;
    const EventValue* value = parameterOf(event, "WIND");
    const auto* const window = value ? std::get_if<std::int32_t>(value) : nullptr;
    BridgeOperation operation = BridgeOperation::NewTab;
    if (window && *window == static_cast<std::int32_t>(SuiteWindow::Frontmost))
        operation = BridgeOperation::SetURL;
    else if (window && *window == static_cast<std::int32_t>(SuiteWindow::NewWindow))
        operation = BridgeOperation::NewWindow;
    return BridgeRequest{.id = id, .operation = operation, .url = url};
}

std::optional<BridgeRequest> scriptRequest(const AppEvent& event, std::int64_t id) {
    const auto text = isEvent(event, "sfri", "dojs") ? directText(event) : textOf(parameterOf(event, "JvSc"));
    const auto* const script =
        std::ranges::find(kScripts, text.value_or(""), &decltype(kScripts)::value_type::first);
    if (script == kScripts.end())
        return std::nullopt;
    return BridgeRequest{.id = id, .operation = BridgeOperation::RunScript, .script = script->second};
}

} // namespace

std::optional<BridgeRequest> requestForEvent(const AppEvent& event, std::int64_t id) {
    if (const ObjectSpecifier* object = questionedObject(event)) {
        if (asksForWindow(*object))
            return BridgeRequest{.id = id, .operation = BridgeOperation::Windows};
        if (object->steps.back().code == FourCharCode("Sour"))
            return BridgeRequest{
                .id = id, .operation = BridgeOperation::RunScript, .script = BridgeScript::Source};
        return BridgeRequest{.id = id, .operation = BridgeOperation::FrontTab};
    }
    if (isEvent(event, "core", "setd")) {
        const auto url = textOf(parameterOf(event, "data"));
        return url ? std::optional(BridgeRequest{.id = id, .operation = BridgeOperation::SetURL, .url = url})
                   : std::nullopt;
    }
    if (isEvent(event, "core", "crel"))
        return BridgeRequest{.id = id, .operation = BridgeOperation::NewWindow};
    if (isEvent(event, "WWW!", "OURL") || isEvent(event, "GURL", "GURL"))
        return showRequest(event, id);
    if (isEvent(event, "CrSu", "ExJa") || isEvent(event, "sfri", "dojs"))
        return scriptRequest(event, id);
    return std::nullopt;
}

AppEventReply replyToEvent(const AppEvent& event, const BridgeResult& result) {
    AppEventReply reply;
    if (const ObjectSpecifier* object = questionedObject(event)) {
        const FourCharCode code = object->steps.back().code;
        if (asksForWindow(*object)) {
            if (result.windows > 0)
                reply.directObject = *object;
        } else if (code == FourCharCode("Sour"))
            reply.directObject = result.text;
        else
            reply.directObject = code == FourCharCode("pnam") ? result.title : result.url;
    } else if (isEvent(event, "CrSu", "ExJa") || isEvent(event, "sfri", "dojs"))
        reply.directObject = result.text;
    return reply;
}

} // namespace tabulon
