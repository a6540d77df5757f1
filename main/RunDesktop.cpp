#include "main/RunDesktop.h"

#include "app/AppDelegate.h"
#include "app/SettingsAlerts.h"
#include "base/EnglishTexts.h"
#include "bridge/BridgePlaces.h"
#include "opening/BridgeEvents.h"
#include "opening/RememberedPermission.h"
#include "platform/linux/Activation.h"
#include "platform/linux/CommandLineEvents.h"
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
#include "platform/linux/SocketBridge.h"
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
#include <utility>
#include <vector>

namespace tabulon {
namespace {

// A service that receives no request ends after this time.
constexpr double kServicePatience = 10; // seconds

constexpr auto kWriteDelay = std::chrono::seconds(1); // of settings

class DelayedWrites : public SettingsWriter {
public:
    void writeSoon(FileUserDefaults& defaults) override {
        QTimer::singleShot(kWriteDelay, qApp, [&defaults] { defaults.write(); });
    }
};

class AccessoryViews : public AccessoryViewMaker {
public:
    explicit AccessoryViews(const Localization& texts) : texts_(texts) {}
    QWidget* makeAccessoryView(const std::shared_ptr<PanelAccessory>& accessory) override {
        return tabulon::makeAccessoryView(accessory, texts_);
    }

private:
    const Localization& texts_;
};

class LoggedProblems : public SettingsProblemObserver {
public:
    explicit LoggedProblems(SystemLog& log) : log_(log) {}
    void settingsProblem(const SettingsProblem& problem) override { log_.log(settingsProblemLine(problem)); }

private:
    SystemLog& log_;
};

// Logs the problems and shows alerts about them. Those before `begin` are shown by it.
class ShownProblems : public SettingsProblemObserver {
public:
    // `platform` may be constructed after this object, before `begin`.
    ShownProblems(SystemLog& log, const Platform& platform) : log_(log), platform_(platform) {}

    void begin() {
        hasBegun_ = true;
        for (const SettingsProblem& problem : std::exchange(before_, {}))
            show(problem);
    }
    void settingsProblem(const SettingsProblem& problem) override {
        log_.log(settingsProblemLine(problem));
        hasBegun_ ? show(problem) : before_.push_back(problem);
    }

private:
    void show(const SettingsProblem& problem) {
        QTimer::singleShot(0, qApp, [this, problem] { settingsProblemAlert(platform_, problem); });
    }

    SystemLog& log_;
    const Platform& platform_;
    bool hasBegun_ = false;
    std::vector<SettingsProblem> before_;
};

// The application with its services. They refer to each other, and are used only by `run`.
class DesktopProgram : private ProgramHost, private AlertsObserver {
public:
    explicit DesktopProgram(SingleInstance& instance) : instance_(instance) {}

    // Returns the exit status.
    int run(const LaunchArguments& arguments) {
        const SessionEvents session([this] { app_.applicationWillResignActive(); },
                                    [this] { app_.sessionWillEnd(); });
        QTimer::singleShot(0, qApp, [&] {
            if (arguments.purpose == LaunchArguments::Purpose::Run)
                app_.requestQueue().add(arguments.request);
            defaultsProblems_.begin();
        });
        const auto unused = timers_.after(kServicePatience, [&] {
            if (arguments.purpose == LaunchArguments::Purpose::Serve && !app_.requestQueue().wasUsed())
                stop();
        });
        return QApplication::exec();
    }

private:
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
    void lastAlertEnded() override { app_.requestQueue().performSoon(); }

    WindowFinder windowFinder() const {
        return [this](const DocumentIdentity* document) { return windows_.windowFor(document); };
    }

    SingleInstance& instance_;
    SystemClock clock_;
    StandardErrorLog log_;
    EnglishLocalization texts_{environmentLocale()};
    PosixFileStore files_;
    DelayedWrites writes_;
    ShownProblems defaultsProblems_{log_, platform_};
    LoggedProblems stateProblems_{log_};
    FileUserDefaults defaults_{files_, settingsFolder() + "/tabulon.ini", &writes_, &defaultsProblems_};
    FileUserDefaults state_{files_, stateFolder() + "/state.ini", &writes_, &stateProblems_};
    XdgFolderReferences folders_{defaults_, files_};
    QtWindows windows_{app_, platform_};
    QtAlerts alerts_{windowFinder(), this};
    AccessoryViews accessories_{texts_};
    QtPanels panels_{windowFinder(), &accessories_};
    QtProgressPanels progress_{windowFinder()};
    XdgRecoveryFolders recovery_{stateFolder() + "/unsaved"};
    XdgBrowserStores browsers_{files_};
    QtBeeper beeper_;
    QtKeyboard keyboard_;
    QtPasteboard pasteboard_;
    QtTimers timers_{[this] { return progress_.isShowing(); }};
    BrowserLauncher launcher_{&timers_};
    GioWorkspace workspace_{launcher_};
    SocketBridge bridge_{bridgeFolder(runtimeFolder())};
    CommandLineEvents commandLine_{launcher_};
    BridgeEvents events_{bridge_, commandLine_};
    RememberedPermission permission_{{bridge_, state_, alerts_, texts_}};
    const Platform platform_{{clock_, defaults_, texts_, log_},
                             alerts_,
                             panels_,
                             progress_,
                             files_,
                             folders_,
                             recovery_,
                             browsers_,
                             timers_,
                             beeper_,
                             keyboard_,
                             pasteboard_,
                             workspace_,
                             events_,
                             permission_,
                             state_};
    AppDelegate app_{platform_, windows_, instance_, *this, TABULON_VERSION};
};

} // namespace

int runDesktop(const LaunchArguments& arguments, SingleInstance& instance) {
    DesktopProgram program(instance);
    return program.run(arguments);
}

} // namespace tabulon
