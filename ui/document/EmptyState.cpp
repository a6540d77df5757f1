#include "ui/document/EmptyState.h"

#include "ui/Icons.h"
#include "ui/Strings.h"

#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tabulon {
namespace {

constexpr int kEmptyImageSize = 72;
constexpr int kEmptyTextWidth = 420;

QLabel* centredLabel(const std::string& text, QWidget* parent) {
    auto* label = new QLabel(toQString(text), parent);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    return label;
}

} // namespace

EmptyState::EmptyState(const Localization& texts, QWidget* parent) : QWidget(parent) {
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    auto* image = new QLabel(this);
    image->setPixmap(
        iconNamed("tabulon").pixmap(QSize(kEmptyImageSize, kEmptyImageSize), devicePixelRatioF()));
    image->setAlignment(Qt::AlignCenter);
    QLabel* title = centredLabel(texts.text("EmptyDocument"), this);
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    title->setFont(large);
    QLabel* text = centredLabel(texts.text("EmptyDocumentText"), this);
    text->setFixedWidth(kEmptyTextWidth);
    text->setMinimumHeight(text->heightForWidth(kEmptyTextWidth));
    auto* open = new QPushButton(toQString(texts.text("MenuOpen")), this);
    open->setAutoDefault(true); // Return presses the button, as Space does
    setFocusProxy(open);
    connect(open, &QPushButton::clicked, this, &EmptyState::openRequested);

    auto* layout = new QVBoxLayout(this);
    layout->addStretch(2);
    for (QWidget* widget : {static_cast<QWidget*>(image), static_cast<QWidget*>(title),
                            static_cast<QWidget*>(text), static_cast<QWidget*>(open)}) {
        layout->addWidget(widget, 0, Qt::AlignHCenter);
        layout->addSpacing(10);
    }
    layout->addStretch(3);
}

} // namespace tabulon
