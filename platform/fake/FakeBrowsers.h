// The other applications in memory: what runs, what is in front, what they are sent and reply.
#pragma once

#include "platform/EventSender.h"
#include "platform/Workspace.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace tabulon {

/// An application that runs on request. Stores each request as a line, such as "launch com.google.Chrome", in
/// `requests`.
class FakeWorkspace : public Workspace {
public:
    explicit FakeWorkspace(std::vector<std::string>& allRequests) : requests(allRequests) {}

    std::optional<Application> defaultBrowser() override { return browser; }
    std::string defaultHandler() override { return handler; }
    std::optional<Application> application(std::string_view identifier) override {
        if (missing.contains(std::string(identifier)))
            return std::nullopt;
        return Application{.name = std::string(identifier), .icon = "web-browser"};
    }
    std::string frontmostApplication() override { return front; }
    bool isRunning(std::string_view identifier) override {
        return front == identifier || running.contains(std::string(identifier));
    }
    bool activate(std::string_view identifier) override {
        requests.push_back("activate " + std::string(identifier));
        return activates;
    }
    Result<void> launch(std::string_view identifier) override {
        requests.push_back("launch " + std::string(identifier));
        if (missing.contains(std::string(identifier)))
            return failure("It is not installed.");
        return {};
    }
    Result<void> openURL(std::string_view url) override {
        requests.push_back("open " + std::string(url));
        if (!opens)
            return failure("No application opens it.");
        return {};
    }
    Result<void> openURLs(std::span<const std::string> urls) override {
        std::string request = "openAll";
        for (const std::string& url : urls)
            request += " " + url;
        requests.push_back(request);
        if (!opens)
            return failure("No application opens them.");
        return {};
    }

    std::optional<Application> browser = Application{.name = "Web", .icon = "web-browser"};
    std::string handler = "org.chromium.Chromium";
    std::string front;
    /// Applications that run, besides the one in front.
    std::set<std::string, std::less<>> running;
    /// Applications that are not installed.
    std::set<std::string, std::less<>> missing;
    /// False if the desktop brings no application to the front.
    bool activates = true;
    /// False if no application opens addresses.
    bool opens = true;
    /// The requests, in order.
    std::vector<std::string>& requests;
};

/// Stores every event, and replies to those that wait.
class FakeEventSender : public EventSender {
public:
    explicit FakeEventSender(std::vector<std::string>& allRequests) : requests(allRequests) {}

    Result<AppEventReply> send(const AppEvent& event) override {
        sent.push_back(event);
        requests.push_back("event " + event.eventClass.string() + "/" + event.eventIdentifier.string() + " " +
                           event.application);
        if (!event.waitsForReply)
            return AppEventReply{};
        return reply;
    }

    /// All events, in order.
    std::vector<AppEvent> sent;
    /// The reply to each event that waits. At first it is that of a browser with a window.
    Result<AppEventReply> reply = AppEventReply{.directObject = element("cwin", 1)};
    /// The events as lines, such as "event core/setd com.google.Chrome".
    std::vector<std::string>& requests;
};

/// Grants or denies the permission for every application.
class FakePermission : public AutomationPermission {
public:
    bool mayAutomate(std::string_view application, PermissionQuestion question) override {
        asked.push_back(std::string(application) +
                        (question == PermissionQuestion::Allowed ? "" : " without a question"));
        return granted;
    }

    bool granted = true;
    /// The applications of all calls, in order.
    std::vector<std::string> asked;
};

} // namespace tabulon
