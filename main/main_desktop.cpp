// The entry of the desktop program: arguments, the display, and the search for a running instance.
#include "app/Launch.h"
#include "base/EnglishTexts.h"
#include "main/RunDesktop.h"
#include "platform/linux/Activation.h"
#include "platform/linux/DBusInstance.h"
#include "platform/linux/Process.h"
#include "platform/linux/QtAlerts.h"
#include "ui/Theme.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace {

using namespace tabulon;

constexpr auto kNoDisplay =
    "tabulon: There is no display to show windows on. Start it in a desktop session, or use "
    "tabulon-cli.\n";

LaunchArguments readArguments(int argc, char** argv) {
    std::error_code gone;
    const std::filesystem::path folder = std::filesystem::current_path(gone);
    return parseLaunchArguments({argv + 1, argv + argc}, folder.string());
}

void writeLine(const QString& message) {
    writeStandardError("tabulon: " + message.toLocal8Bit().toStdString() + "\n");
}

// Qt aborts the program where it cannot reach a display; the user sees a sentence instead of a core dump.
// Messages of Qt's own modules about the desktop or fonts are of no use to the user and are dropped.
void printQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtFatalMsg) {
        writeStandardError(kNoDisplay);
        writeLine(message);
        std::_Exit(1);
    }
    const bool fromQt = std::string_view(context.category ? context.category : "").starts_with("qt.") ||
                        message.contains("OpenType support missing"); // once for each font and script
    if (type != QtDebugMsg && !fromQt)
        writeLine(message);
}

// Returns the program's exit status.
int launch(const LaunchArguments& arguments) {
    DBusInstance instance;
    if (arguments.purpose == LaunchArguments::Purpose::Serve) {
        if (instance.claim() == SingleInstance::Role::First)
            return runDesktop(arguments, instance);
        return 0; // another instance was first and receives the request
    }
    QtAlerts alerts([](const DocumentIdentity*) { return nullptr; });
    switch (decideLaunch(instance, arguments.request, alerts, EnglishLocalization())) {
    case LaunchDecision::Run:
        return runDesktop(arguments, instance);
    case LaunchDecision::HandedOver:
        return 0;
    case LaunchDecision::Cancelled:
        return 1;
    }
    return 1;
}

// Prints the help or the version, which need no display, and ends the program.
void answerAtOnce(const LaunchArguments& arguments) {
    if (arguments.purpose == LaunchArguments::Purpose::ShowHelp)
        std::fputs(launchUsage().data(), stdout);
    else if (arguments.purpose == LaunchArguments::Purpose::ShowVersion)
        std::fputs("tabulon " TABULON_VERSION "\n", stdout);
    else
        return;
    std::exit(0);
}

} // namespace

int main(int argc, char** argv) {
    prepareProcess();
    answerAtOnce(readArguments(argc, argv));
    const bool platformNamed = std::getenv("QT_QPA_PLATFORM") != nullptr;
    if (!platformNamed && !std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY")) {
        writeStandardError(kNoDisplay);
        return 1;
    }
    LaunchRequest activation;
    readActivation(activation);
    qInstallMessageHandler(printQtMessage);
    QApplication application(argc, argv);
    QApplication::setApplicationName("Tabulon");
    QApplication::setApplicationVersion(TABULON_VERSION);
    QApplication::setDesktopFileName("com.tabulon.Tabulon");
    QApplication::setQuitOnLastWindowClosed(false);
    Q_INIT_RESOURCE(tabulon);
    LaunchArguments arguments = readArguments(argc, argv); // without those that Qt has removed
    if (arguments.purpose == LaunchArguments::Purpose::Complain) {
        writeStandardError("tabulon: " + arguments.problem + "\n\n" + std::string(launchUsage()));
        return 2;
    }
    arguments.request.activationToken = activation.activationToken;
    arguments.request.startupId = activation.startupId;
    const Theme theme(colorSchemeNamed(QString::fromStdString(arguments.theme)).value());
    return launch(arguments);
}
