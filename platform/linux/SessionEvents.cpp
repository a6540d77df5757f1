#include "platform/linux/SessionEvents.h"

#include <fcntl.h>
#include <unistd.h>

#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>

namespace tabulon {
namespace {

constexpr std::array kEndingSignals = {SIGTERM, SIGINT, SIGHUP};

// A signal handler may write to a pipe, but not much else. Used by the handler and the one SessionEvents.
volatile std::sig_atomic_t signalPipe = -1;

void noteSignal(int number) {
    const int savedError = errno;
    const char byte = static_cast<char>(number);
    [[maybe_unused]] const ssize_t written = ::write(signalPipe, &byte, 1);
    errno = savedError;
}

} // namespace

SessionEvents::SessionEvents(std::function<void()> deactivated, const std::function<void()>& ending) {
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
            [deactivated = std::move(deactivated)](Qt::ApplicationState state) {
                if (state != Qt::ApplicationActive)
                    deactivated();
            });
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this,
        [ending](QSessionManager& manager) {
            manager.setRestartHint(QSessionManager::RestartIfRunning);
            ending();
        },
        Qt::DirectConnection);
    watchSignals(ending);
}

SessionEvents::~SessionEvents() {
    for (const int number : kEndingSignals)
        std::signal(number, SIG_DFL);
    signalPipe = -1;
    for (const int end : pipe_)
        if (end >= 0)
            ::close(end);
}

void SessionEvents::watchSignals(const std::function<void()>& ending) {
    if (::pipe2(pipe_, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    signalPipe = pipe_[1];
    auto* notifier = new QSocketNotifier(pipe_[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, ending] {
        std::array<char, 16> bytes;
        while (::read(pipe_[0], bytes.data(), bytes.size()) > 0) {
        }
        ending();
    });
    for (const int number : kEndingSignals)
        std::signal(number, noteSignal);
}

} // namespace tabulon
