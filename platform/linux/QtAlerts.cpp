#include "platform/linux/QtAlerts.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTextDocument>

namespace tabulon {
namespace {

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

// The box takes what looks like markup for markup; names of files and bookmarks are not.
QString plain(const std::string& text) {
    const QString string = QString::fromStdString(text);
    return Qt::mightBeRichText(string) ? "<span>" + string.toHtmlEscaped() + "</span>" : string;
}

} // namespace

int QtAlerts::runModal(const Alert& alert) {
    QMessageBox box(windowFor_(alert.document));
    box.setIcon(iconFor(alert.style));
    box.setWindowTitle(QStringLiteral("Tabulon"));
    box.setText(plain(alert.message));
    box.setInformativeText(plain(alert.informative));
    QList<QAbstractButton*> buttons;
    for (const AlertButton& button : alert.buttons) {
        buttons << box.addButton(QString::fromStdString(button.title), roleFor(button.role));
        if (button.role == AlertButtonRole::Cancel)
            box.setEscapeButton(buttons.back());
    }
    if (!box.escapeButton())
        box.setEscapeButton(buttons.back());
    box.setDefaultButton(static_cast<QPushButton*>(buttons.front()));
    ++showing_;
    box.exec();
    --showing_;
    if (showing_ == 0 && lastOneEnded)
        lastOneEnded();
    return kAlertFirstButton + static_cast<int>(buttons.indexOf(box.clickedButton()));
}

} // namespace tabulon
