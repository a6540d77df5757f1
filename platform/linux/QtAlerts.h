// Alerts as message boxes of Qt.
#pragma once

#include "platform/Alerts.h"

#include <functional>
#include <vector>

class QWidget;

class QMessageBox;

namespace tabulon {

/// Returns the window that shows `document`. For `nullptr`, or a document without a window, it returns the
/// active window, or `nullptr`. The window is not owned. Called when an alert or a panel is shown.
using WindowFinder = std::function<QWidget*(const DocumentIdentity* document)>;

/// Observes when all alerts have ended.
class AlertsObserver {
public:
    virtual ~AlertsObserver() = default;
    /// Called when the last open alert has ended, before its `runModal` returns.
    virtual void lastAlertEnded() = 0;
};

/// Alerts that run nested event loops. See platform/Alerts.h for the contracts.
class QtAlerts : public Alerts {
public:
    /// `windowFor` returns the window to which an alert belongs. `observer` may be `nullptr`. Requires:
    /// `observer` exists as long as alerts are shown.
    explicit QtAlerts(WindowFinder windowFor, AlertsObserver* observer = nullptr)
        : windowFor_(std::move(windowFor)), observer_(observer) {}
    /// Runs an event loop until the user answers. Returns `kAlertFirstButton` plus the index of the button.
    /// An alert with a document's window disables that window only. While alerts are nested, an outer one
    /// returns after the inner ones have ended. Requires: the window of the alert exists until then.
    int runModal(const Alert& alert) override;
    /// Runs the same with a check box.
    SuppressibleAnswer runModalSuppressible(const Alert& alert, const std::string& boxTitle) override;

    /// Returns whether an alert is open.
    bool isShowing() const { return !showing_.empty(); }
    /// Returns whether an alert about `document` is open, or any alert for `nullptr`.
    bool isAskingAbout(const DocumentIdentity* document) const override;

private:
    /// Fills and shows the box, and returns the response.
    int run(QMessageBox& box, const Alert& alert);

    WindowFinder windowFor_;
    AlertsObserver* const observer_; // not owned; may be nullptr
    /// An open alert. Neither pointer is owned; `document` is nullptr for the whole application.
    struct Shown {
        QMessageBox* box;
        const DocumentIdentity* document;
    };
    /// The open alerts. The last one runs in the innermost event loop and must end first, so the others are
    /// disabled.
    std::vector<Shown> showing_;
};

} // namespace tabulon
