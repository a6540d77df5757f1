#include "ui/document/InfoSheet.h"

#include "ui/AvailableScreenSize.h"
#include "ui/Icons.h"
#include "ui/LineField.h"
#include "ui/Strings.h"
#include "ui/document/AddressField.h"
#include "ui/document/EmbeddedPanel.h"
#include "window/LabelNames.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QIcon>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTextDocument>
#include <QToolButton>

#include <limits>

namespace tabulon {
namespace {

constexpr QSize kFirstInfoSize(460, 420);

// Returns the place of the first match, ignoring case, or -1.
qsizetype placeOf(const QString& text, const QString& part) {
    return text.indexOf(part, 0, Qt::CaseInsensitive);
}

// Returns the text as fields show it: unchanged, because fields keep the line breaks of the text that they
// show.
QString asShown(const Text& text) {
    return toQString(text.view());
}

// Returns the exact text of a field. `toPlainText` would replace no-break spaces by plain ones.
QString rawText(const QPlainTextEdit& field) {
    return field.document()->toRawText().replace(QChar::ParagraphSeparator, '\n');
}

// Returns the text that was typed. Shift and Return insert a line separator, which becomes a line feed unless
// the original text has line separators.
QString typedText(const QPlainTextEdit& field, const Text& original) {
    QString text = rawText(field);
    if (!asShown(original).contains(QChar::LineSeparator))
        text.replace(QChar::LineSeparator, '\n');
    return text;
}

LineField* makeField(QWidget* parent) {
    auto* field = new LineField(parent);
    field->setMaxLength(std::numeric_limits<int>::max()); // a script in an address may be long
    field->showText({});
    return field;
}

// The selection looks the same whether or not the field has the keyboard.
void keepHighlight(QWidget& field) {
    QPalette palette = field.palette();
    for (const QPalette::ColorRole role : {QPalette::Highlight, QPalette::HighlightedText})
        palette.setBrush(QPalette::Inactive, role, palette.brush(QPalette::Active, role));
    field.setPalette(palette);
}

} // namespace

InfoSheet::InfoSheet(std::shared_ptr<GetInfoController> controller, const Localization& texts,
                     QWidget* window)
    : QDialog(window, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      controller_(std::move(controller)), name_(makeField(this)), url_(new AddressField(this)),
      tags_(makeField(this)), note_(new QPlainTextEdit(this)), label_(new QComboBox(this)),
      browser_(new QComboBox(this)), locked_(new QCheckBox(this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    makeFields(form, texts);
    layout->addLayout(form, 1);
    layout->addWidget(makeButtons(texts));
    resize(kFirstInfoSize.boundedTo(availableScreenSize(*this)));
    reportChanges();
    controller_->setPanel(this);
}

InfoSheet::~InfoSheet() {
    if (controller_->isShown()) // the panel is destroyed with its window
        controller_->setPanel(nullptr);
}

void InfoSheet::present() {
    setWindowModality(Qt::WindowModal);
    show();
}

void InfoSheet::presentBeside() {
    if (newWindowsTakeTheKeyboard())
        connect(new EmbeddedPanel(*this), &EmbeddedPanel::left, this, &InfoSheet::keepChange);
    else
        setAttribute(Qt::WA_ShowWithoutActivating);
    show();
}

void InfoSheet::makeFields(QFormLayout* form, const Localization& texts) {
    for (const std::string_view key : kLabelNameKeys)
        label_->addItem(toQString(texts.text(key)));
    const std::vector<Application> browsers = controller_->browserItems();
    for (std::size_t i = 0; i < browsers.size(); ++i) {
        if (i == GetInfoController::kBrowserSeparator)
            browser_->insertSeparator(static_cast<int>(i));
        else
            browser_->addItem(applicationIcon(browsers[i].icon), toQString(browsers[i].name));
    }
    note_->setTabChangesFocus(true);
    keepHighlight(*note_);
    QSet<QChar> taken;
    const auto add = [&](const char* key, QWidget* field) {
        form->addRow(withMnemonic(texts.text(key), taken), field);
    };
    add("InfoName", name_);
    add("InfoURL", url_);
    add("InfoTags", tags_);
    add("InfoNote", note_);
    add("InfoLabel", label_);
    add("InfoBrowser", browser_);
    locked_->setText(withMnemonic(texts.text("InfoLocked"), taken));
    form->addRow(QString(), locked_);
}

QWidget* InfoSheet::makeButtons(const Localization& texts) {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](QToolButton*& button, Qt::ArrowType arrow, const char* key, int shortcut,
                         void (GetInfoController::*step)()) {
        button = stepButton(arrow, toQString(texts.text(key)), QKeySequence(Qt::ALT | shortcut), step);
        layout->addWidget(button);
    };
    add(left_, Qt::LeftArrow, "InfoPrevious", Qt::Key_Left, &GetInfoController::previous);
    add(right_, Qt::RightArrow, "InfoNext", Qt::Key_Right, &GetInfoController::next);
    add(up_, Qt::UpArrow, "InfoUp", Qt::Key_Up, &GetInfoController::up);
    add(down_, Qt::DownArrow, "InfoDown", Qt::Key_Down, &GetInfoController::down);
    layout->addStretch(1);
    findNext_ = new QPushButton(toQString(texts.text("MenuFindNext")), row);
    findNext_->setShortcut(QKeySequence::FindNext);
    connect(findNext_, &QPushButton::clicked, this, [this] { controller_->findNext(); });
    layout->addWidget(findNext_);
    auto* done = new QPushButton(toQString(texts.text("Done")), row);
    done->setDefault(true);
    connect(done, &QPushButton::clicked, this, [this] { controller_->done(); });
    layout->addWidget(done);
    return row;
}

QToolButton* InfoSheet::stepButton(Qt::ArrowType arrow, const QString& title, const QKeySequence& key,
                                   void (GetInfoController::*step)()) {
    auto* button = new QToolButton(this);
    button->setArrowType(arrow);
    button->setShortcut(key);
    button->setAccessibleName(title);
    button->setToolTip(title + " (" + key.toString(QKeySequence::NativeText) + ")");
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, [this, step] { (controller_.get()->*step)(); });
    return button;
}

void InfoSheet::reportChanges() {
    // Only typed text is reported: a text that is only shown may differ from the stored one.
    connect(name_, &QLineEdit::textEdited, this,
            [this](const QString& text) { controller_->setName(text.toStdString()); });
    connect(url_, &AddressField::addressEdited, this,
            [this](const QString& text) { controller_->setURL(text.toStdString()); });
    connect(tags_, &QLineEdit::textEdited, this,
            [this](const QString& text) { controller_->setTags(text.toStdString()); });
    connect(note_, &QPlainTextEdit::textChanged, this, [this] {
        if (!loading_)
            controller_->setNote(typedText(*note_, controller_->original()->itemNote()).toStdString());
    });
    connect(label_, &QComboBox::activated, this,
            [this](int label) { controller_->setLabel(static_cast<std::uint8_t>(label)); });
    connect(browser_, &QComboBox::activated, this, [this](int index) { controller_->openWith(index); });
    connect(locked_, &QCheckBox::clicked, this, [this](bool locked) { controller_->setLocked(locked); });
}

void InfoSheet::reloadFields() {
    const QScopedValueRollback loading(loading_, true);
    const Bookmark& node = controller_->duplicate();
    const auto show = [](LineField* field, const Text& text) {
        if (const QString shown = asShown(text); field->text() != shown)
            field->showText(shown);
    };
    show(name_, node.itemName());
    url_->setAddress(node.itemURL());
    show(tags_, node.itemTags());
    if (const QString note = asShown(node.itemNote()); typedText(*note_, node.itemNote()) != note)
        note_->setPlainText(note);
    label_->setCurrentIndex(node.getLabel() < kLabelNameKeys.size() ? node.getLabel() : 0);
    browser_->setCurrentIndex(controller_->browserMenuIndex());
    locked_->setChecked(node.getLocked());
    url_->setReadOnly(!controller_->isURLEditable());
    url_->setEnabled(controller_->isURLEnabled());
    findNext_->setVisible(controller_->canFindNext());
}

void InfoSheet::setButtons(const InfoButtons& buttons) {
    up_->setEnabled(buttons.up);
    down_->setEnabled(buttons.down);
    left_->setEnabled(buttons.left);
    right_->setEnabled(buttons.right);
}

void InfoSheet::setTitle(const std::string& title) {
    setWindowTitle(oneLine(title).replace("[*]", "[*][*]")); // otherwise Qt inserts the mark of changes
}

void InfoSheet::selectName() {
    takeKeyboard(name_);
    name_->selectAll();
}

// Within its window the panel does not take the keyboard from the window.
void InfoSheet::takeKeyboard(QWidget* field) {
    if (isWindow() || isAncestorOf(QApplication::focusWidget()))
        field->setFocus();
}

// A match is shown while the user may still be typing or pressing Return, and none of these keys may replace
// it. So the keyboard moves to the button for the next match.
void InfoSheet::selectNote(const std::string& string) {
    const QString part = toQString(string);
    const qsizetype place = placeOf(rawText(*note_), part);
    QTextCursor cursor(note_->document());
    cursor.setPosition(static_cast<int>(std::max<qsizetype>(place, 0)));
    if (place >= 0)
        cursor.setPosition(static_cast<int>(place + part.size()), QTextCursor::KeepAnchor);
    else
        cursor.select(QTextCursor::Document);
    note_->setTextCursor(cursor);
    note_->ensureCursorVisible();
    takeKeyboard(findNext_);
}

void InfoSheet::selectTags(const std::string& string) {
    const QString part = toQString(string);
    const qsizetype place = placeOf(tags_->text(), part);
    if (place >= 0)
        tags_->setSelection(static_cast<int>(place), static_cast<int>(part.size()));
    else
        tags_->selectAll();
    takeKeyboard(findNext_);
}

std::string InfoSheet::frame() const {
    return frameText(geometry());
}

// If the stored place is on no screen, the desktop places the panel.
void InfoSheet::setFrame(const std::string& frame) {
    const auto place = frameIn(frame);
    if (!place)
        return;
    const QSize size = place->size().boundedTo(availableScreenSize(*this)).expandedTo(minimumSizeHint());
    if (QGuiApplication::screenAt(place->center()))
        setGeometry(QRect(place->topLeft(), size));
    else
        resize(size);
}

void InfoSheet::dismiss() {
    QDialog::accept();
}

void InfoSheet::bringToFront() {
    raise();
    activateWindow();
    if (!isWindow())
        name_->setFocus();
}

void InfoSheet::reject() {
    if (controller_->isShown())
        controller_->cancel();
    else
        QDialog::reject();
}

void InfoSheet::closeEvent(QCloseEvent* event) {
    if (controller_->isShown())
        controller_->done();
    QDialog::closeEvent(event);
}

// A panel beside its window can lose the keyboard without being closed.
void InfoSheet::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    const bool isLeft = event->type() == QEvent::ActivationChange && !isActiveWindow();
    if (isLeft && windowModality() == Qt::NonModal)
        keepChange();
}

void InfoSheet::keepChange() {
    if (controller_->isShown())
        controller_->keepChange();
}

} // namespace tabulon
