// The program around the application, in memory.
#pragma once

#include "app/ProgramHost.h"

#include <functional>

namespace tabulon {

class FakeProgramHost : public ProgramHost {
public:
    void stop() override { ++stops; }
    bool mustWait() const override { return waits; }
    void willPerform(const LaunchRequest& request) override {
        if (onWillPerform)
            onWillPerform(request);
    }
    void didPerform(const LaunchRequest& request, const Document*) override {
        if (onDidPerform)
            onDidPerform(request);
    }

    void showBrowserConnections() override { ++connectionsShown; }

    int stops = 0;
    int connectionsShown = 0;
    bool waits = false;
    std::function<void(const LaunchRequest&)> onWillPerform;
    std::function<void(const LaunchRequest&)> onDidPerform;
};

} // namespace tabulon
