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
    /// Creates the panel and passes it to `setPanel`. `window` owns it, and it deletes itself when it is
    /// closed. Requires: `controller` is not `nullptr`.
    VersionsSheet(std::shared_ptr<VersionsController> controller, QWidget* window);
    /// Calls `setPanel(nullptr)`.
    ~VersionsSheet() override;

private:
    /// Shows the counts of a version, which are known from then on. The tool tip of the counts is the reason
    /// why the version cannot be read, if it cannot. Requires: `index` is below the number of versions.
    void reloadVersion(std::size_t index) override;
    /// Shows the differences of the chosen version, or why it cannot be read. Checks the rows anew, as
    /// `DifferencesModel::reload` does.
    void reloadDifferences() override;
    /// The main loop deletes the panel after that.
    void dismiss() override;

    /// Returns a text of the program in the user's language. A key without a text is returned itself.
    QString text(const char* key) const;
    /// Fills the list of versions.
    void makeVersions();
    /// Sets up the list of differences.
    void makeDifferences();
    /// Returns a new widget with both lists, owned by this one.
    QWidget* makeLists();
    /// Hides both lists and returns the text that is shown if there are no versions, owned by this widget.
    QWidget* makeEmptyState();
    /// Creates the buttons.
    void makeButtons();
    /// Returns a new button that runs `slot`. `key` is the key of its title. Owned by the row of buttons.
    QPushButton* makeButton(const char* key, void (VersionsSheet::*slot)());
    /// Enables the buttons that can be used.
    void updateButtons();
    /// Puts the checked differences back.
    void putBackChecked();
    /// Restores the whole version.
    void putBackAll();
    /// Opens the chosen version as an untitled document.
    void openChosen();

    const std::shared_ptr<VersionsController> controller_;
    /// The widgets and the model are owned by this object.
    QTreeWidget* versions_;
    QTreeView* differences_;
    DifferencesModel* model_;
    QLabel* headline_;
    QDialogButtonBox* buttons_;
    /// The letters that are mnemonics already.
    QSet<QChar> mnemonics_;
    /// `nullptr` only during the construction.
    QPushButton* open_ = nullptr;
    QPushButton* putBack_ = nullptr;
    QPushButton* putBackAll_ = nullptr;
};

} // namespace tabulon
