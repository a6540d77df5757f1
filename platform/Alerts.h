// Modal alerts: a message, an explanation and some buttons. Panels for files are in Panels.h.
#pragma once

#include "base/DocumentIdentity.h"

#include <string>
#include <vector>

namespace tabulon {

/// The importance of an alert, which determines its icon.
enum class AlertStyle { Informational, Warning, Critical };

/// The purpose of a button. Escape and closing the alert choose the Cancel button. A Destructive button
/// performs an operation that cannot be undone.
enum class AlertButtonRole { Accept, Cancel, Destructive };

/// A button of an alert.
struct AlertButton {
    /// UTF-8. An "&" in it is an ordinary character.
    std::string title = {};
    AlertButtonRole role = AlertButtonRole::Accept;
};

/// The response of the first button. The response of each further button is one more.
inline constexpr int kAlertFirstButton = 1000;

/// Texts are UTF-8 and never parsed as markup. Return chooses the first button. Without a Cancel button,
/// Escape and closing the alert choose the last button. Requires: at least one button.
struct Alert {
    AlertStyle style = AlertStyle::Informational;
    std::string message = {};
    std::string informative = {};
    std::vector<AlertButton> buttons = {};
    /// The document in whose window the alert is shown; nullptr for the whole application. Not owned.
    const DocumentIdentity* document = nullptr;
    /// True if Return chooses the Cancel button, or the last one if there is none, and not the first. For
    /// alerts whose first button cannot be undone.
    bool cancelIsDefault = false;
};

/// The answer to an alert with a check box that suppresses it in future.
struct SuppressibleAnswer {
    /// The result of `runModal`.
    int response = kAlertFirstButton;
    /// True if the user has checked the box.
    bool suppressed = false;
};

/// Called on the main thread.
class Alerts {
public:
    virtual ~Alerts() = default;

    /// Shows the alert, waits for the answer and returns `kAlertFirstButton` plus the index of the chosen
    /// button. Events are processed while it waits, so other commands and timers may run.
    virtual int runModal(const Alert& alert) = 0;

    /// Shows the alert with a check box of this title, UTF-8, and otherwise does the same as `runModal`.
    virtual SuppressibleAnswer runModalSuppressible(const Alert& alert, const std::string& boxTitle) = 0;

    /// Returns true while an alert of this document waits for its answer; for nullptr, while any alert does.
    /// The windows of other documents stay usable meanwhile, so commands may run. They must not close the
    /// document of the alert.
    virtual bool isAskingAbout(const DocumentIdentity* document) const = 0;
};

} // namespace tabulon
