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

/// The find bar. It is hidden at first. Searches 180 milliseconds after the last letter was typed. Return
/// ends that pause, or selects the next match if there is no pause.
class FindBarWidget : public QWidget, public FindBar {
    Q_OBJECT

public:
    /// `parent` owns the bar. Requires: `controller` and `finding` exist until `detach` is called, and
    /// `texts` outlives this object.
    FindBarWidget(FindBarController& controller, Finding& finding, const Localization& texts,
                  QWidget* parent);

    /// Detaches the bar from the controller. A search that waits for the pause is dropped.
    void detach();

    /// True also while the window of the bar is hidden or minimized.
    bool isFindBarShown() const override { return !isHidden(); }
    /// Emits `closed` after it has hidden the bar. A search that waits for the pause is dropped then.
    void setFindBarShown(bool shown) override;
    void selectSearchText() override;
    /// True for the search field only, not for the buttons of the bar.
    bool hasKeyboard() const override;
    void setSearchText(const std::string& text) override;
    void setMatchesLabel(const std::string& text) override;

signals:
    /// Emitted when the bar is hidden. The window then moves the keyboard to the rows or the empty state.
    void closed();

protected:
    /// Hides the bar for Escape, by the controller's command.
    void keyPressEvent(QKeyEvent* event) override;
    /// Paints a line at the lower edge.
    void paintEvent(QPaintEvent* event) override;

private:
    /// Returns a new button with the menu of recent searches, owned by this widget.
    QWidget* makeRecentsButton(const Localization& texts);
    /// Replaces the items of the menu. Called when it is opened.
    void fillRecents(QMenu* menu, const Localization& texts);
    /// Restarts the pause after which the text is searched for.
    void textWasEdited();
    /// Searches for the text of the field, without waiting for the pause. Does nothing after `detach`.
    void searchNow();
    /// Stores the recent search and searches for it, or selects the next match.
    void returnWasPressed();
    /// Runs the controller's command, which hides the bar.
    void hideBar();

    /// `nullptr` after `detach`. `finding_` is not used after that either.
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
