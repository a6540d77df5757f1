// Alerts as message boxes.
#pragma once

#include "platform/Alerts.h"

#include <functional>

class QWidget;

class QMessageBox;

namespace tabulon {

/// The window that shows a document; for null, or when there is none, the one in front, or null.
using WindowFinder = std::function<QWidget*(const Document* document)>;

class QtAlerts : public Alerts {
public:
    explicit QtAlerts(WindowFinder windowFor) : windowFor_(std::move(windowFor)) {}
    int runModal(const Alert& alert) override;
    SuppressibleAnswer runModalSuppressible(const Alert& alert, const std::string& boxTitle) override;

    /// True while an alert waits for its answer.
    bool isShowing() const { return showing_ > 0; }
    /// Called when none does any more, before `runModal` returns.
    std::function<void()> lastOneEnded;

private:
    int run(QMessageBox& box, const Alert& alert);

    WindowFinder windowFor_;
    int showing_ = 0;
};

} // namespace tabulon
