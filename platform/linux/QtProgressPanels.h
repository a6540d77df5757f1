// Progress panels as application-modal dialogs.
#pragma once

#include "platform/ProgressPanels.h"
#include "platform/linux/QtAlerts.h"

namespace tabulon {

/// Progress panels that handle events from inside `Progress::goOn`. See platform/ProgressPanels.h for the
/// contracts.
class QtProgressPanels : public ProgressPanels {
public:
    explicit QtProgressPanels(WindowFinder windowFor) : windowFor_(std::move(windowFor)) {}
    std::unique_ptr<Progress> begin(const ProgressPanel& panel) override;

    /// Returns whether a panel is open. Events are then handled from inside an operation, and its data must
    /// not be changed.
    bool isShowing() const { return showing_ > 0; }

private:
    class Work;

    WindowFinder windowFor_;
    int showing_ = 0;
};

} // namespace tabulon
