// The find bar above the outline: a search field with its recent searches, the number of matches, a button
// for the next match. It reports the search text to the find bar's controller when the user pauses typing.
#pragma once

#include "window/FindBar.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QMenu;

namespace tabulon {

class LineField;

/// The find bar. It is hidden at first.
class FindBarWidget : public QWidget, public FindBar {
    Q_OBJECT

public:
    /// Requires: `controller` and `finding` exist until `detach` is called, and `texts` outlives this object.
    FindBarWidget(FindBarController& controller, Finding& finding, const Localization& texts,
                  QWidget* parent);

    /// Detaches the bar from the controller.
    void detach();

    bool isFindBarShown() const override { return !isHidden(); }
    void setFindBarShown(bool shown) override;
    void selectSearchText() override;
    bool hasKeyboard() const override;
    void setSearchText(const std::string& text) override;
    void setMatchesLabel(const std::string& text) override;

signals:
    /// Emitted when the bar is hidden. The window then moves the keyboard to the rows or the empty state.
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// Creates the button with the menu of recent searches.
    QWidget* makeRecentsButton(const Localization& texts);
    /// Fills the menu when it is opened.
    void fillRecents(QMenu* menu, const Localization& texts);
    /// Restarts the pause after which the text is searched for.
    void textWasEdited();
    /// Searches for the text of the field.
    void searchNow();
    /// Stores the recent search and searches for it, or selects the next match.
    void returnWasPressed();
    /// Runs the controller's command, which hides the bar.
    void hideBar();

    FindBarController* controller_;
    Finding& finding_;
    /// The widgets are owned by this one.
    LineField* field_;
    QLabel* matches_;
    /// Runs while the user types.
    QTimer pause_;
    /// Whether the user has typed since the last search.
    bool editing_ = false;
};

} // namespace tabulon
