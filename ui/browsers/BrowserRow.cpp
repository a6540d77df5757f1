#include "ui/browsers/BrowserRow.h"

#include "app/ConnectionTexts.h"
#include "ui/Icons.h"
#include "ui/Strings.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace tabulon {
namespace {

constexpr int kIconSize = 32;

QLabel* textLabel(QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QPixmap imageOf(const FoundBrowser& found, const QWidget& widget) {
    QIcon icon = applicationIcon(found.icon);
    if (icon.isNull())
        icon = iconNamed("httpType");
    return icon.pixmap(QSize(kIconSize, kIconSize), widget.devicePixelRatioF());
}

} // namespace

BrowserRow::BrowserRow(const FoundBrowser& found, const Localization& texts, QWidget* parent)
    : QWidget(parent), found_(found), texts_(texts), state_(textLabel(this)), result_(textLabel(this)) {
    auto* image = new QLabel(this);
    image->setFixedSize(kIconSize, kIconSize);
    image->setPixmap(imageOf(found, *this));
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(image, 0, Qt::AlignTop);
    layout->addSpacing(6);
    layout->addWidget(makeTexts(), 1);
    step_ = makeButton({}, layout, &BrowserRow::stepRequested);
    test_ = makeButton(texts_.text("ConnectTest"), layout, &BrowserRow::testRequested);
    takeBack_ = makeButton(texts_.text("ConnectTakeBack"), layout, &BrowserRow::takeBackRequested);
    result_->hide();
    update();
}

QWidget* BrowserRow::makeTexts() {
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    QLabel* title = textLabel(column);
    title->setText(toQString(browserTitle(found_, texts_)));
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    layout->addWidget(title);
    layout->addWidget(state_);
    layout->addWidget(result_);
    return column;
}

QPushButton* BrowserRow::makeButton(const std::string& title, QHBoxLayout* layout,
                                    void (BrowserRow::*pressed)()) {
    auto* button = new QPushButton(toQString(title), this);
    button->setAccessibleDescription(toQString(browserTitle(found_, texts_)));
    layout->addWidget(button, 0, Qt::AlignTop);
    connect(button, &QPushButton::clicked, this, pressed);
    return button;
}

void BrowserRow::setFound(const FoundBrowser& found) {
    if (found == found_)
        return;
    if (found.stage != found_.stage)
        result_->hide();
    found_ = found;
    update();
}

void BrowserRow::showResult(const std::string& sentence) {
    result_->setText(toQString(sentence));
    result_->show();
}

void BrowserRow::update() {
    const ConnectionStep step = nextStep(found_.stage);
    state_->setText(toQString(stageText(found_, texts_)));
    step_->setText(toQString(stepTitle(step, texts_)));
    step_->setVisible(step != ConnectionStep::None);
    takeBack_->setEnabled(found_.canTakeBack);
}

} // namespace tabulon
