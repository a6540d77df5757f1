// In-memory versions of the desktop services for tests, such as alerts and panels with prepared answers.
#pragma once

#include "platform/Alerts.h"
#include "platform/Beeper.h"
#include "platform/FolderReferences.h"
#include "platform/Keyboard.h"
#include "platform/Panels.h"
#include "platform/Pasteboard.h"
#include "platform/ProgressPanels.h"
#include "platform/RecoveryFolders.h"

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

/// Stores every alert and returns the prepared answers, in order. An alert without a prepared answer returns
/// its first button.
class FakeAlerts : public Alerts {
public:
    int runModal(const Alert& alert) override;
    SuppressibleAnswer runModalSuppressible(const Alert& alert, const std::string& boxTitle) override {
        boxTitles.push_back(boxTitle);
        return {runModal(alert), suppresses};
    }

    bool isAskingAbout(const DocumentIdentity* document) const override {
        return document ? std::ranges::count(asking_, document) > 0 : !asking_.empty();
    }

    /// Adds the title of a button as the answer to a later alert. That alert throws std::logic_error if it
    /// has no such button.
    void answer(std::string buttonTitle) { answers_.push_back(std::move(buttonTitle)); }

    /// All alerts, in order.
    std::vector<Alert> shown;
    /// The titles of the check boxes of suppressible alerts, in order.
    std::vector<std::string> boxTitles;
    /// True if the user checks the box.
    bool suppresses = false;
    /// Called while an alert is shown, before its answer. May be empty.
    std::function<void()> whileShown;
    /// Called after `whileShown`, to let the time pass that the user needs, so that timers are called. May be
    /// empty.
    std::function<void()> timePasses;

private:
    std::vector<const DocumentIdentity*> asking_;
    std::deque<std::string> answers_;
};

/// Stores every panel and returns the prepared files, in order. A panel without a prepared answer is
/// cancelled. `done` is called before the panel's function returns.
class FakePanels : public Panels {
public:
    void beginOpenPanel(const OpenPanel& panel, OpenDone done) override;
    void beginSavePanel(const SavePanel& panel, SaveDone done) override;

    /// Adds the answer to a later open panel.
    void chooseFiles(std::vector<std::string> paths) { openAnswers_.push_back(std::move(paths)); }
    /// Adds the answer to a later save panel.
    void nameFile(std::string path) { saveAnswers_.push_back(std::move(path)); }

    /// Cancels all panels that `keepOpen` has kept.
    void closeAll();

    /// Called while a save panel is shown, before its answer. May be empty.
    std::function<void()> whileSaving;

    /// Called with the options area of a save panel, before the answer, to do what the user does there. May
    /// be empty.
    std::function<void(PanelAccessory& accessory)> useAccessory;
    /// False for panels that cannot show an options area.
    bool showsAccessories = true;
    /// The kinds of file that options areas have set, in order.
    std::vector<FileKind> allowedKinds;

    /// True if open panels stay open until `closeAll`.
    bool keepOpen = false;
    /// All open panels, in order.
    std::vector<OpenPanel> openPanels;
    /// All save panels, in order.
    std::vector<SavePanel> savePanels;

private:
    std::vector<OpenDone> waiting_;
    std::deque<std::vector<std::string>> openAnswers_;
    std::deque<std::string> saveAnswers_;
};

/// Stores the reports of every operation, and can cancel operations.
class FakeProgressPanels : public ProgressPanels {
public:
    /// One operation.
    struct Work {
        ProgressPanel panel;
        /// The fractions that were reported, in order.
        std::vector<double> fractions;
        /// True after the operation has ended.
        bool done = false;
    };

    std::unique_ptr<Progress> begin(const ProgressPanel& panel) override;

    /// The number of calls of `goOn` in an operation that return true; later ones return false. `nullopt` if
    /// no operation is cancelled.
    std::optional<std::size_t> cancelAfter;
    /// All operations, in the order of their beginning. A deque, because each Progress refers to its element.
    std::deque<Work> works;
};

/// Stores folders in memory. A folder exists unless its path is in `gone`.
class FakeFolderReferences : public FolderReferences {
public:
    std::optional<std::string> resolve(std::string_view key) override;
    void store(std::string_view key, const std::string& path) override;
    std::optional<std::string> documentsFolder() override { return documents; }
    std::string stateFolder() override { return state; }

    /// Settings key → path.
    std::map<std::string, std::string, std::less<>> kept;
    /// Paths that do not exist.
    std::set<std::string> gone;
    std::optional<std::string> documents = "/home/documents";
    std::string state = "/home/state";
};

/// A clipboard in memory.
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

    /// The content of the clipboard.
    MimeContent held;
    /// The number of calls of `setContent`.
    int changes = 0;
    /// The content of the last drag from this program; `nullopt` before the first one.
    std::optional<MimeContent> dragged;
    /// The result of `draggedContent`, for all types.
    MimeContent offered;
};

/// Returns the state in `option`.
class FakeKeyboard : public Keyboard {
public:
    bool isOptionDown() override { return option; }
    bool option = false;
};

/// Counts the calls.
class FakeBeeper : public Beeper {
public:
    void beep() override { ++beeps; }
    int beeps = 0;
};

/// Returns the folder in `own`, and the folders in `abandoned` once.
class FakeRecoveryFolders : public RecoveryFolders {
public:
    Result<std::string> ownFolder() override { return own; }
    std::vector<std::string> adoptAbandonedFolders() override { return std::exchange(abandoned, {}); }

    Result<std::string> own = std::string("/state/unsaved/run-1");
    std::vector<std::string> abandoned;
};

} // namespace tabulon
