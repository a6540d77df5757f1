// What the running program was asked, from outside or by the user with several files, and has not done yet.
// Each request is answered when it arrives and performed later from the main loop, so that its sender does
// not time out while the program reads a large file or shows an alert. One alert lists all files that cannot
// be opened, after the last request.
#pragma once

#include "platform/SingleInstance.h"
#include "platform/Timers.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tabulon {

class AppDelegate;

class RequestQueue {
public:
    /// Takes what comes to `instance`; as long as there is something to do, closing the last document does
    /// not end `app`. All must live longer.
    RequestQueue(AppDelegate& app, SingleInstance& instance, Timers& timers);

    /// True while nothing may happen behind the user's back, such as while an alert waits for an answer.
    /// `performSoon` is to be called when that is over. What the user opens in the program does not wait.
    std::function<bool()> mustWait;
    /// Called around each request, for what the desktop needs to let windows come to the front.
    std::function<void(const LaunchRequest&)> willPerform;
    std::function<void(const LaunchRequest&)> didPerform;

    /// Takes a request that comes from this program itself.
    void add(LaunchRequest request);
    /// Takes files that the user opens in the program, as paths or URIs. They come before all other requests.
    void open(const std::vector<std::string>& locations);

    /// Does from the main loop what has come, in the order in which it came, as far as it may then.
    void performSoon();

    /// Something has come since the start.
    bool wasUsed() const { return used_; }

private:
    std::deque<LaunchRequest>* next();
    void performNext();

    AppDelegate& app_;
    Timers& timers_;
    std::unique_ptr<Timer> timer_;
    std::deque<LaunchRequest> opened_; // by the user, in the program
    std::deque<LaunchRequest> pending_;
    bool performing_ = false;
    bool used_ = false;
};

} // namespace tabulon
