#include "ui/document/StatusLineWidget.h"

#include "ui/Strings.h"
#include "ui/document/ElidedLabel.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace tabulon {

StatusLineWidget::StatusLineWidget(QWidget* parent)
    : QWidget(parent), label_(new ElidedLabel(this)), button_(new QPushButton(this)) {
    button_->setObjectName("statusAction");
    button_->setFocusPolicy(Qt::TabFocus);
    button_->setAutoDefault(false);
    button_->hide();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(label_, 1);
    layout->addWidget(button_);
    connect(button_, &QPushButton::clicked, this, &StatusLineWidget::actionRequested);
}

void StatusLineWidget::setText(const QString& text) {
    label_->setText(text);
}

void StatusLineWidget::setTextFont(const QFont& font) {
    label_->setFont(font);
}

void StatusLineWidget::setAction(const QString& title, const QString& description) {
    QSet<QChar> taken;
    button_->setText(withMnemonic(title.toStdString(), taken));
    button_->setToolTip(toolTipText(description.toStdString()));
    button_->setAccessibleDescription(description);
    button_->setFixedHeight(label_->sizeHint().height()); // the rows stay where they are
    button_->setVisible(!title.isEmpty());
}

} // namespace tabulon
