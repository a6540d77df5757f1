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

    /// Shows the window, or brings it to the front. Returns at once; the window blocks no other one.
    void present();

protected:
    /// Reads the state, and begins to read it every two seconds.
    void showEvent(QShowEvent* event) override;
    /// Ends the regular reading.
    void hideEvent(QHideEvent* event) override;
    /// Reads the state when the window becomes active.
    void changeEvent(QEvent* event) override;

private:
    /// Returns a new area that scrolls, owned by this window, and sets `list_`.
    QWidget* makeList();
    /// Returns the new button that closes the window, owned by this window.
    QDialogButtonBox* makeButtons();
    /// Shows the present state of all browsers. Keeps the rows if they are for the same browsers.
    void refresh();
    /// Replaces all rows. The main loop deletes the old ones, so they stay valid until the caller returns to
    /// it.
    void makeRows(const std::vector<FoundBrowser>& found);
    /// Returns true if the rows show these browsers in the same packaging, with the same icons and in this
    /// order.
    bool rowsAreFor(const std::vector<FoundBrowser>& found) const;
    /// Adds a row at the end. The widget of the list owns it.
    void addRow(const FoundBrowser& found);
    /// Does the next step for a browser. Does nothing if there is no next step.
    void performStep(BrowserRow& row);
    /// Connects the browser. Shows the error in the row if that fails, else the steps to load the extension
    /// if only that is missing.
    void connectBrowser(BrowserRow& row);
    /// Runs the self-test, which may wait for the browser, and shows its result in the row.
    void test(BrowserRow& row);
    /// Disconnects the browser, and shows in the row that this is done or why it has failed.
    void takeBack(BrowserRow& row);
    /// Shows the steps to load the extension as a sheet of this window.
    void showSteps(const BrowserRow& row);

    BrowserConnections& connections_;
    const Localization& texts_;
    /// Runs while the window is visible.
    QTimer timer_;
    /// Owned by this widget.
    QLabel* empty_;
    QVBoxLayout* list_ = nullptr;
    std::vector<BrowserRow*> rows_;
};

} // namespace tabulon
