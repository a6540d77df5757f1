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
    /// Creates the menu of formats.
    QLayout* makeFormats();
    /// Creates the options of text files.
    QWidget* makeTextOptions();
    /// Creates a check box that shows and sets `box`.
    QCheckBox* addBox(CheckBox& box, const char* titleKey);
    /// Called when the user has chosen a format. Shows its options and makes the panel higher or lower.
    void chooseFormat(int index);
    /// Shows the boxes that the chosen format has.
    void showState();
    /// Makes the panel higher by `added` pixels, or lower.
    void growWindow(int added);
    /// Returns how much higher the area is than with the first format, in pixels of this screen.
    int addedHeight() const;

    const std::shared_ptr<AccessoryViewController> controller_;
    const Localization& texts_;
    /// The letters that are mnemonics already.
    QSet<QChar> taken_;
    QComboBox* formats_;
    QWidget* textOptions_ = nullptr;
    /// In pixels.
    int heightOfFirstFormat_ = 0;
    QList<std::pair<QCheckBox*, const CheckBox*>> boxes_;
};

/// Returns a new view of `accessory`, owned by the caller, or `nullptr` if there is none. Requires: `texts`
/// outlives the view.
QWidget* makeAccessoryView(const std::shared_ptr<PanelAccessory>& accessory, const Localization& texts);

} // namespace tabulon
