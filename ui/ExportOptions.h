// The options area of the export panel as widgets. Which options a format has, and their settings, are in
// window/AccessoryViewController.h.
#pragma once

#include "base/Localization.h"
#include "window/AccessoryViewController.h"

#include <QList>
#include <QSet>
#include <QWidget>

#include <memory>
#include <utility>

class QCheckBox;
class QComboBox;
class QLayout;

namespace tabulon {

/// The area. It makes the panel higher by the options of a format when that is chosen.
class ExportOptions : public QWidget {
    Q_OBJECT

public:
    /// Loads `controller` and makes the widgets. Shares the ownership of `controller`. Requires: `texts`
    /// outlives this object.
    ExportOptions(std::shared_ptr<AccessoryViewController> controller, const Localization& texts);

private:
    QLayout* makeFormats();
    QWidget* makeTextOptions();
    QCheckBox* addBox(CheckBox& box, const char* titleKey);
    void chooseFormat(int index);
    void showState();
    void growWindow(int added);
    int addedHeight() const;

    const std::shared_ptr<AccessoryViewController> controller_;
    const Localization& texts_;
    QSet<QChar> taken_;
    QComboBox* formats_;
    QWidget* textOptions_ = nullptr;
    int heightOfFirstFormat_ = 0;
    QList<std::pair<QCheckBox*, const CheckBox*>> boxes_;
};

/// Returns a new view of `accessory`, owned by the caller, or `nullptr` if there is none. Requires: `texts`
/// outlives the view.
QWidget* makeAccessoryView(const std::shared_ptr<PanelAccessory>& accessory, const Localization& texts);

} // namespace tabulon
