// The desktop services in one struct, which the constructors in window/ and app/ take.
#pragma once

#include "base/BaseServices.h"
#include "platform/Alerts.h"
#include "platform/Beeper.h"
#include "platform/BrowserStores.h"
#include "platform/EventSender.h"
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

/// References to the services; owns none of them. Requires: the services outlive every object that holds a
/// copy of this struct, and are used on the main thread only.
///
/// A function of `alerts` processes events before it returns, so commands and timers may run, which may
/// change or close documents other than that of the alert. A progress of `progress` processes events too, but
/// then no command and no timer runs. `panels` and `timers` return at once, and call the caller's functions
/// later from the main loop.
struct Platform {
    /// Clock, settings, texts and log. Its `defaults` are the settings that the user can change.
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
    /// Does not ask `permission`; that is the task of the caller, before it sends events.
    EventSender& events;
    /// Concerns `events` only. What `workspace` does needs no permission.
    AutomationPermission& permission;
    /// Values that the program stores between runs (recent documents, column widths) and that are not
    /// settings.
    UserDefaults& state;
};

} // namespace tabulon
