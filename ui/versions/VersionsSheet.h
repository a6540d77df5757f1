// The panel of a document's versions: the list by date, what changed since the chosen one, and the buttons
// that open it or put it back. It decides nothing.
#pragma once

#include "app/VersionsController.h"

#include <QDialog>
#include <QSet>

#include <memory>

class QDialogButtonBox;
class QLabel;
class QPushButton;
class QTreeView;
class QTreeWidget;

namespace tabulon {

class DifferencesModel;

class VersionsSheet : public QDialog, private VersionsPanel {
    Q_OBJECT

public:
    /// Deletes itself when it is closed.
    VersionsSheet(std::shared_ptr<VersionsController> controller, QWidget* window);
    ~VersionsSheet() override;

private:
    void reloadVersion(std::size_t index) override;
    void reloadDifferences() override;
    void dismiss() override;

    QString text(const char* key) const;
    void makeVersions();
    void makeDifferences();
    QWidget* makeLists();
    QWidget* makeEmptyState();
    void makeButtons();
    QPushButton* makeButton(const char* key, void (VersionsSheet::*slot)());
    void updateButtons();
    void putBackChecked();
    void putBackAll();
    void openChosen();

    const std::shared_ptr<VersionsController> controller_;
    QTreeWidget* versions_;
    QTreeView* differences_;
    DifferencesModel* model_;
    QLabel* headline_;
    QDialogButtonBox* buttons_;
    QSet<QChar> mnemonics_;
    QPushButton* open_ = nullptr;
    QPushButton* putBack_ = nullptr;
    QPushButton* putBackAll_ = nullptr;
};

} // namespace tabulon
