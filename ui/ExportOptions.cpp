#include "ui/ExportOptions.h"

#include "ui/Strings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace tabulon {
namespace {

constexpr double kPointsOfAnInch = 72;

QHBoxLayout* rowOf(const QList<QWidget*>& widgets) {
    auto* row = new QHBoxLayout;
    for (QWidget* widget : widgets)
        row->addWidget(widget);
    row->addStretch(1);
    return row;
}

} // namespace

ExportOptions::ExportOptions(std::shared_ptr<AccessoryViewController> controller, const Localization& texts)
    : controller_(std::move(controller)), texts_(texts), taken_{'n', 'e'}, formats_(new QComboBox(this)) {
    controller_->viewDidLoad();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(withMnemonic(texts_.text("ExportFormat"), taken_), this);
    label->setBuddy(formats_);
    layout->addLayout(rowOf({label, formats_}));
    layout->addWidget(addBox(controller_->sortByName, "ExportSortName"));
    QCheckBox* copy = addBox(controller_->saveCopyHTML, "SaveAsHTML");
    QSizePolicy keepsRoom = copy->sizePolicy(); // the height changes by that of the options of text alone
    keepsRoom.setRetainSizeWhenHidden(true);
    copy->setSizePolicy(keepsRoom);
    layout->addWidget(copy);
    textOptions_ = makeTextOptions();
    layout->addWidget(textOptions_);
    addFormats();
    showState();
}

void ExportOptions::addFormats() {
    for (const std::string& title : controller_->exportTypes())
        formats_->addItem(toQString(title));
    connect(formats_, &QComboBox::currentIndexChanged, this, &ExportOptions::chooseFormat);
}

QWidget* ExportOptions::makeTextOptions() {
    auto* options = new QWidget(this);
    auto* layout = new QVBoxLayout(options);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(toQString(texts_.text("ExportColumns")), options));
    layout->addLayout(rowOf(
        {addBox(controller_->exportName, "ExportName"), addBox(controller_->exportURL, "ExportURL"),
         addBox(controller_->exportTags, "ExportTags"), addBox(controller_->exportNote, "ExportNote")}));
    layout->addWidget(addBox(controller_->skipFolders, "SkipFolders"));
    layout->addWidget(addBox(controller_->skipSeparators, "SkipSeparators"));
    return options;
}

QCheckBox* ExportOptions::addBox(CheckBox& box, const char* titleKey) {
    auto* view = new QCheckBox(withMnemonic(texts_.text(titleKey), taken_), this);
    view->setChecked(box.on);
    connect(view, &QCheckBox::toggled, this, [&box](bool on) { box.on = on; });
    boxes_.append({view, &box});
    return view;
}

void ExportOptions::chooseFormat(int index) {
    const int before = textOptionsHeight();
    controller_->exportTypeSelected(static_cast<std::size_t>(index));
    showState();
    growWindow(before);
}

void ExportOptions::showState() {
    for (const auto& [view, box] : boxes_)
        view->setHidden(box->hidden);
    const int height = textOptionsHeight();
    textOptions_->setVisible(height > 0);
    textOptions_->setFixedHeight(std::max(height, textOptions_->minimumSizeHint().height()));
}

// So that the list of files keeps its height.
void ExportOptions::growWindow(int before) {
    QWidget* panel = window();
    const int height = panel->height() + textOptionsHeight() - before;
    panel->resize(panel->width(), std::min(height, panel->screen()->availableSize().height()));
}

int ExportOptions::textOptionsHeight() const {
    return static_cast<int>(std::lround(controller_->addedHeight() * logicalDpiY() / kPointsOfAnInch));
}

QWidget* makeAccessoryView(const std::shared_ptr<PanelAccessory>& accessory, const Localization& texts) {
    const auto controller = std::dynamic_pointer_cast<AccessoryViewController>(accessory);
    return controller ? new ExportOptions(controller, texts) : nullptr;
}

} // namespace tabulon
