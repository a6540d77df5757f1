// `open`: opens one bookmark of a document as the menu command does, or prints the steps of it.
#include "base/Browsers.h"
#include "cli/NodePath.h"
#include "cli/OpeningSteps.h"
#include "cli/Verbs.h"
#include "opening/BookmarkOpener.h"

namespace tabulon::cli {
namespace {

struct Options {
    std::string input;
    std::string path;
    std::string place = "current";
    std::string browser;
    bool isDryRun = false;
    std::string permission = "yes";
    std::string probe = "window";
    DesktopAnswers answers;
};

// Questions count as confirmed; the other alerts say what has failed.
class WrittenAlerts : public Alerts {
public:
    int runModal(const Alert& alert) override {
        if (alert.buttons.size() == 1)
            done_ = failure(alert.message);
        return kAlertFirstButton;
    }
    SuppressibleAnswer runModalSuppressible(const Alert& alert, const std::string& /*boxTitle*/) override {
        return {.response = runModal(alert)};
    }
    bool isAskingAbout(const DocumentIdentity* /*document*/) const override { return false; }

    // Fails with the message of the last alert.
    Result<void> result() const { return done_; }

private:
    Result<void> done_;
};

class GivenPermission : public AutomationPermission {
public:
    explicit GivenPermission(bool isGiven) : isGiven_(isGiven) {}
    bool mayAutomate(std::string_view /*application*/, PermissionQuestion /*question*/) override {
        return isGiven_;
    }

private:
    const bool isGiven_;
};

// Accepts an identifier or a title in any case.
const Browser* browserNamed(const std::string& name) {
    const Browser* browser = browserWithIdentifier(name);
    return browser ? browser : browserWithTitle(name);
}

DesktopAnswers answersIn(const Options& options) {
    DesktopAnswers answers = options.answers;
    answers.isPermitted = options.permission == "yes";
    if (options.probe == "none")
        answers.probe = DesktopAnswers::Probe::None;
    else if (options.probe == "error")
        answers.probe = DesktopAnswers::Probe::Error;
    return answers;
}

std::vector<Bookmark*> childrenOf(Bookmark& folder) {
    std::vector<Bookmark*> children;
    for (Bookmark* child = folder.getChild(); child; child = child->nextBookmark())
        children.push_back(child);
    return children;
}

// Fails for a folder that the options would open otherwise than as tabs.
Result<void> openNode(Bookmark& node, const Options& options, const BookmarkOpener& opener) {
    const Browser* browser = browserNamed(options.browser);
    if (node.isFolder()) {
        if (browser || options.place == "window")
            return failure("A folder can only be opened as tabs of the default browser.");
        opener.openFolderContents(childrenOf(node));
        return {};
    }
    const std::string identifier(browser ? browser->identifier : "");
    if (browser && options.place == "tab")
        opener.openWithBrowserInNewTab(node, identifier);
    else if (browser)
        opener.openWithBrowser(node, identifier);
    else if (options.place == "tab")
        opener.openInNewTab(node);
    else if (options.place == "window")
        opener.openInNewWindow(node);
    else
        opener.open(node);
    return {};
}

std::vector<WrittenStamps::Candidate> candidatesAt(Bookmark& node, const std::string& path) {
    std::vector<WrittenStamps::Candidate> candidates = {{&node, path}};
    const std::string prefix = path.empty() ? "" : path + "/";
    if (node.isFolder())
        for (Bookmark* child : childrenOf(node))
            candidates.push_back({child, prefix + std::to_string(candidates.size() - 1)});
    return candidates;
}

std::string reasonWithoutSteps(const Bookmark& node, bool hasDefaultBrowser) {
    if (!node.isFolder())
        return "The bookmark has no address.";
    return hasDefaultBrowser ? "The folder contains no web links." : "There is no default browser.";
}

Result<void> printSteps(const Session& session, const Options& options, Document& document, Bookmark& node) {
    const DesktopAnswers answers = answersIn(options);
    OpeningSteps steps;
    WrittenWorkspace workspace(answers, steps);
    WrittenEvents events(answers, steps);
    GivenPermission permission(answers.isPermitted);
    WrittenAlerts alerts;
    const BaseServices& services = session.services;
    WrittenStamps stamps(document, candidatesAt(node, options.path), services.clock, steps);
    const BookmarkOpener opener({workspace, events, permission, alerts,
                                 BaseServices{stamps, services.defaults, services.texts, services.log}});
    if (Result<void> opened = openNode(node, options, opener); !opened)
        return opened;
    if (steps.lines().empty())
        return failure(reasonWithoutSteps(node, !answers.defaultBrowser.empty()));
    return session.write("-", steps.lines());
}

// The document is not written, so the dates of its bookmarks do not change.
Result<void> openOnDesktop(const Session& session, const Options& options, Bookmark& node) {
    OpeningDesktop* desktop = session.environment.desktop;
    if (!desktop)
        return failure("This tool was built without the services of a desktop; --dry-run prints the steps.");
    if (node.itemURL().isEmpty() && !node.isFolder())
        return failure(reasonWithoutSteps(node, true));
    WrittenAlerts alerts;
    const BookmarkOpener opener(
        {desktop->workspace(), desktop->events(), desktop->permission(), alerts, session.services});
    if (Result<void> opened = openNode(node, options, opener); !opened)
        return opened;
    if (Result<void> started = desktop->startPrograms(); !started)
        return started;
    return alerts.result();
}

Result<void> openBookmark(const Session& session, const Options& options) {
    const auto document = session.readDocument(options.input);
    if (!document)
        return tl::unexpected(document.error());
    Bookmark* node = nodeAt((*document)->getMaster(), options.path);
    if (!node)
        return failure(options.input + ": There is no node at the path " + options.path + ".");
    const Result<void> done = options.isDryRun ? printSteps(session, options, **document, *node)
                                               : openOnDesktop(session, options, *node);
    return done ? done : Result<void>(failure(options.input + ": " + done.error().message));
}

std::string faultOfOptions(const Options& options) {
    return !options.browser.empty() && options.place == "window" ? "--with excludes --in window" : "";
}

std::string faultOfBrowser(const std::string& name) {
    return browserNamed(name) ? "" : "must be the identifier or the title of a browser, such as Firefox";
}

void addAnswers(Verb& verb, const std::shared_ptr<Options>& options, const Option& dryRun) {
    verb.option("--default-browser", options->answers.defaultBrowser, "The application for http addresses")
        .type("ID")
        .needs(dryRun);
    verb.option("--permission", options->permission, "Whether events may be sent to browsers")
        .oneOf({"yes", "no"})
        .needs(dryRun);
    verb.option("--probe", options->probe, "The reply of a browser that is asked for its window")
        .oneOf({"window", "none", "error"})
        .needs(dryRun);
    verb.option("--front", options->answers.front, "The application in front").type("ID").needs(dryRun);
    verb.list("--running", options->answers.running, "An application that runs").type("ID").needs(dryRun);
}

} // namespace

void addOpen(Tool tool) {
    Verb verb(tool, "open", "Open one bookmark of a document, or the links in a folder as tabs");
    const auto options = std::make_shared<Options>();
    verb.path(options->path);
    verb.option("--in", options->place, "Where the page is shown").oneOf({"current", "tab", "window"});
    verb.option("--with", options->browser, "The browser that shows the page")
        .type("BROWSER")
        .check(faultOfBrowser);
    const Option dryRun = verb.flag("--dry-run", options->isDryRun, "Print the steps and open nothing");
    addAnswers(verb, options, dryRun);
    verb.document(options->input);
    verb.setAction(options, openBookmark, [options] { return faultOfOptions(*options); });
}

} // namespace tabulon::cli
