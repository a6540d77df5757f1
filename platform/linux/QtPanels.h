// Open and save panels as file dialogs: those of the desktop where it provides them.
#pragma once

#include "platform/Panels.h"
#include "platform/linux/QtAlerts.h"

#include <QString>

#include <memory>

class QFileDialog;

namespace tabulon {

/// Makes the views of options areas.
class AccessoryViewMaker {
public:
    virtual ~AccessoryViewMaker() = default;
    /// Returns a new view of `accessory`, owned by the caller, or `nullptr` if there is none.
    virtual QWidget* makeAccessoryView(const std::shared_ptr<PanelAccessory>& accessory) = 0;
};

/// File dialogs. A panel with an options area is Qt's own dialog, since those of the desktop cannot contain
/// one. See platform/Panels.h for the contracts.
class QtPanels : public Panels {
public:
    /// `windowFor` returns the window to which a panel belongs. `views` makes the options areas; without it
    /// panels have none. The first panel starts in the desktop's folder for documents. Requires: `views`
    /// outlives this object, and this object outlives its open panels.
    explicit QtPanels(WindowFinder windowFor, AccessoryViewMaker* views = nullptr);

    /// Opens a dialog and returns. `done` is called from the main loop after the dialog has ended.
    void beginOpenPanel(const OpenPanel& panel, OpenDone done) override;
    /// Opens a dialog and returns, as `beginOpenPanel`. The proposed name is made a valid file name.
    void beginSavePanel(const SavePanel& panel, SaveDone done) override;

private:
    /// Returns a new dialog, which is not shown yet, with the options area if there is one.
    QFileDialog* makeSaveDialog(const SavePanel& panel) const;
    /// Returns `wanted`, or `last` if that is empty; the home folder if this is no folder.
    static QString startFolder(const std::string& wanted, const QString& last);

    WindowFinder windowFor_;
    AccessoryViewMaker* const views_; // not owned; may be nullptr
    QString lastFolder_;
    QString lastSaveFolder_; // separate: documents are not saved where a browser's files are opened
};

} // namespace tabulon
