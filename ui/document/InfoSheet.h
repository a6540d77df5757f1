// The info panel as a sheet of a document window. It shows the fields of the controller's working copy and
// tells it of every change.
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

class InfoSheet : public QDialog, public InfoPanel {
    Q_OBJECT

public:
    /// Goes by itself when it is closed. The texts must live longer.
    InfoSheet(std::shared_ptr<GetInfoController> controller, const Localization& texts, QWidget* window);
    ~InfoSheet() override;

    /// Comes up as a sheet, which blocks the window.
    void present();
    /// Comes up beside the window, which keeps the keyboard; within it where a new window would take the
    /// keyboard.
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
    /// Escape discards the change.
    void reject() override;
    /// The close button saves it.
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void makeFields(QFormLayout* form, const Localization& texts);
    QWidget* makeButtons(const Localization& texts);
    QToolButton* stepButton(Qt::ArrowType arrow, const QString& title, const QKeySequence& key,
                            void (GetInfoController::*step)());
    void reportChanges();
    void takeKeyboard(QWidget* field);
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
    bool loading_ = false; // what changes now is not the user's doing
};

} // namespace tabulon
