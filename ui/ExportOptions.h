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
    /// Calls `viewDidLoad` of `controller` and creates the widgets for its formats and options. Shares the
    /// ownership of `controller`. The caller owns the widget until it is added to a panel. Requires:
    /// `controller` is not `nullptr`, and `texts` outlives this object.
    ExportOptions(std::shared_ptr<AccessoryViewController> controller, const Localization& texts);

private:
    /// Returns a new row with the menu of formats. The caller adds it to a layout, which owns it.
    QLayout* makeFormats();
    /// Returns a new widget with the options of text files, owned by this one.
    QWidget* makeTextOptions();
    /// Returns a new check box that shows and sets `box`, owned by this widget. `titleKey` is the key of its
    /// text.
    QCheckBox* addBox(CheckBox& box, const char* titleKey);
    /// Called when the user has chosen the format at `index` of the menu. Shows its options and makes the
    /// panel higher or lower.
    void chooseFormat(int index);
    /// Shows the boxes that the chosen format has.
    void showState();
    /// Makes the panel higher by `added` pixels, or lower if `added` is negative. It does not become higher
    /// than the screen.
    void growWindow(int added);
    /// Returns how much higher the area is than with the first format, in pixels of this screen.
    int addedHeight() const;

    /// Contains the chosen format and the state of every box. Never `nullptr`.
    const std::shared_ptr<AccessoryViewController> controller_;
    const Localization& texts_;
    /// The letters that are mnemonics already.
    QSet<QChar> taken_;
    /// The widgets are owned by this one.
    QComboBox* formats_;
    /// `nullptr` only during the construction.
    QWidget* textOptions_ = nullptr;
    /// The height of the area with the first format, in pixels.
    int heightOfFirstFormat_ = 0;
    /// Each check box with the value that it shows, which is a part of the controller.
    QList<std::pair<QCheckBox*, const CheckBox*>> boxes_;
};

/// Returns a new view of `accessory`, owned by the caller. Returns `nullptr` if `accessory` is `nullptr` or
/// is not an AccessoryViewController. Requires: `texts` outlives the view.
QWidget* makeAccessoryView(const std::shared_ptr<PanelAccessory>& accessory, const Localization& texts);

} // namespace tabulon
