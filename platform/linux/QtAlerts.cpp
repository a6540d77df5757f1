#include "platform/linux/QtAlerts.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTextDocument>

#include <algorithm>

namespace tabulon {
namespace {

constexpr int kSmallestAlertWidth = 420;

QMessageBox::Icon iconFor(AlertStyle style) {
    switch (style) {
    case AlertStyle::Informational:
        return QMessageBox::Information;
    case AlertStyle::Warning:
        return QMessageBox::Warning;
    case AlertStyle::Critical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::ButtonRole roleFor(AlertButtonRole role) {
    switch (role) {
    case AlertButtonRole::Accept:
        return QMessageBox::AcceptRole;
    case AlertButtonRole::Cancel:
        return QMessageBox::RejectRole;
    case AlertButtonRole::Destructive:
        return QMessageBox::DestructiveRole;
    }
    return QMessageBox::AcceptRole;
}

// A message box interprets text that looks like markup. Names of files and bookmarks are plain text.
QString plain(const std::string& text) {
    const QString string = QString::fromStdString(text);
    return Qt::mightBeRichText(string) ? "<span>" + string.toHtmlEscaped() + "</span>" : string;
}

// Sets a mnemonic that no other button has, so that the keyboard reaches each button.
QString withMnemonic(const std::string& title, QString& taken) {
    QString text = QString::fromStdString(title).replace('&', "&&");
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!text[i].isLetter() || taken.contains(text[i], Qt::CaseInsensitive))
            continue;
        taken += text[i];
        return text.insert(i, '&');
    }
    return text;
}

// The title of a button whose effect cannot be undone is red, in a shade with enough contrast.
void makeRed(QAbstractButton& button) {
    QPalette palette = button.palette();
    const bool isDark = palette.color(QPalette::Button).lightness() < 128;
    const QColor red(isDark ? "#ff7b72" : "#c01c28");
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
        palette.setColor(group, QPalette::ButtonText, red);
    button.setPalette(palette);
}

// The message is bold, and the explanation has lines of readable length.
void layOut(QMessageBox& box) {
    if (auto* message = box.findChild<QLabel*>("qt_msgbox_label")) {
        QFont bold = message->font();
        bold.setBold(true);
        message->setFont(bold);
    }
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addItem(new QSpacerItem(kSmallestAlertWidth, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

// A disabled alert, which waits for a later one, cannot be closed.
class AlertBox : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

protected:
    void closeEvent(QCloseEvent* event) override {
        if (isEnabled())
            QMessageBox::closeEvent(event);
        else
            event->ignore();
    }
};

} // namespace

bool QtAlerts::isAskingAbout(const DocumentIdentity* document) const {
    return document ? std::ranges::count(showing_, document, &Shown::document) > 0 : isShowing();
}

int QtAlerts::runModal(const Alert& alert) {
    AlertBox box(windowFor_(alert.document));
    return run(box, alert);
}

SuppressibleAnswer QtAlerts::runModalSuppressible(const Alert& alert, const std::string& boxTitle) {
    AlertBox box(windowFor_(alert.document));
    auto* check = new QCheckBox(QString::fromStdString(boxTitle).replace('&', "&&"), &box);
    box.setCheckBox(check);
    const int response = run(box, alert);
    return {response, check->isChecked()};
}

int QtAlerts::run(QMessageBox& box, const Alert& alert) {
    box.setIcon(iconFor(alert.style));
    box.setWindowTitle(QStringLiteral("Tabulon"));
    box.setText(plain(alert.message));
    box.setInformativeText(plain(alert.informative));
    QList<QAbstractButton*> buttons;
    QString taken;
    for (const AlertButton& button : alert.buttons) {
        buttons << box.addButton(withMnemonic(button.title, taken), roleFor(button.role));
        if (button.role == AlertButtonRole::Destructive)
            makeRed(*buttons.back());
        if (button.role == AlertButtonRole::Cancel)
            box.setEscapeButton(buttons.back());
    }
    if (!box.escapeButton())
        box.setEscapeButton(buttons.back());
    QAbstractButton* chosen = alert.cancelIsDefault ? box.escapeButton() : buttons.front();
    box.setDefaultButton(static_cast<QPushButton*>(chosen));
    if (alert.document && box.parentWidget())
        box.setWindowModality(Qt::WindowModal); // the other windows stay usable
    layOut(box);
    if (!showing_.empty())
        showing_.back().box->setEnabled(false);
    showing_.push_back({&box, alert.document});
    box.exec();
    showing_.pop_back();
    if (!showing_.empty())
        showing_.back().box->setEnabled(true);
    else if (observer_)
        observer_->lastAlertEnded();
    return kAlertFirstButton + static_cast<int>(buttons.indexOf(box.clickedButton()));
}

} // namespace tabulon
