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
    /// Creates the panel and passes it to `setPanel`. It deletes itself when it is closed. Requires: `texts`
    /// outlives this object.
    InfoSheet(std::shared_ptr<GetInfoController> controller, const Localization& texts, QWidget* window);
    ~InfoSheet() override;

    /// Shows the panel as a sheet, which blocks the window.
    void present();
    /// Shows the panel beside the window, which keeps the keyboard. On desktops where a new window would take
    /// the keyboard, shows it within the window.
    void presentBeside();

    void reloadFields() override;
    void setButtons(const InfoButtons& buttons) override;
    void setTitle(const std::string& title) override;
    void selectName() override;
    void selectNote(const std::string& string) override;
    void selectTags(const std::string& string) override;
    std::string frame() const override;
    void setFrame(const std::string& frame) override;
    void dismiss() override;
    void bringToFront() override;

protected:
    /// Called for Escape: closes the panel without saving.
    void reject() override;
    /// Called for the close button: saves a change and closes the panel.
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// Creates the fields and their labels.
    void makeFields(QFormLayout* form, const Localization& texts);
    /// Creates the row of buttons.
    QWidget* makeButtons(const Localization& texts);
    /// Creates a button, with a shortcut, that runs a step of the controller.
    QToolButton* stepButton(Qt::ArrowType arrow, const QString& title, const QKeySequence& key,
                            void (GetInfoController::*step)());
    /// Connects the fields to the controller.
    void reportChanges();
    /// Moves the keyboard to `field`, unless the window around the panel has it.
    void takeKeyboard(QWidget* field);
    /// Saves a change if the panel is shown.
    void keepChange();

    std::shared_ptr<GetInfoController> controller_;
    LineField* name_;
    AddressField* url_;
    LineField* tags_;
    QPlainTextEdit* note_;
    QComboBox* label_;
    QComboBox* browser_;
    QCheckBox* locked_;
    QToolButton* up_ = nullptr;
    QToolButton* down_ = nullptr;
    QToolButton* left_ = nullptr;
    QToolButton* right_ = nullptr;
    QPushButton* findNext_ = nullptr;
    bool loading_ = false; // fields are changed by the program
};

} // namespace tabulon
