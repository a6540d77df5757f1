// The steps of opening a bookmark, written down instead of taken: the desktop of `open --dry-run`.
#pragma once

#include "cli/Session.h"
#include "model/Document.h"
#include "platform/EventSender.h"
#include "platform/Workspace.h"

#include <string>
#include <vector>

namespace tabulon::cli {

/// The answers of the desktop that the steps depend on.
struct DesktopAnswers {
    /// The identifier of the application for "http" addresses; empty for none.
    std::string defaultBrowser;
    /// The identifier of the application in front; empty for none.
    std::string front;
    /// The identifiers of the applications that run, besides the one in front.
    std::vector<std::string> running;
    /// Whether events may be sent to browsers.
    bool isPermitted = true;
    /// The reply of a browser that is asked for its window.
    enum class Probe { Window, None, Error } probe = Probe::Window;
};

/// The steps as JSON objects, in order, one line each.
class OpeningSteps {
public:
    /// Adds a step. `members` are the members of the object after "step", each with its comma in front.
    /// Requires: they are JSON in this form. Only `step` is escaped.
    void add(std::string_view step, const std::string& members);
    /// Adds a step with one text. `name` is its key. All arguments are UTF-8 and are escaped as JSON strings.
    void add(std::string_view step, std::string_view name, std::string_view text);

    /// Returns the lines; empty if no step was added. Each line has a line feed at its end. Valid until the
    /// next `add`.
    const std::string& lines() const { return lines_; }

private:
    std::string lines_;
};

/// Applications that always obey. Requests are added to the steps.
class WrittenWorkspace : public Workspace {
public:
    /// Requires: the arguments outlive this object.
    WrittenWorkspace(const DesktopAnswers& answers, OpeningSteps& steps) : answers_(answers), steps_(steps) {}

    /// Returns `nullopt`: no command of the tool shows the name of an application.
    std::optional<Application> defaultBrowser() override { return std::nullopt; }
    /// Returns `DesktopAnswers::defaultBrowser`.
    std::string defaultHandler() override { return answers_.defaultBrowser; }
    /// Returns an application without a name: every one counts as installed.
    std::optional<Application> application(std::string_view /*identifier*/) override { return Application{}; }
    /// Returns `DesktopAnswers::front`.
    std::string frontmostApplication() override { return answers_.front; }
    /// Returns whether the answers name it, in either spelling of a browser's identifier.
    bool isRunning(std::string_view identifier) override;
    /// Adds "activate" with the application, and returns true.
    bool activate(std::string_view identifier) override;
    /// Adds "launch" with the application. Never fails.
    Result<void> launch(std::string_view identifier) override;
    /// Adds "open" with the address. Never fails, also for a text that is no address.
    Result<void> openURL(std::string_view url) override;
    /// Adds "openAll" with the default browser and the addresses. All addresses are in one step. Never fails.
    Result<void> openURLs(std::span<const std::string> urls) override;

private:
    const DesktopAnswers& answers_;
    OpeningSteps& steps_;
};

/// Adds each event to the steps.
class WrittenEvents : public EventSender {
public:
    /// Requires: the arguments outlive this object.
    WrittenEvents(const DesktopAnswers& answers, OpeningSteps& steps) : answers_(answers), steps_(steps) {}

    /// Adds "event" with the members of the event. Returns the reply that the answers prescribe for the
    /// question for a window, and fails if that is an error. The reply to every other event is the same. The
    /// step is added also if it fails.
    Result<AppEventReply> send(const AppEvent& event) override;

private:
    const DesktopAnswers& answers_;
    OpeningSteps& steps_;
};

/// Adds a step for each last-opened date that a document's bookmarks get. Is the document's presenter, and
/// marks the document as unchanged after each step.
class WrittenStamps : public DocumentPresenter, public Clock {
public:
    /// A bookmark that may get the date, with its path.
    struct Candidate {
        /// Not owned.
        const Bookmark* bookmark;
        /// In the form of NodePath.h.
        std::string path;
    };

    /// The candidates are in the order in which they are opened. Requires: the document, the clock and the
    /// steps outlive this object.
    WrittenStamps(Document& document, std::vector<Candidate> candidates, const Clock& clock,
                  OpeningSteps& steps);
    /// Leaves the document without a presenter.
    ~WrittenStamps() override;
    WrittenStamps(const WrittenStamps&) = delete;
    WrittenStamps& operator=(const WrittenStamps&) = delete;

    /// Returns another time for each call, so that the last bookmark with the date can be found.
    double secondsSinceReferenceDate() const override { return ++lastTime_; }
    /// Returns the time zone of the other clock.
    std::string timeZone() const override { return clock_.timeZone(); }

private:
    void setMaster(Bookmark& /*master*/) override {}
    /// Adds the step of the candidate whose last-opened date is `lastTime_`, if there is one after those of
    /// earlier steps. Does nothing for an unchanged document.
    void documentStateChanged() override;

    /// The references are not owned.
    Document& document_;
    const std::vector<Candidate> candidates_;
    const Clock& clock_;
    OpeningSteps& steps_;
    std::size_t next_ = 0; // of the candidates
    /// The time that was returned last, in seconds since 2001-01-01 00:00 UTC; at first that of the other
    /// clock.
    mutable double lastTime_;
};

} // namespace tabulon::cli
