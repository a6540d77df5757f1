// The find bar above the outline: a search field with its recent searches, the number of matches, a button
// for the next one. It reports what the user types to the find bar's controller, when the user pauses.
#pragma once

#include "window/FindBar.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QMenu;

namespace tabulon {

class LineField;

class FindBarWidget : public QWidget, public FindBar {
    Q_OBJECT

public:
    FindBarWidget(FindBarController& controller, Finding& finding, const Localization& texts,
                  QWidget* parent);

    /// Leaves the controller alone from now on.
    void detach();

    bool isFindBarShown() const override { return !isHidden(); }
    void setFindBarShown(bool shown) override;
    void selectSearchText() override;
    bool hasKeyboard() const override;
    void setSearchText(const std::string& text) override;
    void setMatchesLabel(const std::string& text) override;

signals:
    /// The bar goes: whoever had the keyboard before gets it again.
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeRecentsButton(const Localization& texts);
    void fillRecents(QMenu* menu, const Localization& texts);
    void textWasEdited();
    void searchNow();
    void returnWasPressed();
    void hideBar();

    FindBarController* controller_;
    Finding& finding_;
    LineField* field_;
    QLabel* matches_;
    QTimer pause_;
    bool editing_ = false;
};

} // namespace tabulon
