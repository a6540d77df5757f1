#include "platform/linux/CommandLineEvents.h"

#include <algorithm>

namespace tabulon {
namespace {

constexpr std::int32_t kNewWindow = 0; // the numbers of windows in events; the others are in BrowserEvents.h
constexpr std::int32_t kNewTab = -2;

const EventValue* parameter(const AppEvent& event, FourCharCode code) {
    const auto found = std::ranges::find(event.parameters, code, &std::pair<FourCharCode, EventValue>::first);
    return found == event.parameters.end() ? nullptr : &found->second;
}

const std::string* textIn(const EventValue* value) {
    return value ? std::get_if<std::string>(value) : nullptr;
}

Placement placementOf(const AppEvent& event) {
    const EventValue* value = parameter(event, "WIND");
    const auto* const window = value ? std::get_if<std::int32_t>(value) : nullptr;
    if (!window)
        return Placement::BrowsersChoice;
    return *window == kNewWindow ? Placement::NewWindow
           : *window == kNewTab  ? Placement::NewTab
                                 : Placement::BrowsersChoice;
}

bool is(const AppEvent& event, FourCharCode eventClass, FourCharCode identifier) {
    return event.eventClass == eventClass && event.eventIdentifier == identifier;
}

} // namespace

Result<AppEventReply> CommandLineEvents::send(const AppEvent& event) {
    const bool isNewWindow = newWindows_.erase(event.application) > 0;
    Result<void> sent = failure("The browser has no option for this.");
    if (is(event, "core", "crel")) {
        newWindows_.insert(event.application);
        return AppEventReply{};
    }
    const std::string* direct = textIn(event.directObject ? &*event.directObject : nullptr);
    if ((is(event, "GURL", "GURL") || is(event, "WWW!", "OURL")) && direct)
        sent = show(event, *direct, placementOf(event));
    else if (const std::string* data = textIn(parameter(event, "data")); is(event, "core", "setd") && data)
        sent = show(event, *data, isNewWindow ? Placement::NewWindow : Placement::BrowsersChoice);
    if (!sent)
        return tl::unexpected(sent.error());
    return AppEventReply{};
}

Result<void> CommandLineEvents::show(const AppEvent& event, const std::string& url, Placement placement) {
    const auto application = installedApplication(event.application);
    if (!application)
        return failure("The application is not installed.");
    return launcher_.showSoon(*application, {&url, 1}, placement);
}

} // namespace tabulon
