// The desktop program: builds the services, the windows and the application delegate, and runs them.
#include "app/AppDelegate.h"
#include "app/SettingsAlerts.h"
#include "platform/EnglishTexts.h"
#include "platform/linux/FileStore.h"
#include "platform/linux/FileUserDefaults.h"
#include "platform/linux/QtAlerts.h"
#include "platform/linux/QtPanels.h"
#include "platform/linux/QtTimers.h"
#include "platform/linux/SessionEvents.h"
#include "platform/linux/SystemServices.h"
#include "platform/linux/XdgFolderReferences.h"
#include "platform/linux/XdgFolders.h"
#include "platform/linux/XdgRecoveryFolders.h"
#include "ui/QtWindows.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <vector>

namespace {

using namespace tabulon;

constexpr auto kUsage =
    "Usage: tabulon [OPTIONS] [FILE...]\n\n"
    "Opens bookmark documents and bookmark files in HTML, each in a window of its own.\n\n"
    "  --theme NAME   system (the desktop's, which is the default), light or dark\n"
    "  --version      print the version and end\n"
    "  --help         print this text and end\n";
constexpr auto kNoDisplay =
    "tabulon: There is no display to show windows on. Start it in a desktop session, or use "
    "tabulon-cli.\n";

struct Arguments {
    ColorScheme colorScheme = ColorScheme::System;
    std::vector<std::string> paths;
};

[[noreturn]] void endWithUsage(const std::string& problem) {
    std::fprintf(stderr, "tabulon: %s\n\n%s", problem.c_str(), kUsage);
    std::exit(2);
}

// Answers that need no display.
void answerAtOnce(int argc, char** argv) {
    for (int i = 1; i < argc && std::string_view(argv[i]) != "--"; ++i) {
        const std::string_view argument = argv[i];
        if (argument != "--help" && argument != "--version")
            continue;
        std::fputs(argument == "--help" ? kUsage : "tabulon " TABULON_VERSION "\n", stdout);
        std::exit(0);
    }
}

// What Qt has left of the arguments.
Arguments parse(int argc, char** argv) {
    Arguments arguments;
    bool optionsEnded = false;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (optionsEnded || !argument.starts_with('-')) {
            arguments.paths.push_back(std::filesystem::absolute(argument).lexically_normal().string());
        } else if (argument == "--") {
            optionsEnded = true;
        } else if (argument == "--theme" && i + 1 < argc) {
            const auto scheme = colorSchemeNamed(argv[++i]);
            if (!scheme)
                endWithUsage("There is no theme “" + std::string(argv[i]) + "”.");
            arguments.colorScheme = *scheme;
        } else {
            endWithUsage("There is no option “" + argument + "”.");
        }
    }
    return arguments;
}

// Qt ends the program where it cannot reach a display; the user gets a sentence instead of a core dump.
void tellWhyQtGivesUp(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg) {
        std::fputs(kNoDisplay, stderr);
        std::fprintf(stderr, "tabulon: %s\n", message.toLocal8Bit().constData());
        std::_Exit(1);
    }
    if (type != QtDebugMsg && !message.startsWith("qt.qpa"))
        std::fprintf(stderr, "tabulon: %s\n", message.toLocal8Bit().constData());
}

void writeFromMainLoop(FileUserDefaults& defaults) {
    constexpr auto kDelay = std::chrono::seconds(1);
    defaults.writeSoon = [&defaults, kDelay] { QTimer::singleShot(kDelay, qApp, [&] { defaults.write(); }); };
}

int runDesktop(QApplication& application, const Arguments& arguments) {
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
    XdgRecoveryFolders recovery(stateFolder() + "/unsaved");
    QtTimers timers;
    const Platform platform{
        {clock, defaults, texts, log}, alerts, panels, files, folders, recovery, timers, state};
    AppDelegate app(platform, windows, TABULON_VERSION);
    windows.connectTo(app, platform);
    app.stop = [] { QTimer::singleShot(0, qApp, &QCoreApplication::quit); };
    const SessionEvents session([&app] { app.applicationWillResignActive(); },
                                [&app] { app.sessionWillEnd(); });
    state.tellProblemsTo([&](const SettingsProblem& problem) { log.log(settingsProblemLine(problem)); });
    QTimer::singleShot(0, &application, [&] {
        app.applicationDidFinishLaunching(arguments.paths);
        defaults.tellProblemsTo([&](const SettingsProblem& problem) {
            log.log(settingsProblemLine(problem));
            QTimer::singleShot(0, &application, [&, problem] { settingsProblemAlert(platform, problem); });
        });
    });
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    answerAtOnce(argc, argv);
    const bool platformNamed = std::getenv("QT_QPA_PLATFORM") != nullptr;
    if (!platformNamed && !std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY")) {
        std::fputs(kNoDisplay, stderr);
        return 1;
    }
    qInstallMessageHandler(tellWhyQtGivesUp);
    QApplication application(argc, argv);
    QApplication::setApplicationName("Tabulon");
    QApplication::setApplicationVersion(TABULON_VERSION);
    QApplication::setDesktopFileName("com.tabulon.Tabulon");
    QApplication::setQuitOnLastWindowClosed(false);
    Q_INIT_RESOURCE(tabulon);
    const Arguments arguments = parse(argc, argv);
    const Theme theme(arguments.colorScheme);
    return runDesktop(application, arguments);
}
