// Open and save panels as file dialogs: the desktop's own where it has them.
#pragma once

#include "platform/Panels.h"
#include "platform/linux/QtAlerts.h"

#include <QString>

#include <functional>
#include <memory>

class QFileDialog;

namespace tabulon {

/// Panels with an options area are Qt's own: the desktop's have no room for one.
class QtPanels : public Panels {
public:
    explicit QtPanels(WindowFinder windowFor);

    /// Makes the view of an options area, whose parent is the panel. Null, here or from it, for none.
    std::function<QWidget*(const std::shared_ptr<PanelAccessory>& accessory)> makeAccessoryView;

    void beginOpenPanel(const OpenPanel& panel, OpenDone done) override;
    void beginSavePanel(const SavePanel& panel, SaveDone done) override;

private:
    QFileDialog* makeSaveDialog(const SavePanel& panel) const;
    static QString startFolder(const std::string& wanted, const QString& last);

    WindowFinder windowFor_;
    QString lastFolder_;
    QString lastSaveFolder_; // apart, or a document would be saved beside the files of a browser
};

} // namespace tabulon
