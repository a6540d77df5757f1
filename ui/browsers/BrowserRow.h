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

    /// Returns the browser as it is shown.
    const FoundBrowser& found() const { return found_; }
    /// Shows another state of the same browser, and removes the result if the stage has changed. The keyboard
    /// stays where it is unless its button is hidden or disabled.
    void setFound(const FoundBrowser& found);
    /// Shows the result of what the user has asked for, below the state.
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
    QPushButton* makeButton(const std::string& title, QHBoxLayout* layout, void (BrowserRow::*pressed)());
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
