#include "platform/linux/BrowserLauncher.h"

#include "base/Browsers.h"
#include "platform/linux/AddressCommands.h"

#include <gio/gio.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

namespace tabulon {
namespace {

struct FreeError {
    void operator()(GError* error) const { g_error_free(error); }
};

// The environment needs a part of the system's limit, too.
std::size_t mostBytesOfArguments() {
    constexpr long kUsual = 128 * 1024;
    const long limit = sysconf(_SC_ARG_MAX);
    return static_cast<std::size_t>(limit > 0 ? limit / 4 : kUsual);
}

// Firefox has an option for a tab; the others make one for each address that follows.
const char* optionFor(const Browser& browser, Placement placement) {
    if (placement == Placement::NewWindow)
        return "--new-window";
    return placement == Placement::NewTab && browser.family == BrowserFamily::URLSuite ? "--new-tab"
                                                                                       : nullptr;
}

Result<void> start(const std::vector<std::string>& command) {
    std::vector<char*> words;
    for (const std::string& word : command)
        words.push_back(const_cast<char*>(word.c_str())); // g_spawn_async changes nothing
    words.push_back(nullptr);
    GError* error = nullptr;
    const auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL |
                                                G_SPAWN_STDERR_TO_DEV_NULL);
    if (g_spawn_async(nullptr, words.data(), nullptr, flags, nullptr, nullptr, nullptr, &error))
        return {};
    const std::unique_ptr<GError, FreeError> owned(error);
    return failure(owned->message);
}

} // namespace

void BrowserLauncher::startSoon(const InstalledApplication& application) {
    const auto waits = [&](const Start& pending) {
        return pending.application.identifier == application.identifier;
    };
    if (std::ranges::any_of(pending_, waits))
        return;
    pending_.push_back({application, Placement::BrowsersChoice, {}});
    startPendingSoon();
}

Result<void> BrowserLauncher::showSoon(const InstalledApplication& application,
                                       std::span<const std::string> addresses, Placement placement) {
    if (!std::ranges::all_of(addresses, canBeArgument))
        return failure("The address cannot be passed to another program.");
    std::erase_if(pending_, [&](const Start& pending) {
        return pending.addresses.empty() && pending.application.identifier == application.identifier;
    });
    // Each address in a new window has a command of its own.
    const bool joins = placement != Placement::NewWindow && !pending_.empty() &&
                       pending_.back().placement == placement &&
                       pending_.back().application.identifier == application.identifier;
    if (!joins)
        pending_.push_back({application, placement, {}});
    std::vector<std::string>& list = pending_.back().addresses;
    list.insert(list.end(), addresses.begin(), addresses.end());
    startPendingSoon();
    return {};
}

Result<void> BrowserLauncher::startPending() {
    timer_.reset();
    Result<void> result;
    const auto startOne = [&](const std::vector<std::string>& command) {
        if (const Result<void> started = start(command); !started && result)
            result = started;
    };
    for (const Start& pending : std::exchange(pending_, {})) {
        std::vector<std::string> command = pending.application.command;
        const Browser* browser = browserWithIdentifier(pending.application.identifier);
        if (const char* option = browser ? optionFor(*browser, pending.placement) : nullptr)
            command.emplace_back(option);
        if (pending.addresses.empty())
            startOne(command);
        const std::size_t most = pending.application.takesManyAddresses ? mostBytesOfArguments() : 0;
        for (const auto& full : commandsWithAddresses(command, pending.addresses, most))
            startOne(full);
    }
    return result;
}

void BrowserLauncher::startPendingSoon() {
    if (timers_ && !timer_)
        timer_ = timers_->after(0, [this] { static_cast<void>(startPending()); });
}

} // namespace tabulon
