// Progress panels as application-modal dialogs.
#pragma once

#include "platform/ProgressPanels.h"
#include "platform/linux/QtAlerts.h"

namespace tabulon {

/// Progress panels that handle events from inside `Progress::goOn`. See platform/ProgressPanels.h for the
/// contracts.
class QtProgressPanels : public ProgressPanels {
public:
    /// `windowFor` returns the window to which a panel belongs, and is called when the panel is opened.
    explicit QtProgressPanels(WindowFinder windowFor) : windowFor_(std::move(windowFor)) {}
    /// Returns the progress of an operation that begins. Its `goOn` opens the panel after `kPatience`, and
    /// then handles events every 40 milliseconds. Requires: this object outlives the result.
    std::unique_ptr<Progress> begin(const ProgressPanel& panel) override;

    /// Returns whether a panel is open. Events are then handled from inside an operation, and its data must
    /// not be changed.
    bool isShowing() const { return showing_ > 0; }

private:
    class Work;

    WindowFinder windowFor_;
    int showing_ = 0; // the number of open panels
};

} // namespace tabulon
