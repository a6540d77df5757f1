// Makes windows in memory for the application.
#pragma once

#include "app/DocumentController.h"
#include "tests/window/MemoryWindow.h"

#include <memory>
#include <utility>

namespace tabulon {

/// Lists the windows that it made as long as they exist, and can refuse to make one.
class MemoryWindowMaker : public DocumentWindowMaker {
public:
    std::unique_ptr<DocumentWindow> makeWindow(ViewController& controller) override {
        if (noMoreWindows)
            return nullptr;
        return std::make_unique<MemoryWindow>(controller);
    }

    void presentVersions(std::shared_ptr<VersionsController> controller) override {
        presentedVersions = std::move(controller);
    }

    bool noMoreWindows = false;
    std::shared_ptr<VersionsController> presentedVersions;
};

} // namespace tabulon
