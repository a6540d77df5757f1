// The desktop services in one struct, handed in at construction to everything in window/ and app/.
#pragma once

#include "base/BaseServices.h"
#include "platform/Alerts.h"
#include "platform/Beeper.h"
#include "platform/BrowserStores.h"
#include "platform/FileStore.h"
#include "platform/FolderReferences.h"
#include "platform/Keyboard.h"
#include "platform/Panels.h"
#include "platform/Pasteboard.h"
#include "platform/ProgressPanels.h"
#include "platform/RecoveryFolders.h"
#include "platform/Timers.h"
#include "platform/Workspace.h"

namespace tabulon {

/// References only: whoever builds one keeps the services alive longer than everything that was given it.
struct Platform {
    BaseServices base;
    Alerts& alerts;
    Panels& panels;
    ProgressPanels& progress;
    FileStore& files;
    FolderReferences& folders;
    RecoveryFolders& recovery;
    BrowserStores& browsers;
    Timers& timers;
    Beeper& beeper;
    Keyboard& keyboard;
    Pasteboard& pasteboard;
    Workspace& workspace;
    /// What the program remembers by itself between runs (recent documents, column widths), apart from the
    /// settings.
    UserDefaults& state;
};

} // namespace tabulon
