// Modal alerts: a message, an explanation and some buttons. Choosing files is in Panels.h.
#pragma once

#include <string>
#include <vector>

namespace tabulon {

class Document;

enum class AlertStyle { Informational, Warning, Critical };

/// What a button is, beyond its title: Cancel is also chosen by Escape and by closing the alert.
enum class AlertButtonRole { Accept, Cancel, Destructive };

struct AlertButton {
    std::string title = {};
    AlertButtonRole role = AlertButtonRole::Accept;
};

/// The response of the first button; the second one's is one more, and so on.
inline constexpr int kAlertFirstButton = 1000;

/// Texts are UTF-8 and shown as they are, never as markup. There is at least one button; the first one is
/// chosen by Return. Without a Cancel button, Escape and closing choose the last one.
struct Alert {
    AlertStyle style = AlertStyle::Informational;
    std::string message = {};
    std::string informative = {};
    std::vector<AlertButton> buttons = {};
    /// The alert belongs to this document's window; null for the whole application.
    const Document* document = nullptr;
    /// Return chooses the Cancel button rather than the first one: what the first one does cannot be taken
    /// back.
    bool cancelIsDefault = false;
};

/// The answer to an alert with a box to say that it is not to come again.
struct SuppressibleAnswer {
    /// As that of `runModal`.
    int response = kAlertFirstButton;
    bool suppressed = false;
};

class Alerts {
public:
    virtual ~Alerts() = default;

    /// Shows the alert and waits for an answer: `kAlertFirstButton` plus the button's index.
    virtual int runModal(const Alert& alert) = 0;

    /// The same with a check box of this title.
    virtual SuppressibleAnswer runModalSuppressible(const Alert& alert, const std::string& boxTitle) = 0;

    /// Whether an alert of this document waits for its answer; of any, or of the whole application, for null.
    /// An alert of a document leaves the windows of the others usable, so commands may run meanwhile. What
    /// runs then must leave the document open.
    virtual bool isAskingAbout(const Document* document) const = 0;
};

} // namespace tabulon
