#include "ui/ExportOptions.h"

#include "ui/Strings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace tabulon {
namespace {

constexpr double kPointsOfAnInch = 72;
constexpr int kColumnGap = 4; // average characters

} // namespace

ExportOptions::ExportOptions(std::shared_ptr<AccessoryViewController> controller, const Localization& texts)
    : controller_(std::move(controller)), texts_(texts), taken_{'n', 'e'}, formats_(new QComboBox(this)) {
    controller_->viewDidLoad();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(makeFormats());
    layout->addWidget(addBox(controller_->sortByName, "ExportSortName"));
    layout->addWidget(addBox(controller_->saveCopyHTML, "SaveAsHTML"));
    textOptions_ = makeTextOptions();
    layout->addWidget(textOptions_);
    layout->addStretch(1);
    showState();
    heightOfFirstFormat_ = layout->sizeHint().height();
    setFixedHeight(heightOfFirstFormat_);
}

QLayout* ExportOptions::makeFormats() {
    auto* label = new QLabel(withMnemonic(texts_.text("ExportFormat"), taken_), this);
    label->setBuddy(formats_);
    for (const std::string& title : controller_->exportTypes())
        formats_->addItem(toQString(title));
    connect(formats_, &QComboBox::currentIndexChanged, this, &ExportOptions::chooseFormat);
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(formats_);
    row->addStretch(1);
    return row;
}

QWidget* ExportOptions::makeTextOptions() {
    auto* options = new QWidget(this);
    auto* layout = new QGridLayout(options);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(kColumnGap * fontMetrics().averageCharWidth());
    layout->setColumnStretch(1, 1);
    const auto addColumn = [&](int column, const char* titleKey, const QList<QWidget*>& boxes) {
        const QString title = toQString(texts_.text(titleKey));
        layout->addWidget(new QLabel(title, options), 0, column);
        for (qsizetype i = 0; i < boxes.size(); ++i) {
            boxes[i]->setAccessibleDescription(title);
            layout->addWidget(boxes[i], static_cast<int>(i) + 1, column);
        }
    };
    addColumn(0, "ExportColumns",
              {addBox(controller_->exportName, "ExportName"), addBox(controller_->exportURL, "ExportURL"),
               addBox(controller_->exportTags, "ExportTags"), addBox(controller_->exportNote, "ExportNote")});
    addColumn(1, "ExportSkip",
              {addBox(controller_->skipFolders, "SkipFolders"),
               addBox(controller_->skipSeparators, "SkipSeparators")});
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
    controller_->exportTypeSelected(static_cast<std::size_t>(index));
    showState();
    const int before = height();
    setFixedHeight(std::max(heightOfFirstFormat_ + addedHeight(), layout()->minimumSize().height()));
    growWindow(height() - before);
}

void ExportOptions::showState() {
    for (const auto& [view, box] : boxes_)
        view->setHidden(box->hidden);
    textOptions_->setVisible(controller_->addedHeight() > 0);
}

// The panel grows with the area, so that its list of files keeps its height.
void ExportOptions::growWindow(int added) {
    QWidget* panel = window();
    if (panel->layout())
        panel->layout()->activate(); // updates the smallest size of the window
    const int wanted = panel->height() + added;
    panel->resize(panel->width(), std::min(wanted, panel->screen()->availableSize().height()));
}

// Returns the height in pixels of this screen.
int ExportOptions::addedHeight() const {
    return static_cast<int>(std::lround(controller_->addedHeight() * logicalDpiY() / kPointsOfAnInch));
}

QWidget* makeAccessoryView(const std::shared_ptr<PanelAccessory>& accessory, const Localization& texts) {
    const auto controller = std::dynamic_pointer_cast<AccessoryViewController>(accessory);
    return controller ? new ExportOptions(controller, texts) : nullptr;
}

} // namespace tabulon
