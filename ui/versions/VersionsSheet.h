// The panel of a document's versions: the list by date, the differences from the chosen version, and the
// buttons that open or restore it. The controller makes all decisions.
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

/// The panel, as a sheet. It shares the ownership of its controller.
class VersionsSheet : public QDialog, private VersionsPanel {
    Q_OBJECT

public:
    /// Creates the panel and passes it to `setPanel`. It deletes itself when it is closed.
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
