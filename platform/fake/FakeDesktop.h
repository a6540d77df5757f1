// In-memory doubles of the desktop services: alerts and panels that answer what a test told them to.
#pragma once

#include "platform/Alerts.h"
#include "platform/Beeper.h"
#include "platform/FolderReferences.h"
#include "platform/Keyboard.h"
#include "platform/Panels.h"
#include "platform/Pasteboard.h"
#include "platform/ProgressPanels.h"
#include "platform/RecoveryFolders.h"
#include "platform/Workspace.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tabulon {

/// Keeps every alert shown and answers with the button titles laid in, in order; an alert without an answer
/// laid in gets its first button.
class FakeAlerts : public Alerts {
public:
    int runModal(const Alert& alert) override;
    SuppressibleAnswer runModalSuppressible(const Alert& alert, const std::string& boxTitle) override {
        boxTitles.push_back(boxTitle);
        return {runModal(alert), suppresses};
    }

    bool isAskingAbout(const Document* document) const override {
        return document ? std::ranges::count(asking_, document) > 0 : !asking_.empty();
    }

    /// The next alert is answered with the button of this title, which it must have.
    void answer(std::string buttonTitle) { answers_.push_back(std::move(buttonTitle)); }

    std::vector<Alert> shown;
    std::vector<std::string> boxTitles;
    /// Whether the user ticks the box.
    bool suppresses = false;
    /// Called while an alert is shown, before its answer.
    std::function<void()> whileShown;
    /// Called as well: the time that the user takes, in which timers fire.
    std::function<void()> timePasses;

private:
    std::vector<const Document*> asking_;
    std::deque<std::string> answers_;
};

/// Keeps every panel shown and names the files laid in, in order; a panel without an answer is cancelled.
/// With `keepOpen` open panels stay until `closeAll` cancels them.
class FakePanels : public Panels {
public:
    void beginOpenPanel(const OpenPanel& panel, OpenDone done) override;
    void beginSavePanel(const SavePanel& panel, SaveDone done) override;

    void chooseFiles(std::vector<std::string> paths) { openAnswers_.push_back(std::move(paths)); }
    void nameFile(std::string path) { saveAnswers_.push_back(std::move(path)); }

    void closeAll();

    /// Called while a save panel is shown, before its answer.
    std::function<void()> whileSaving;

    /// What the user does in the options area of a save panel, before the answer. The kinds of file that the
    /// area sets go to `allowedKinds`.
    std::function<void(PanelAccessory& accessory)> useAccessory;
    /// False for panels that cannot show one.
    bool showsAccessories = true;
    std::vector<FileKind> allowedKinds;

    bool keepOpen = false;
    std::vector<OpenPanel> openPanels;
    std::vector<SavePanel> savePanels;

private:
    std::vector<OpenDone> waiting_;
    std::deque<std::vector<std::string>> openAnswers_;
    std::deque<std::string> saveAnswers_;
};

/// Keeps what was told of every piece of work, and cancels the work after some steps where a test wants that.
class FakeProgressPanels : public ProgressPanels {
public:
    struct Work {
        ProgressPanel panel;
        std::vector<double> fractions;
        bool done = false;
    };

    std::unique_ptr<Progress> begin(const ProgressPanel& panel) override;

    /// `goOn` says no from this call on; none for never.
    std::optional<std::size_t> cancelAfter;
    /// In the order of their beginnings. A deque: work in progress stays in its place.
    std::deque<Work> works;
};

/// Folders in memory; what is kept under a key is there as long as it is not in `gone`.
class FakeFolderReferences : public FolderReferences {
public:
    std::optional<std::string> resolve(std::string_view key) override;
    void store(std::string_view key, const std::string& path) override;
    std::optional<std::string> documentsFolder() override { return documents; }
    std::string stateFolder() override { return state; }

    std::map<std::string, std::string, std::less<>> kept;
    std::set<std::string> gone;
    std::optional<std::string> documents = "/home/documents";
    std::string state = "/home/state";
};

/// Holds what was laid in.
class FakePasteboard : public Pasteboard {
public:
    std::optional<std::string> string() override {
        const std::string* text = held.get("text/plain");
        return text ? std::optional(*text) : std::nullopt;
    }
    void dragBegins(const MimeContent& content) override { dragged = content; }
    MimeContent draggedContent(std::span<const std::string_view> /*types*/) override { return offered; }
    MimeContent content(std::span<const std::string_view> types) override {
        MimeContent known;
        for (const std::string_view type : types)
            if (const std::string* bytes = held.get(type))
                known.set(type, *bytes);
        return known;
    }
    void setContent(const MimeContent& content) override {
        held = content;
        ++changes;
    }
    void setString(std::string text) {
        held = {};
        held.set("text/plain", std::move(text));
    }

    MimeContent held;
    int changes = 0;
    /// What the last drag from here carries.
    std::optional<MimeContent> dragged;
    /// What `draggedContent` returns.
    MimeContent offered;
};

class FakeKeyboard : public Keyboard {
public:
    bool isOptionDown() override { return option; }
    bool option = false;
};

/// Gives what was laid in.
class FakeWorkspace : public Workspace {
public:
    std::optional<Application> defaultBrowser() override { return browser; }
    std::optional<Application> browser = Application{.name = "Web", .icon = "web-browser"};
};

/// Counts.
class FakeBeeper : public Beeper {
public:
    void beep() override { ++beeps; }
    int beeps = 0;
};

/// Gives what was laid in.
class FakeRecoveryFolders : public RecoveryFolders {
public:
    Result<std::string> ownFolder() override { return own; }
    std::vector<std::string> adoptAbandonedFolders() override { return std::exchange(abandoned, {}); }

    Result<std::string> own = std::string("/state/unsaved/run-1");
    std::vector<std::string> abandoned;
};

} // namespace tabulon
