// The info panel as a sheet of a document window. It shows the fields of the controller's working copy and
// reports every change to the controller.
#pragma once

#include "window/GetInfoController.h"

#include <QDialog>

#include <memory>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QPlainTextEdit;
class QToolButton;

namespace tabulon {

class LineField;

class AddressField;

/// The panel. It shares the ownership of its controller.
class InfoSheet : public QDialog, public InfoPanel {
    Q_OBJECT

public:
    /// Creates the panel and passes it to `setPanel`. `window` owns it, and it deletes itself when it is
    /// closed. Requires: `controller` is not `nullptr`, and `texts` outlives this object.
    InfoSheet(std::shared_ptr<GetInfoController> controller, const Localization& texts, QWidget* window);
    /// Calls `setPanel(nullptr)` if the panel was not closed before, because its window was destroyed.
    ~InfoSheet() override;

    /// Shows the panel as a sheet, which blocks the window, and returns at once.
    void present();
    /// Shows the panel beside the window, which keeps the keyboard, and returns at once. On desktops where a
    /// new window would take the keyboard, shows it within the window.
    void presentBeside();

    /// Keeps the cursor of each field whose text stays the same. Reports no change to the controller.
    void reloadFields() override;
    void setButtons(const InfoButtons& buttons) override;
    /// Shows at most a few thousand bytes, in one line.
    void setTitle(const std::string& title) override;
    /// Moves the keyboard to the name, unless the window around the panel has it.
    void selectName() override;
    /// Moves the keyboard to the button for the next match, so that no key replaces the selected text. The
    /// window around the panel keeps the keyboard if it has it.
    void selectNote(const std::string& string) override;
    /// Moves the keyboard as `selectNote` does.
    void selectTags(const std::string& string) override;
    /// Returns "x y width height" in pixels: of the desktop, or of the window if the panel is shown within
    /// it.
    std::string frame() const override;
    /// Where no screen contains the middle of the place, only resizes the panel, within its screen.
    void setFrame(const std::string& frame) override;
    /// The main loop deletes the panel after that.
    void dismiss() override;
    void bringToFront() override;

protected:
    /// Called for Escape: closes the panel without saving.
    void reject() override;
    /// Called for the close button: saves a change and closes the panel.
    void closeEvent(QCloseEvent* event) override;
    /// Saves a change when a panel beside its window is no longer the active window.
    void changeEvent(QEvent* event) override;

private:
    /// Creates the fields and their labels.
    void makeFields(QFormLayout* form, const Localization& texts);
    /// Returns a new row of buttons, owned by this widget.
    QWidget* makeButtons(const Localization& texts);
    /// Returns a new button, owned by this widget, that runs a step of the controller. `key` chooses it too,
    /// and is shown in its tool tip.
    QToolButton* stepButton(Qt::ArrowType arrow, const QString& title, const QKeySequence& key,
                            void (GetInfoController::*step)());
    /// Connects the fields to the controller. Only what the user changes is reported.
    void reportChanges();
    /// Moves the keyboard to `field`, unless the window around the panel has it.
    void takeKeyboard(QWidget* field);
    /// Saves a change if the panel is shown. Does not close the panel.
    void keepChange();

    /// Never `nullptr`. The fields show its working copy.
    std::shared_ptr<GetInfoController> controller_;
    /// The widgets are owned by this one.
    LineField* name_;
    AddressField* url_;
    LineField* tags_;
    QPlainTextEdit* note_;
    QComboBox* label_;
    QComboBox* browser_;
    QCheckBox* locked_;
    /// The buttons are `nullptr` only during the construction.
    QToolButton* up_ = nullptr;
    QToolButton* down_ = nullptr;
    QToolButton* left_ = nullptr;
    QToolButton* right_ = nullptr;
    QPushButton* findNext_ = nullptr;
    bool loading_ = false; // fields are changed by the program
};

} // namespace tabulon
