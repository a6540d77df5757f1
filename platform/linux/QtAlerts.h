// Alerts as message boxes.
#pragma once

#include "platform/Alerts.h"

#include <functional>
#include <vector>

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
    bool isShowing() const { return !showing_.empty(); }
    bool isAskingAbout(const Document* document) const override;
    /// Called when none does any more, before `runModal` returns.
    std::function<void()> lastOneEnded;

private:
    int run(QMessageBox& box, const Alert& alert);

    WindowFinder windowFor_;
    struct Shown {
        QMessageBox* box;
        const Document* document;
    };
    /// The last one runs in the innermost event loop, so it is answered first.
    std::vector<Shown> showing_;
};

} // namespace tabulon
