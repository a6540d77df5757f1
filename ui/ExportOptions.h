// The options area of the export panel as widgets. Which options a format has, and what they stand for, is
// window/AccessoryViewController.h's affair.
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

class ExportOptions : public QWidget {
    Q_OBJECT

public:
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

/// The view of `accessory`, or null for one that has none here.
QWidget* makeAccessoryView(const std::shared_ptr<PanelAccessory>& accessory, const Localization& texts);

} // namespace tabulon
