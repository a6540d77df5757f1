// Open and save panels as file dialogs: the desktop's own where it has them.
#pragma once

#include "platform/Panels.h"
#include "platform/linux/QtAlerts.h"

#include <QString>

namespace tabulon {

class QtPanels : public Panels {
public:
    explicit QtPanels(WindowFinder windowFor);
    void beginOpenPanel(const OpenPanel& panel, OpenDone done) override;
    void beginSavePanel(const SavePanel& panel, SaveDone done) override;

private:
    QString startFolder(const std::string& wanted) const;

    WindowFinder windowFor_;
    QString lastFolder_;
};

} // namespace tabulon
