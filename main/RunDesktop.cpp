#include "main/RunDesktop.h"

#include "app/AppDelegate.h"
#include "app/SettingsAlerts.h"
#include "base/EnglishTexts.h"
#include "platform/linux/Activation.h"
#include "platform/linux/FileStore.h"
#include "platform/linux/FileUserDefaults.h"
#include "platform/linux/GioWorkspace.h"
#include "platform/linux/QtAlerts.h"
#include "platform/linux/QtBeeper.h"
#include "platform/linux/QtKeyboard.h"
#include "platform/linux/QtPanels.h"
#include "platform/linux/QtPasteboard.h"
#include "platform/linux/QtProgressPanels.h"
#include "platform/linux/QtTimers.h"
#include "platform/linux/SessionEvents.h"
#include "platform/linux/SystemServices.h"
#include "platform/linux/XdgBrowserStores.h"
#include "platform/linux/XdgFolderReferences.h"
#include "platform/linux/XdgFolders.h"
#include "platform/linux/XdgRecoveryFolders.h"
#include "ui/ExportOptions.h"
#include "ui/QtWindows.h"

#include <QApplication>
#include <QTimer>

#include <chrono>

namespace tabulon {
namespace {

// A service that receives no request ends after this time.
constexpr double kServicePatience = 10; // seconds

void writeFromMainLoop(FileUserDefaults& defaults) {
    constexpr auto kDelay = std::chrono::seconds(1);
    defaults.writeSoon = [&defaults, kDelay] { QTimer::singleShot(kDelay, qApp, [&] { defaults.write(); }); };
}

void tellSettingsProblems(FileUserDefaults& defaults, const Platform& platform) {
    defaults.tellProblemsTo([&platform](const SettingsProblem& problem) {
        platform.base.log.log(settingsProblemLine(problem));
        QTimer::singleShot(0, qApp, [&platform, problem] { settingsProblemAlert(platform, problem); });
    });
}

class DesktopProgram : public ProgramHost {
public:
    DesktopProgram(SingleInstance& instance, const QtAlerts& alerts, const QtWindows& windows)
        : instance_(instance), alerts_(alerts), windows_(windows) {}

    void stop() override {
        instance_.release();
        // quit() would close the windows first, and they would ask about changes.
        QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
    }
    // An open progress panel stops all timers, so no request is performed either.
    bool mustWait() const override { return alerts_.isShowing(); }
    void willPerform(const LaunchRequest& request) override { beginActivation(request); }
    void didPerform(const LaunchRequest& request, const Document* current) override {
        endActivation(request, windows_.windowFor(current));
    }

private:
    SingleInstance& instance_;
    const QtAlerts& alerts_;
    const QtWindows& windows_;
};

} // namespace

int runDesktop(const LaunchArguments& arguments, SingleInstance& instance) {
    SystemClock clock;
    StandardErrorLog log;
    EnglishLocalization texts(environmentLocale());
    PosixFileStore files;
    FileUserDefaults defaults(files, settingsFolder() + "/tabulon.ini");
    FileUserDefaults state(files, stateFolder() + "/state.ini");
    writeFromMainLoop(defaults);
    writeFromMainLoop(state);
    XdgFolderReferences folders(defaults, files);
    QtWindows windows;
    const WindowFinder windowFor = [&windows](const Document* document) {
        return windows.windowFor(document);
    };
    QtAlerts alerts(windowFor);
    QtPanels panels(windowFor);
    panels.makeAccessoryView = [&texts](const std::shared_ptr<PanelAccessory>& accessory) {
        return makeAccessoryView(accessory, texts);
    };
    QtProgressPanels progress(windowFor);
    XdgRecoveryFolders recovery(stateFolder() + "/unsaved");
    XdgBrowserStores browsers(files);
    QtBeeper beeper;
    QtKeyboard keyboard;
    QtPasteboard pasteboard;
    GioWorkspace workspace;
    QtTimers timers([&progress] { return progress.isShowing(); });
    const Platform platform{{clock, defaults, texts, log},
                            alerts,
                            panels,
                            progress,
                            files,
                            folders,
                            recovery,
                            browsers,
                            timers,
                            beeper,
                            keyboard,
                            pasteboard,
                            workspace,
                            state};
    DesktopProgram program(instance, alerts, windows);
    AppDelegate app(platform, windows, instance, program, TABULON_VERSION);
    windows.connectTo(app, platform);
    const SessionEvents session([&app] { app.applicationWillResignActive(); },
                                [&app] { app.sessionWillEnd(); });
    RequestQueue& queue = app.requestQueue();
    alerts.lastOneEnded = [&queue] { queue.performSoon(); };
    state.tellProblemsTo([&log](const SettingsProblem& problem) { log.log(settingsProblemLine(problem)); });
    QTimer::singleShot(0, qApp, [&] {
        if (arguments.purpose == LaunchArguments::Purpose::Run)
            queue.add(arguments.request);
        tellSettingsProblems(defaults, platform);
    });
    const auto unused = timers.after(kServicePatience, [&] {
        if (arguments.purpose == LaunchArguments::Purpose::Serve && !queue.wasUsed())
            program.stop();
    });
    return QApplication::exec();
}

} // namespace tabulon
