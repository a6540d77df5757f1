// Alerts about open documents, during which automatic saving asks and reports nothing.
#pragma once

#include "app/OpenDocuments.h"
#include "platform/Platform.h"

#include <functional>

namespace tabulon {

/// Shows the alerts. While one is shown, its document and others can be closed.
class DocumentAlerts {
public:
    /// Requires: the arguments outlive this object.
    DocumentAlerts(Alerts& alerts, OpenDocuments& documents) : alerts_(alerts), documents_(documents) {}

    /// Shows the alert in the window of the document and returns the response.
    int ask(const Document& document, Alert alert);
    /// Calls `show`, which shows an alert about the document and returns when it was closed. After that, a
    /// save or a report that was postponed meanwhile is due after a pause.
    void whileAlertIsUp(const Document& document, const std::function<void()>& show);
    /// Returns whether an alert about the document is shown, by this object or a command of the outline.
    bool isAlertUp(const OpenDocument& opened) const;
    /// Postpones a question or a report until no alert about the document is shown. Requires:
    /// isAlertUp(opened).
    void askLater(OpenDocument& opened) const;

private:
    Alerts& alerts_;
    OpenDocuments& documents_;
};

} // namespace tabulon
