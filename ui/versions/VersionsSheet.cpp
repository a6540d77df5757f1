#include "ui/versions/VersionsSheet.h"

#include "base/Localization.h"
#include "ui/AvailableScreenSize.h"
#include "ui/Strings.h"
#include "ui/versions/DifferencesModel.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTimer>
#include <QTreeView>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tabulon {
namespace {

constexpr QSize kFirstSheetSize(900, 480);
constexpr int kVersionsWidth = 360;
constexpr int kDateWidth = 160;
constexpr int kNameWidth = 180;
constexpr int kWhatWidth = 140;

} // namespace

VersionsSheet::VersionsSheet(std::shared_ptr<VersionsController> controller, QWidget* window)
    : QDialog(window, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      controller_(std::move(controller)), versions_(new QTreeWidget(this)), differences_(new QTreeView(this)),
      model_(new DifferencesModel(*controller_, this)), headline_(new QLabel(this)),
      buttons_(new QDialogButtonBox(this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    const Localization& texts = controller_->texts();
    setWindowTitle(toQString(texts.format("VersionsTitle", controller_->document().displayName())));
    makeVersions();
    makeDifferences();
    makeButtons();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(controller_->rows().empty() ? makeEmptyState() : makeLists(), 1);
    layout->addWidget(buttons_);
    resize(kFirstSheetSize.boundedTo(availableScreenSize(*this)));
    controller_->setPanel(this);
    updateButtons();
    versions_->setFocus();
}

VersionsSheet::~VersionsSheet() {
    controller_->setPanel(nullptr);
}

QString VersionsSheet::text(const char* key) const {
    return toQString(controller_->texts().text(key));
}

void VersionsSheet::makeVersions() {
    versions_->setAccessibleName(text("VersionsList"));
    versions_->setHeaderLabels({text("VersionSaved"), text("VersionSince")});
    versions_->setRootIsDecorated(false);
    versions_->setUniformRowHeights(true);
    versions_->setColumnWidth(0, kDateWidth);
    for (std::size_t index = 0; index < controller_->rows().size(); ++index)
        versions_->addTopLevelItem(new QTreeWidgetItem(
            {toQString(controller_->dateText(index)), toQString(controller_->countsText(index))}));
    if (versions_->topLevelItemCount() > 0)
        versions_->setCurrentItem(versions_->topLevelItem(0));
    connect(versions_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (item)
            controller_->choose(static_cast<std::size_t>(versions_->indexOfTopLevelItem(item)));
    });
}

void VersionsSheet::makeDifferences() {
    differences_->setAccessibleName(text("DifferenceColumn"));
    differences_->setModel(model_);
    differences_->setRootIsDecorated(false);
    differences_->setUniformRowHeights(true);
    differences_->setColumnWidth(0, kNameWidth);
    differences_->setColumnWidth(1, kWhatWidth);
    connect(model_, &QAbstractItemModel::dataChanged, this, [this] { updateButtons(); });
}

QWidget* VersionsSheet::makeLists() {
    auto* right = new QWidget(this);
    auto* layout = new QVBoxLayout(right);
    layout->setContentsMargins(0, 0, 0, 0);
    headline_->setTextFormat(Qt::PlainText);
    headline_->setWordWrap(true);
    layout->addWidget(headline_);
    layout->addWidget(differences_, 1);
    auto* splitter = new QSplitter(this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(versions_);
    splitter->addWidget(right);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({kVersionsWidth, kFirstSheetSize.width() - kVersionsWidth});
    return splitter;
}

QWidget* VersionsSheet::makeEmptyState() {
    versions_->hide();
    differences_->hide();
    headline_->setText(text("VersionsNone"));
    headline_->setAlignment(Qt::AlignCenter);
    headline_->setWordWrap(true);
    return headline_;
}

QPushButton* VersionsSheet::makeButton(const char* key, void (VersionsSheet::*slot)()) {
    QPushButton* button = buttons_->addButton(withMnemonic(controller_->texts().text(key), mnemonics_),
                                              QDialogButtonBox::ActionRole);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, slot);
    return button;
}

void VersionsSheet::makeButtons() {
    open_ = makeButton("VersionOpen", &VersionsSheet::openChosen);
    putBackAll_ = makeButton("VersionPutBackAll", &VersionsSheet::putBackAll);
    putBack_ = makeButton("VersionPutBack", &VersionsSheet::putBackChecked);
    QPushButton* close = buttons_->addButton(withMnemonic(controller_->texts().text("Close"), mnemonics_),
                                             QDialogButtonBox::RejectRole);
    close->setDefault(true);
    connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void VersionsSheet::updateButtons() {
    const bool differs = !controller_->differences().empty();
    open_->setEnabled(controller_->canOpen());
    putBackAll_->setEnabled(controller_->canOpen() && differs);
    putBack_->setEnabled(!model_->checkedRows().empty());
}

void VersionsSheet::reloadVersion(std::size_t index) {
    QTreeWidgetItem* item = versions_->topLevelItem(static_cast<int>(index));
    item->setText(1, toQString(controller_->countsText(index)));
    item->setToolTip(1, oneLine(controller_->rows()[index].problem));
}

void VersionsSheet::reloadDifferences() {
    model_->reload();
    const std::size_t row = controller_->chosen().value_or(0);
    const std::string& problem = controller_->rows()[row].problem;
    if (!problem.empty())
        headline_->setText(toQString(problem));
    else
        headline_->setText(text(controller_->differences().empty() ? "VersionEqualText" : "VersionText"));
    updateButtons();
}

void VersionsSheet::dismiss() {
    accept();
}

void VersionsSheet::openChosen() {
    controller_->openChosen();
}

void VersionsSheet::putBackChecked() {
    controller_->putBackDifferences(model_->checkedRows());
}

void VersionsSheet::putBackAll() {
    controller_->putBackAll();
}

} // namespace tabulon
