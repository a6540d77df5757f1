#include "ui/document/FindBarWidget.h"

#include "ui/LineField.h"
#include "ui/Strings.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <QToolButton>

#include <chrono>

namespace tabulon {
namespace {

// Long enough not to search for each letter of a word, short enough not to be noticed.
constexpr auto kPause = std::chrono::milliseconds(180);
constexpr int kFieldWidth = 34; // average characters
constexpr int kBarMargin = 6;

QToolButton* textButton(const QString& title, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setText(title);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

} // namespace

FindBarWidget::FindBarWidget(FindBarController& controller, Finding& finding, const Localization& texts,
                             QWidget* parent)
    : QWidget(parent), controller_(&controller), finding_(finding), field_(new LineField(this)),
      matches_(new QLabel(this)) {
    field_->showText({});
    field_->setClearButtonEnabled(true);
    field_->setPlaceholderText(toQString(texts.text("FindPlaceholder")));
    field_->setAccessibleName(toQString(texts.text("FindPlaceholder")));
    field_->setFixedWidth(kFieldWidth * fontMetrics().averageCharWidth());
    matches_->setTextFormat(Qt::PlainText);
    QToolButton* next = textButton(toQString(texts.text("MenuFindNext")), this);
    QToolButton* close = textButton(toQString(texts.text("Done")), this);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kBarMargin, kBarMargin, kBarMargin, kBarMargin);
    layout->addWidget(makeRecentsButton(texts));
    layout->addWidget(field_);
    layout->addWidget(next);
    layout->addWidget(matches_, 1);
    layout->addWidget(close);
    pause_.setSingleShot(true);
    pause_.setInterval(kPause);
    connect(&pause_, &QTimer::timeout, this, &FindBarWidget::searchNow);
    connect(field_, &QLineEdit::textEdited, this, &FindBarWidget::textWasEdited);
    connect(field_, &QLineEdit::returnPressed, this, &FindBarWidget::returnWasPressed);
    connect(field_, &QLineEdit::editingFinished, this, [this] { editing_ = false; });
    connect(next, &QToolButton::clicked, this, &FindBarWidget::returnWasPressed);
    connect(close, &QToolButton::clicked, this, &FindBarWidget::hideBar);
    hide();
}

QWidget* FindBarWidget::makeRecentsButton(const Localization& texts) {
    QToolButton* button = textButton(toQString(texts.text("RecentsSearch")), this);
    auto* menu = new QMenu(button);
    button->setMenu(menu);
    button->setPopupMode(QToolButton::InstantPopup);
    connect(menu, &QMenu::aboutToShow, this, [this, menu, &texts] { fillRecents(menu, texts); });
    return button;
}

void FindBarWidget::fillRecents(QMenu* menu, const Localization& texts) {
    menu->clear();
    if (!controller_)
        return;
    const std::vector<std::string> recents = controller_->recentSearches();
    if (recents.empty()) {
        menu->addAction(toQString(texts.text("RecentsEmpty")))->setEnabled(false);
        return;
    }
    for (const std::string& text : recents)
        connect(menu->addAction(oneLine(text).replace('&', "&&")), &QAction::triggered, this, [this, text] {
            setSearchText(text);
            searchNow();
        });
    menu->addSeparator();
    connect(menu->addAction(toQString(texts.text("RecentsClear"))), &QAction::triggered, this, [this] {
        if (controller_)
            controller_->clearRecentSearches();
    });
}

void FindBarWidget::detach() {
    pause_.stop();
    controller_ = nullptr;
}

void FindBarWidget::setFindBarShown(bool shown) {
    setVisible(shown);
    if (!shown) {
        pause_.stop();
        emit closed();
    }
}

void FindBarWidget::selectSearchText() {
    field_->setFocus(Qt::ShortcutFocusReason);
    field_->selectAll();
}

bool FindBarWidget::hasKeyboard() const {
    return window()->focusWidget() == field_;
}

void FindBarWidget::setSearchText(const std::string& text) {
    field_->setText(toQString(text));
}

void FindBarWidget::setMatchesLabel(const std::string& text) {
    matches_->setText(toQString(text));
}

void FindBarWidget::textWasEdited() {
    if (controller_ && !editing_)
        controller_->controlTextDidBeginEditing();
    editing_ = true;
    pause_.start();
}

void FindBarWidget::searchNow() {
    pause_.stop();
    editing_ = false; // text that is typed after that is another search
    if (controller_)
        controller_->doSearch(field_->text().toStdString());
}

// Searches for text that was typed in the last moment. Otherwise Return selects the next match.
void FindBarWidget::returnWasPressed() {
    if (!controller_)
        return;
    controller_->noteRecentSearch(field_->text().toStdString());
    if (pause_.isActive())
        searchNow();
    else
        finding_.findNext();
}

void FindBarWidget::hideBar() {
    if (controller_)
        controller_->hideFindView();
}

void FindBarWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        return hideBar();
    QWidget::keyPressEvent(event);
}

void FindBarWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(QRect(0, height() - 1, width(), 1), palette().color(QPalette::Mid));
}

} // namespace tabulon
