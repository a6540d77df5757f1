#include "platform/linux/Process.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>

namespace tabulon {
namespace {

// Unlike SIG_IGN, a handler is not inherited by the programs that are started.
void doNothing(int /*number*/) {}

void survive(int number) {
    struct sigaction action = {};
    action.sa_handler = doNothing;
    action.sa_flags = SA_RESTART;
    ::sigaction(number, &action, nullptr);
}

} // namespace

void prepareProcess() {
    survive(SIGPIPE);
    survive(SIGXFSZ);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(stream, F_GETFD) < 0 && errno == EBADF)
            // `open` uses the lowest free number. The mode is the wrong one, so that reading or writing
            // fails.
            [[maybe_unused]]
            const int opened = ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

void writeStandardError(std::string_view text) {
    while (!text.empty()) {
        // A pipe that is ready takes this much without waiting.
        const std::size_t size = std::min<std::size_t>(text.size(), PIPE_BUF);
        pollfd stream{STDERR_FILENO, POLLOUT, 0};
        if (::poll(&stream, 1, 0) != 1 || (stream.revents & POLLOUT) == 0)
            return;
        const ssize_t written = ::write(STDERR_FILENO, text.data(), size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
}

} // namespace tabulon
