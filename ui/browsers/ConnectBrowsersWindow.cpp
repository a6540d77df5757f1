#include "ui/browsers/ConnectBrowsersWindow.h"

#include "app/ConnectionTexts.h"
#include "ui/AvailableScreenSize.h"
#include "ui/Strings.h"
#include "ui/browsers/BrowserRow.h"
#include "ui/browsers/SetupSteps.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>

namespace tabulon {
namespace {

constexpr QSize kFirstSize(760, 420);
constexpr auto kRefreshInterval = std::chrono::seconds(2);

bool isSameRow(const FoundBrowser& a, const FoundBrowser& b) {
    return a.browser == b.browser && a.packaging == b.packaging && a.icon == b.icon;
}

} // namespace

ConnectBrowsersWindow::ConnectBrowsersWindow(BrowserConnections& connections, const Localization& texts)
    : connections_(connections), texts_(texts),
      empty_(new QLabel(toQString(texts.text("ConnectNone")), this)) {
    setWindowTitle(toQString(texts.text("ConnectTitle")));
    auto* introduction = new QLabel(toQString(texts.text("ConnectIntroduction")), this);
    introduction->setWordWrap(true);
    empty_->setAlignment(Qt::AlignCenter);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(introduction);
    layout->addWidget(makeList(), 1);
    layout->addWidget(makeButtons());
    resize(kFirstSize.boundedTo(availableScreenSize(*this)));
    connect(&timer_, &QTimer::timeout, this, &ConnectBrowsersWindow::refresh);
}

QWidget* ConnectBrowsersWindow::makeList() {
    auto* area = new QScrollArea(this);
    auto* content = new QWidget(area);
    list_ = new QVBoxLayout(content);
    list_->addWidget(empty_, 1);
    list_->addStretch(0);
    area->setWidget(content);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    content->setBackgroundRole(QPalette::Base);
    return area;
}

QDialogButtonBox* ConnectBrowsersWindow::makeButtons() {
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* close = buttons->addButton(toQString(texts_.text("Close")), QDialogButtonBox::RejectRole);
    close->setDefault(true);
    close->setFocus();
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

void ConnectBrowsersWindow::present() {
    show();
    raise();
    activateWindow();
}

void ConnectBrowsersWindow::showEvent(QShowEvent* event) {
    refresh();
    timer_.start(kRefreshInterval);
    QDialog::showEvent(event);
}

void ConnectBrowsersWindow::hideEvent(QHideEvent* event) {
    timer_.stop();
    QDialog::hideEvent(event);
}

void ConnectBrowsersWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        refresh();
    QDialog::changeEvent(event);
}

void ConnectBrowsersWindow::refresh() {
    const std::vector<FoundBrowser> found = connections_.found();
    if (!rowsAreFor(found))
        return makeRows(found);
    for (std::size_t index = 0; index < found.size(); ++index)
        rows_[index]->setFound(found[index]);
}

bool ConnectBrowsersWindow::rowsAreFor(const std::vector<FoundBrowser>& found) const {
    return std::ranges::equal(rows_, found, [](const BrowserRow* row, const FoundBrowser& each) {
        return isSameRow(row->found(), each);
    });
}

// A row may be in the middle of its own signal, so the main loop deletes it.
void ConnectBrowsersWindow::makeRows(const std::vector<FoundBrowser>& found) {
    for (BrowserRow* row : rows_) {
        list_->removeWidget(row);
        row->hide();
        row->deleteLater();
    }
    rows_.clear();
    for (const FoundBrowser& each : found)
        addRow(each);
    empty_->setVisible(found.empty());
    list_->setStretch(list_->count() - 1, found.empty() ? 0 : 1);
}

void ConnectBrowsersWindow::addRow(const FoundBrowser& found) {
    auto* row = new BrowserRow(found, texts_, list_->parentWidget());
    connect(row, &BrowserRow::stepRequested, this, [this, row] { performStep(*row); });
    connect(row, &BrowserRow::testRequested, this, [this, row] { test(*row); });
    connect(row, &BrowserRow::takeBackRequested, this, [this, row] { takeBack(*row); });
    list_->insertWidget(list_->count() - 1, row);
    row->show(); // the layout would do it later, from the main loop
    rows_.push_back(row);
}

void ConnectBrowsersWindow::performStep(BrowserRow& row) {
    switch (nextStep(row.found().stage)) {
    case ConnectionStep::None:
        break;
    case ConnectionStep::Connect:
        connectBrowser(row);
        break;
    case ConnectionStep::ShowSteps:
        showSteps(row);
        break;
    case ConnectionStep::Allow:
        connections_.allow(row.found());
        refresh();
        break;
    case ConnectionStep::Forget:
        connections_.forget(row.found());
        refresh();
        break;
    }
}

// The extension is the only thing that is left to the user, so its steps follow at once.
void ConnectBrowsersWindow::connectBrowser(BrowserRow& row) {
    const Result<void> connected = connections_.connect(row.found());
    refresh();
    if (!connected)
        row.showResult(connected.error().message);
    else if (row.found().stage == ConnectionStage::ExtensionMissing)
        showSteps(row);
}

void ConnectBrowsersWindow::test(BrowserRow& row) {
    refresh();
    row.showResult(
        testText(testConnection(connections_, row.found()), row.found(), connections_.places().host, texts_));
}

void ConnectBrowsersWindow::takeBack(BrowserRow& row) {
    const Result<void> taken = connections_.takeBack(row.found());
    refresh();
    row.showResult(taken ? texts_.format("ConnectTakenBack", row.found().browser->title)
                         : taken.error().message);
}

void ConnectBrowsersWindow::showSteps(const BrowserRow& row) {
    showSetupSteps(this, *row.found().browser, connections_.extensionFolder(), texts_);
}

} // namespace tabulon
