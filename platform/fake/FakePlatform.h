// All desktop services in memory, ready to be handed on.
#pragma once

#include "platform/Platform.h"
#include "platform/fake/FakeBaseServices.h"
#include "platform/fake/FakeBrowserStores.h"
#include "platform/fake/FakeDesktop.h"
#include "platform/fake/FakeTimers.h"
#include "platform/fake/MemoryFileStore.h"

namespace tabulon {

struct FakePlatform {
    /// How long the user takes to answer an alert, in seconds: long enough for the timers of a change.
    static constexpr double kSecondsOfAnAlert = 5;

    FakePlatform() {
        alerts.timePasses = [this] {
            base.clock.advance(kSecondsOfAnAlert);
            timers.advance(kSecondsOfAnAlert);
        };
    }
    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

    FakeBaseServices base;
    FakeAlerts alerts;
    FakePanels panels;
    FakeProgressPanels progress;
    MemoryFileStore files;
    FakeFolderReferences folders;
    FakeRecoveryFolders recovery;
    FakeBrowserStores stores;
    FakeTimers timers;
    FakeBeeper beeper;
    FakeKeyboard keyboard;
    FakePasteboard pasteboard;
    FakeWorkspace workspace;
    MemoryUserDefaults state;

    Platform platform() { return platformIn(base.texts); }
    /// The same with texts of another language.
    Platform platformIn(Localization& texts) {
        return {{base.clock, base.defaults, texts, base.log},
                alerts,
                panels,
                progress,
                files,
                folders,
                recovery,
                stores,
                timers,
                beeper,
                keyboard,
                pasteboard,
                workspace,
                state};
    }
};

} // namespace tabulon
