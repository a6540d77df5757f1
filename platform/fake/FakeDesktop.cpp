#include "platform/fake/FakeDesktop.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tabulon {

int FakeAlerts::runModal(const Alert& alert) {
    shown.push_back(alert);
    asking_.push_back(alert.document);
    if (whileShown)
        whileShown();
    if (timePasses)
        timePasses();
    asking_.pop_back();
    if (answers_.empty())
        return kAlertFirstButton;
    const std::string title = std::move(answers_.front());
    answers_.pop_front();
    const auto found =
        std::ranges::find_if(alert.buttons, [&](const AlertButton& button) { return button.title == title; });
    if (found == alert.buttons.end())
        throw std::logic_error("the alert “" + alert.message + "” has no button “" + title + "”");
    return kAlertFirstButton + static_cast<int>(found - alert.buttons.begin());
}

void FakePanels::beginOpenPanel(const OpenPanel& panel, OpenDone done) {
    openPanels.push_back(panel);
    if (keepOpen) {
        waiting_.push_back(std::move(done));
        return;
    }
    std::vector<std::string> paths;
    if (!openAnswers_.empty()) {
        paths = std::move(openAnswers_.front());
        openAnswers_.pop_front();
    }
    done(paths);
}

void FakePanels::closeAll() {
    for (const OpenDone& done : std::exchange(waiting_, {}))
        done({});
}

namespace {

class FakeSavePanel : public SavePanelControl {
public:
    explicit FakeSavePanel(std::vector<FileKind>& kinds) : kinds_(kinds) {}
    void setAllowedFileType(const FileKind& kind) override { kinds_.push_back(kind); }

private:
    std::vector<FileKind>& kinds_;
};

} // namespace

void FakePanels::beginSavePanel(const SavePanel& panel, SaveDone done) {
    savePanels.push_back(panel);
    if (whileSaving)
        whileSaving();
    if (panel.accessory && showsAccessories) {
        FakeSavePanel shown(allowedKinds);
        panel.accessory->viewDidLoad();
        panel.accessory->setPanel(&shown);
        if (useAccessory)
            useAccessory(*panel.accessory);
        panel.accessory->setPanel(nullptr);
    }
    if (saveAnswers_.empty())
        return done(std::nullopt);
    const std::string path = std::move(saveAnswers_.front());
    saveAnswers_.pop_front();
    done(path);
}

namespace {

class FakeProgress : public Progress {
public:
    FakeProgress(FakeProgressPanels& panels, FakeProgressPanels::Work& work) : panels_(panels), work_(work) {}
    ~FakeProgress() override { work_.done = true; }

    bool goOn(double fraction) override {
        work_.fractions.push_back(fraction);
        return !panels_.cancelAfter || work_.fractions.size() <= *panels_.cancelAfter;
    }

private:
    FakeProgressPanels& panels_;
    FakeProgressPanels::Work& work_;
};

} // namespace

std::unique_ptr<Progress> FakeProgressPanels::begin(const ProgressPanel& panel) {
    works.push_back({panel, {}, false});
    return std::make_unique<FakeProgress>(*this, works.back());
}

std::optional<std::string> FakeFolderReferences::resolve(std::string_view key) {
    const auto found = kept.find(key);
    if (found == kept.end() || gone.contains(found->second))
        return std::nullopt;
    return found->second;
}

void FakeFolderReferences::store(std::string_view key, const std::string& path) {
    kept.insert_or_assign(std::string(key), path);
}

} // namespace tabulon
