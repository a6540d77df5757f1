#include "ui/browsers/SetupSteps.h"

#include "app/ConnectionTexts.h"
#include "ui/Strings.h"

#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tabulon {
namespace {

constexpr int kStepsWidth = 520;

QWidget* makeFolder(QWidget* parent, const std::string& folder, const Localization& texts) {
    auto* row = new QWidget(parent);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* path = new QLineEdit(QFile::decodeName(folder.c_str()), row);
    path->setReadOnly(true);
    path->setAccessibleName(toQString(texts.text("StepsFolder")));
    auto* copy = new QPushButton(toQString(texts.text("StepsCopy")), row);
    copy->setAutoDefault(false);
    QObject::connect(copy, &QPushButton::clicked, path,
                     [path] { QGuiApplication::clipboard()->setText(path->text()); });
    layout->addWidget(path, 1);
    layout->addWidget(copy);
    return row;
}

} // namespace

void showSetupSteps(QWidget* window, const Browser& browser, const std::string& folder,
                    const Localization& texts) {
    auto* sheet = new QDialog(window);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->setWindowTitle(toQString(texts.format("StepsTitle", browser.title)));
    sheet->setMinimumWidth(kStepsWidth);
    auto* layout = new QVBoxLayout(sheet);
    for (const std::string& step : setupSteps(browser, texts)) {
        auto* label = new QLabel(toQString(step), sheet);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        layout->addWidget(label);
    }
    layout->addWidget(new QLabel(toQString(texts.text("StepsFolder")), sheet));
    layout->addWidget(makeFolder(sheet, folder, texts));
    auto* buttons = new QDialogButtonBox(sheet);
    QPushButton* close = buttons->addButton(toQString(texts.text("Close")), QDialogButtonBox::RejectRole);
    close->setDefault(true);
    close->setFocus();
    QObject::connect(buttons, &QDialogButtonBox::rejected, sheet, &QDialog::reject);
    layout->addWidget(buttons);
    sheet->open();
}

} // namespace tabulon
