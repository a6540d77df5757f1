// All desktop services in memory, ready to be handed on.
#pragma once

#include "platform/Platform.h"
#include "platform/fake/FakeBaseServices.h"
#include "platform/fake/FakeDesktop.h"
#include "platform/fake/FakeTimers.h"
#include "platform/fake/MemoryFileStore.h"

namespace tabulon {

struct FakePlatform {
    FakeBaseServices base;
    FakeAlerts alerts;
    FakePanels panels;
    FakeProgressPanels progress;
    MemoryFileStore files;
    FakeFolderReferences folders;
    FakeRecoveryFolders recovery;
    FakeTimers timers;
    MemoryUserDefaults state;

    Platform platform() {
        return {base.services(), alerts, panels, progress, files, folders, recovery, timers, state};
    }
};

} // namespace tabulon
