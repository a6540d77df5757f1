#include "ui/document/MarkSheets.h"

#include "base/Localization.h"
#include "model/LinkType.h"
#include "ui/Icons.h"
#include "ui/Strings.h"
#include "window/MoveDeleteController.h"

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

namespace tabulon {
namespace {

constexpr int kSheetImageSize = 16;
constexpr int kGapInSheet = 10;
constexpr int kSheetTextWidth = 52; // average characters

QDialog* sheetOf(QWidget* window, const QString& title) {
    auto* sheet = new QDialog(window, Qt::Sheet | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->setWindowModality(Qt::WindowModal);
    sheet->setWindowTitle(title);
    return sheet;
}

QLabel* plainLabel(const std::string& text, QWidget* parent) {
    auto* label = new QLabel(toQString(text), parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QLabel* headline(const std::string& text, QWidget* parent) {
    QLabel* label = plainLabel(text, parent);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    label->setWordWrap(false);
    return label;
}

QLabel* statusImage(std::uint8_t status, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setPixmap(iconNamed(statusImageName(status))
                         .pixmap(QSize(kSheetImageSize, kSheetImageSize), parent->devicePixelRatioF()));
    return label;
}

struct BoxPlace {
    QGridLayout* grid;
    QSet<QChar>* taken;
};

QCheckBox* addBox(QDialog* sheet, const BoxPlace& place, bool& value, const std::string& title,
                  std::uint8_t status) {
    auto* box = new QCheckBox(withMnemonic(title, *place.taken), sheet);
    box->setChecked(value);
    QObject::connect(box, &QCheckBox::toggled, sheet, [&value](bool on) { value = on; });
    const int row = place.grid->rowCount();
    if (status != kNoStatus)
        place.grid->addWidget(statusImage(status, sheet), row, 0);
    place.grid->addWidget(box, row, 1);
    return box;
}

// Return may move marked links, which can be undone by hand, but never deletes them. The OK button is
// disabled if no mark is chosen.
void updateRemovalButtons(const MoveDeleteController& controller, QPushButton& ok, QPushButton& cancel) {
    ok.setText(toQString(controller.okTitle()));
    ok.setEnabled(controller.duplicateLinks || controller.brokenLinks || controller.unknownLinks);
    (controller.moveLinks ? ok : cancel).setDefault(true);
}

} // namespace

void presentMoveDelete(QWidget* window, const std::shared_ptr<MoveDeleteController>& controller,
                       const Localization& texts) {
    controller->viewDidLoad();
    QDialog* sheet = sheetOf(window, toQString(texts.text("MoveDeleteTitle")));
    auto* layout = new QVBoxLayout(sheet);
    layout->addWidget(headline(texts.text("MoveDeleteText"), sheet));
    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    grid->setHorizontalSpacing(kGapInSheet);
    layout->addLayout(grid);
    auto* buttons = new QDialogButtonBox(sheet);
    QSet<QChar> taken;
    QPushButton* ok = buttons->addButton(toQString(controller->okTitle()), QDialogButtonBox::AcceptRole);
    QPushButton* cancel = buttons->addButton(toQString(texts.text("Cancel")), QDialogButtonBox::RejectRole);
    const BoxPlace place{grid, &taken};
    QCheckBox* boxes[] = {
        addBox(sheet, place, controller->duplicateLinks, texts.text("DuplicateLinks"), kDuplicateStatus),
        addBox(sheet, place, controller->brokenLinks, texts.text("BrokenLinks"), kBrokenStatus),
        addBox(sheet, place, controller->unknownLinks, texts.text("UnknownLinks"), kUnknownStatus)};
    grid->setRowMinimumHeight(grid->rowCount(), kGapInSheet);
    QCheckBox* moves = addBox(sheet, place, controller->moveLinks, texts.text("MoveLinks"), kNoStatus);
    layout->addSpacing(kGapInSheet);
    layout->addWidget(buttons);
    const auto update = [=] { updateRemovalButtons(*controller, *ok, *cancel); };
    for (QCheckBox* box : boxes)
        QObject::connect(box, &QCheckBox::toggled, sheet, update);
    QObject::connect(moves, &QCheckBox::toggled, sheet, update);
    update();
    QObject::connect(buttons, &QDialogButtonBox::rejected, sheet, &QDialog::reject);
    QObject::connect(buttons, &QDialogButtonBox::accepted, sheet, [=] {
        controller->done();
        sheet->accept();
        QTimer::singleShot(0, window, [controller] { controller->execute(); });
    });
    sheet->open();
}

void presentLegenda(QWidget* window, const Localization& texts) {
    QDialog* sheet = sheetOf(window, toQString(texts.text("MenuLegend")));
    auto* layout = new QVBoxLayout(sheet);
    layout->addWidget(headline(texts.text("LegendText"), sheet));
    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    grid->setHorizontalSpacing(kGapInSheet);
    grid->setVerticalSpacing(kGapInSheet);
    layout->addLayout(grid);
    static constexpr const char* kMeanings[] = {"LegendValid", "LegendMoved", "LegendBroken", "LegendUnknown",
                                                "LegendDuplicate"};
    for (std::uint8_t status = kValidStatus; status <= kDuplicateStatus; ++status) {
        grid->addWidget(statusImage(status, sheet), status, 0, Qt::AlignTop);
        QLabel* meaning = plainLabel(texts.text(kMeanings[status - 1]), sheet);
        meaning->setMinimumWidth(kSheetTextWidth * meaning->fontMetrics().averageCharWidth());
        grid->addWidget(meaning, status, 1);
    }
    layout->addSpacing(kGapInSheet);
    auto* buttons = new QDialogButtonBox(sheet);
    buttons->addButton(toQString(texts.text("OK")), QDialogButtonBox::AcceptRole)->setDefault(true);
    layout->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, sheet, &QDialog::accept);
    sheet->open();
}

} // namespace tabulon
