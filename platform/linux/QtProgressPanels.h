// Progress panels as small dialogs that take all input of the program.
#pragma once

#include "platform/ProgressPanels.h"
#include "platform/linux/QtAlerts.h"

namespace tabulon {

class QtProgressPanels : public ProgressPanels {
public:
    explicit QtProgressPanels(WindowFinder windowFor) : windowFor_(std::move(windowFor)) {}
    std::unique_ptr<Progress> begin(const ProgressPanel& panel) override;

    /// True while a panel is on the screen: events are handled from inside the work then, and nobody may
    /// touch what it works on.
    bool isShowing() const { return showing_ > 0; }

private:
    class Work;

    WindowFinder windowFor_;
    int showing_ = 0;
};

} // namespace tabulon
