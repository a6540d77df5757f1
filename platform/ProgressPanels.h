// Panels with a progress bar and a button that cancels. The operation itself only uses base/Progress.h.
#pragma once

#include "base/DocumentIdentity.h"
#include "base/Progress.h"

#include <memory>
#include <string>

namespace tabulon {

/// The texts of a panel, UTF-8.
struct ProgressPanel {
    /// The name of the operation: "Exporting “Links”".
    std::string message = {};
    /// The title of the button that cancels.
    std::string cancel = {};
    /// The document in whose window the panel is shown; nullptr for the whole application. Not owned.
    const DocumentIdentity* document = nullptr;
};

class ProgressPanels {
public:
    /// The seconds after which the panel is shown. A shorter operation has no panel.
    static constexpr double kPatience = 0.5;

    virtual ~ProgressPanels() = default;

    /// Returns the progress of an operation that begins now and ends when the object is destroyed, which also
    /// closes the panel. `goOn` shows the panel after `kPatience` and processes events. While the panel is
    /// shown, the user can only cancel, and neither timers nor requests from other processes are handled. So
    /// the data of the operation does not change. The object must not outlive this one. Never nullptr.
    [[nodiscard]] virtual std::unique_ptr<Progress> begin(const ProgressPanel& panel) = 0;
};

} // namespace tabulon
