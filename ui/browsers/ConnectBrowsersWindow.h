// The window Connect Browsers: a row for each browser of this computer. app/BrowserConnections.h decides what
// is shown and does what the user asks for.
#pragma once

#include "app/BrowserConnections.h"
#include "base/Localization.h"

#include <QDialog>
#include <QTimer>

#include <vector>

class QDialogButtonBox;
class QLabel;
class QVBoxLayout;

namespace tabulon {

class BrowserRow;

/// The window. It reads the state of the browsers when it is shown or activated, and every two seconds while
/// it is visible, because a browser connects by itself.
class ConnectBrowsersWindow : public QDialog {
    Q_OBJECT

public:
    /// Creates the window, not shown yet. Requires: both arguments outlive it.
    ConnectBrowsersWindow(BrowserConnections& connections, const Localization& texts);

    /// Shows the window, or brings it to the front.
    void present();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QWidget* makeList();
    QDialogButtonBox* makeButtons();
    /// Shows the present state of all browsers.
    void refresh();
    /// Replaces all rows.
    void makeRows(const std::vector<FoundBrowser>& found);
    bool rowsAreFor(const std::vector<FoundBrowser>& found) const;
    void addRow(const FoundBrowser& found);
    /// Does the next step for a browser.
    void performStep(BrowserRow& row);
    void connectBrowser(BrowserRow& row);
    void test(BrowserRow& row);
    void takeBack(BrowserRow& row);
    void showSteps(const BrowserRow& row);

    BrowserConnections& connections_;
    const Localization& texts_;
    QTimer timer_;
    /// Owned by this widget.
    QLabel* empty_;
    QVBoxLayout* list_ = nullptr;
    std::vector<BrowserRow*> rows_;
};

} // namespace tabulon
