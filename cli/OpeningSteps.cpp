#include "cli/OpeningSteps.h"

#include "base/Browsers.h"
#include "cli/JsonTree.h"

#include <algorithm>

namespace tabulon::cli {
namespace {

std::string jsonText(std::string_view text) {
    std::string json;
    appendJsonText(json, Text(text));
    return json;
}

std::string member(std::string_view name, const std::string& json) {
    return ", " + jsonText(name) + ": " + json;
}

struct JsonOfValue {
    std::string operator()(const std::string& text) const { return jsonText(text); }
    std::string operator()(std::int32_t number) const { return std::to_string(number); }
    std::string operator()(FourCharCode code) const { return jsonText(code.string()); }
    std::string operator()(const ObjectSpecifier& object) const { return jsonText(descriptionOf(object)); }
};

std::string jsonOf(const EventValue& value) {
    return std::visit(JsonOfValue{}, value);
}

std::string membersOf(const AppEvent& event) {
    std::string members = member("application", jsonText(event.application)) +
                          member("class", jsonText(event.eventClass.string())) +
                          member("id", jsonText(event.eventIdentifier.string()));
    if (event.directObject)
        members += member("direct", jsonOf(*event.directObject));
    std::string parameters;
    for (const auto& [code, value] : event.parameters)
        parameters += (parameters.empty() ? "" : ", ") + jsonText(code.string()) + ": " + jsonOf(value);
    if (!parameters.empty())
        members += member("parameters", "{" + parameters + "}");
    return members + member("wait", event.waitsForReply ? "true" : "false");
}

} // namespace

void OpeningSteps::add(std::string_view step, const std::string& members) {
    lines_ += "{\"step\": " + jsonText(step) + members + "}\n";
}

void OpeningSteps::add(std::string_view step, std::string_view name, std::string_view text) {
    add(step, member(name, jsonText(text)));
}

bool WrittenWorkspace::isRunning(std::string_view identifier) {
    const auto isIt = [&](std::string_view other) {
        const Browser* browser = browserWithIdentifier(identifier);
        return other == identifier || (browser && browser == browserWithIdentifier(other));
    };
    return isIt(answers_.front) || std::ranges::any_of(answers_.running, isIt);
}

bool WrittenWorkspace::activate(std::string_view identifier) {
    steps_.add("activate", "application", identifier);
    return true;
}

Result<void> WrittenWorkspace::launch(std::string_view identifier) {
    steps_.add("launch", "application", identifier);
    return {};
}

Result<void> WrittenWorkspace::openURL(std::string_view url) {
    steps_.add("open", "url", url);
    return {};
}

Result<void> WrittenWorkspace::openURLs(std::span<const std::string> urls) {
    std::string list;
    for (const std::string& url : urls)
        list += (list.empty() ? "" : ", ") + jsonText(url);
    steps_.add("openAll",
               member("application", jsonText(answers_.defaultBrowser)) + member("urls", "[" + list + "]"));
    return {};
}

Result<AppEventReply> WrittenEvents::send(const AppEvent& event) {
    steps_.add("event", membersOf(event));
    if (answers_.probe == DesktopAnswers::Probe::Error)
        return failure("The application does not answer.");
    AppEventReply reply;
    if (answers_.probe == DesktopAnswers::Probe::Window)
        reply.directObject = element("cwin", 1);
    return reply;
}

WrittenStamps::WrittenStamps(Document& document, std::vector<Candidate> candidates, const Clock& clock,
                             OpeningSteps& steps)
    : document_(document), candidates_(std::move(candidates)), clock_(clock), steps_(steps),
      lastTime_(clock.secondsSinceReferenceDate()) {
    document_.setPresenter(this);
}

WrittenStamps::~WrittenStamps() {
    document_.setPresenter(nullptr);
}

void WrittenStamps::documentStateChanged() {
    if (!document_.isDocumentEdited())
        return;
    const auto isOpened = [&](const Candidate& candidate) {
        return candidate.bookmark->itemLastOpened().referenceSeconds() == lastTime_;
    };
    while (next_ < candidates_.size() && !isOpened(candidates_[next_]))
        ++next_;
    if (next_ < candidates_.size())
        steps_.add("stamp", "path", candidates_[next_].path);
    document_.updateChangeCount(ChangeKind::Cleared);
}

} // namespace tabulon::cli
