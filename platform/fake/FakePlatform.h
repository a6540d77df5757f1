// All desktop services in memory, for tests.
#pragma once

#include "platform/Platform.h"
#include "platform/fake/FakeBaseServices.h"
#include "platform/fake/FakeBrowserStores.h"
#include "platform/fake/FakeBrowsers.h"
#include "platform/fake/FakeDesktop.h"
#include "platform/fake/FakeTimers.h"
#include "platform/fake/MemoryFileStore.h"

namespace tabulon {

/// One service of each kind. An alert advances the clock and the timers.
struct FakePlatform {
    /// The seconds that the user needs to answer an alert. The timers that a change starts are called in this
    /// time.
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
    /// What was asked of other applications, one line each, in order.
    std::vector<std::string> requests;
    FakeWorkspace workspace{requests};
    FakeEventSender events{requests};
    FakePermission permission;
    MemoryUserDefaults state;

    /// Returns references to these services, valid as long as this object.
    Platform platform() { return platformIn(base.texts); }
    /// Returns references to these services and to other texts, which must also outlive the result.
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
                events,
                permission,
                state};
    }
};

} // namespace tabulon
