// One row of the window Connect Browsers: a browser's icon and state, and the buttons for it. It decides
// nothing.
#pragma once

#include "app/BrowserConnections.h"
#include "base/Localization.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace tabulon {

/// The row of a browser in one packaging.
class BrowserRow : public QWidget {
    Q_OBJECT

public:
    /// Creates the row and shows `found`. `parent` owns the row. Requires: `texts` outlives it.
    BrowserRow(const FoundBrowser& found, const Localization& texts, QWidget* parent);

    /// Returns the browser as it is shown. Valid as long as the row; `setFound` changes it.
    const FoundBrowser& found() const { return found_; }
    /// Shows another state of the same browser, and removes the result if the stage has changed. The keyboard
    /// stays where it is unless its button is hidden or disabled. Does nothing if the state is equal.
    /// Requires: the same browser, packaging and icon, which stay as they are shown.
    void setFound(const FoundBrowser& found);
    /// Shows the result of what the user has asked for, below the state. UTF-8, without markup. Replaces the
    /// result before.
    void showResult(const std::string& sentence);

signals:
    /// Emitted when the user has pressed the button of the next step.
    void stepRequested();
    /// Emitted when the user has pressed Test.
    void testRequested();
    /// Emitted when the user has pressed Disconnect.
    void takeBackRequested();

private:
    /// Returns the names, the state and the result, one above the other.
    QWidget* makeTexts();
    /// Returns a new button at the end of the layout, owned by this row. Pressing it emits `pressed`.
    QPushButton* makeButton(const std::string& title, QHBoxLayout* layout, void (BrowserRow::*pressed)());
    /// Shows the state of `found_` and sets up the buttons for it. Does not change the result.
    void update();

    FoundBrowser found_;
    const Localization& texts_;
    /// Owned by this widget.
    QLabel* state_;
    QLabel* result_;
    QPushButton* step_;
    QPushButton* test_;
    QPushButton* takeBack_;
};

} // namespace tabulon
