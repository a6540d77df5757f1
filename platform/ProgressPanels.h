// Bars that show how far a piece of work is, with a button to cancel it. The work itself knows Progress.h
// alone.
#pragma once

#include "base/Progress.h"

#include <memory>
#include <string>

namespace tabulon {

class Document;

struct ProgressPanel {
    /// What is being done, UTF-8: "Exporting “Links”".
    std::string message = {};
    /// The title of the button that cancels.
    std::string cancel = {};
    /// The panel belongs to this document's window; null for the whole application.
    const Document* document = nullptr;
};

class ProgressPanels {
public:
    /// Work that takes no longer than this shows nothing; in seconds.
    static constexpr double kPatience = 0.5;

    virtual ~ProgressPanels() = default;

    /// For work that begins now and is done when the returned object is destroyed; then the panel goes. It
    /// comes up from inside `goOn` when the work has taken longer than `kPatience`. As long as it is there
    /// the user can do nothing but cancel, and no timer and no request from outside is served: what the work
    /// holds stays as it is.
    [[nodiscard]] virtual std::unique_ptr<Progress> begin(const ProgressPanel& panel) = 0;
};

} // namespace tabulon
