#include "ui/document/DocumentMainWindow.h"

#include "app/AppDelegate.h"
#include "ui/AvailableScreenSize.h"
#include "ui/Icons.h"
#include "ui/MainMenuBar.h"
#include "ui/MimeData.h"
#include "ui/Strings.h"
#include "ui/document/EmptyState.h"
#include "ui/document/FindBarWidget.h"
#include "ui/document/OutlineHeader.h"
#include "ui/document/OutlineWidget.h"
#include "ui/document/StatusLineWidget.h"
#include "window/LinkLists.h"
#include "window/MimeItems.h"
#include "window/ReceivedTree.h"
#include "window/ViewController.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMimeData>
#include <QScreen>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tabulon {
namespace {

constexpr auto kWidthKey = "WindowWidth";
constexpr auto kHeightKey = "WindowHeight";
constexpr auto kNameColumnKey = "NameColumnWidth";
constexpr auto kURLFirstKey = "URLColumnFirst";
constexpr QSize kFirstWindowSize(900, 600);
constexpr QSize kSmallestSize(480, 320);
constexpr int kWidestColumn = 10000;

// Returns whether the drag has nodes of a bookmark manager, whose addresses may be those of files.
bool carriesBookmarks(const QMimeData& data) {
    return std::ranges::any_of(data.formats(), [](const QString& type) {
        return type == toQString(kItemsMimeType) || type.startsWith(toQString(kPlacesType)) ||
               std::ranges::any_of(kTreeTypes,
                                   [&type](std::string_view tree) { return type == toQString(tree); });
    });
}

// Returns the URIs of the dropped files, unparsed, because a QUrl cannot represent names that are not UTF-8.
// Returns an empty list if bookmarks are dragged.
std::vector<std::string> droppedFiles(const QDropEvent& event) {
    const QMimeData& data = *event.mimeData();
    if (carriesBookmarks(data))
        return {};
    return fileUrisIn(data.data("text/uri-list").toStdString());
}

// Accepts dropped files as a copy.
void acceptFiles(QDropEvent* event) {
    const Qt::DropAction action = actionThatKeepsTheSource(*event);
    if (action == Qt::IgnoreAction || droppedFiles(*event).empty())
        return event->ignore();
    event->setDropAction(action);
    event->accept();
}

} // namespace

DocumentMainWindow::DocumentMainWindow(ViewController& controller, AppDelegate& app,
                                       const Localization& texts, UserDefaults& state)
    : controller_(&controller), app_(app), state_(state), pages_(new QStackedWidget(this)),
      outline_(new OutlineWidget(controller, pages_)), emptyState_(new EmptyState(texts, pages_)),
      findBar_(new FindBarWidget(controller.window().findBar(), controller.finding(), texts, this)),
      urlField_(new StatusLineWidget(this)) {
    setWindowIcon(iconNamed("tabulon"));
    setAcceptDrops(true);
    setMinimumSize(kSmallestSize);
    auto* menuBar = new MainMenuBar(app.mainMenu(), app.responders(), [this] { becomeKey(); });
    setMenuBar(menuBar);
    connect(menuBar, &MainMenuBar::menuWillOpen, this, [this] {
        if (controller_)
            controller_->fields().cancelAutoEdit();
    });
    outline_->setAccessibleName(toQString(texts.text("Bookmarks")));
    pages_->addWidget(outline_);
    pages_->addWidget(emptyState_);
    auto* content = new QWidget(this);
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(findBar_);
    layout->addWidget(pages_, 1);
    layout->addWidget(urlField_);
    setCentralWidget(content);
    outline_->setFocus();
    connect(findBar_, &FindBarWidget::closed, this, [this] { pages_->currentWidget()->setFocus(); });
    connect(emptyState_, &EmptyState::openRequested, this,
            [this] { app_.fileOpening().openDocumentPanel(); });
    connect(urlField_, &StatusLineWidget::actionRequested, this, [this] {
        pages_->currentWidget()->setFocus();
        if (controller_)
            controller_->statusLine().performAction();
    });
    rememberColumns();
    restoreGeometryOfLastWindow();
}

void DocumentMainWindow::rememberColumns() {
    OutlineHeader& header = outline_->header();
    if (const auto width = state_.integerForKey(kNameColumnKey); width > 0)
        header.setWidth(Column::Name, static_cast<int>(std::min<std::int64_t>(width, kWidestColumn)));
    header.setBefore(Column::URL, Column::Name, state_.boolForKey(kURLFirstKey));
    connect(&header, &OutlineHeader::widthChanged, this, [this](Column column, int width) {
        if (column == Column::Name)
            state_.setIntegerForKey(kNameColumnKey, width);
    });
    connect(&header, &OutlineHeader::columnsMoved, this, [this, &header] {
        state_.setBoolForKey(kURLFirstKey, header.isBefore(Column::URL, Column::Name));
    });
}

void DocumentMainWindow::restoreGeometryOfLastWindow() {
    const QSize kept(static_cast<int>(state_.integerForKey(kWidthKey)),
                     static_cast<int>(state_.integerForKey(kHeightKey)));
    const QSize wanted = kept.isEmpty() ? kFirstWindowSize : kept.expandedTo(kSmallestSize);
    resize(wanted.boundedTo(availableScreenSize(*this)));
}

void DocumentMainWindow::detach() {
    controller_ = nullptr;
    outline_->detach();
    findBar_->detach();
}

Document* DocumentMainWindow::document() const {
    return controller_ ? &controller_->outline().document() : nullptr;
}

void DocumentMainWindow::showTitle(const QString& name, const QString& path, bool edited) {
    setWindowFilePath(path);
    setWindowTitle(QString(name).replace("[*]", "[*][*]") + "[*] – Tabulon");
    setWindowModified(edited);
}

void DocumentMainWindow::showURLFieldText(const QString& text) {
    urlField_->setText(text);
}

void DocumentMainWindow::showURLFieldAction(const QString& title, const QString& description) {
    urlField_->setAction(title, description);
}

void DocumentMainWindow::setURLFieldFontSize(double points) {
    QFont font = QApplication::font();
    font.setPointSizeF(points);
    urlField_->setTextFont(font);
}

void DocumentMainWindow::showEmptyState(bool empty) {
    QWidget* shown = empty ? static_cast<QWidget*>(emptyState_) : outline_;
    if (pages_->currentWidget() == shown)
        return; // the keyboard stays where it is
    pages_->setCurrentWidget(shown);
    if (!findBar_->hasKeyboard())
        shown->setFocus();
}

void DocumentMainWindow::bringToFront() {
    setWindowState(windowState() & ~Qt::WindowMinimized); // without changing whether it is maximized
    show();
    raise();
    activateWindow();
    becomeKey();
}

std::string DocumentMainWindow::frame() const {
    return frameText(isMaximized() || isFullScreen() ? normalGeometry() : geometry());
}

void DocumentMainWindow::setFrame(const std::string& frame) {
    const auto kept = frameIn(frame);
    if (!kept)
        return;
    const QRect wanted(kept->topLeft(), kept->size().expandedTo(kSmallestSize));
    const QScreen* on = QGuiApplication::screenAt(wanted.center());
    if (on)
        setGeometry(wanted);
    else
        resize(wanted.size().boundedTo(availableScreenSize(*this)));
}

void DocumentMainWindow::becomeKey() {
    if (Document* shown = document())
        app_.documentController().windowDidBecomeKey(*shown);
}

// The window is closed when its document is; until then the event is ignored.
void DocumentMainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (Document* shown = document())
        app_.documentController().closeDocument(*shown, [](bool) {});
}

void DocumentMainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        becomeKey();
}

void DocumentMainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (!isVisible() || isMaximized() || isFullScreen())
        return;
    state_.setIntegerForKey(kWidthKey, width());
    state_.setIntegerForKey(kHeightKey, height());
}

// Files that are dropped beside the rows are opened. Links are inserted if the document is empty.
bool DocumentMainWindow::takesLinks(const QDropEvent& event) const {
    return pages_->currentWidget() == emptyState_ && droppedFiles(event).empty();
}

void DocumentMainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!takesLinks(*event))
        acceptFiles(event);
    else if (!outline_->drops().begin(*event) || !outline_->drops().offer(event, {}))
        event->ignore();
}

void DocumentMainWindow::dragMoveEvent(QDragMoveEvent* event) {
    if (takesLinks(*event))
        outline_->drops().offer(event, {});
    else
        acceptFiles(event);
}

void DocumentMainWindow::dragLeaveEvent(QDragLeaveEvent*) {
    outline_->drops().end();
}

void DocumentMainWindow::dropEvent(QDropEvent* event) {
    if (takesLinks(*event))
        return outline_->drops().perform(event, {});
    acceptFiles(event);
    if (!event->isAccepted())
        return;
    // Later, because an alert would block the program that the files are from.
    const bool isEmpty = pages_->currentWidget() == emptyState_;
    QTimer::singleShot(0, this, [this, isEmpty, files = droppedFiles(*event)] {
        if (controller_)
            takeFiles(files, isEmpty);
    });
}

// Files that the program cannot open become bookmarks if the document is empty, as they do among the rows of
// any document.
void DocumentMainWindow::takeFiles(const std::vector<std::string>& files, bool intoDocument) {
    std::vector<std::string> opened;
    std::string uris;
    for (const std::string& file : files)
        if (intoDocument && !app_.fileOpening().canOpen(file))
            uris += file + "\r\n";
        else
            opened.push_back(file);
    if (!uris.empty()) {
        MimeContent list;
        list.set("text/uri-list", std::move(uris));
        const std::vector<PasteboardItem> items =
            controller_->items().itemsIn(list); // the drag itself is over
        const DragInfo drag{.source = nullptr, .copies = true, .items = items};
        if (controller_->dragging().validateDrop(drag, nullptr, std::nullopt) != DragOperation::None)
            controller_->dragging().acceptDrop(drag, nullptr, std::nullopt);
    }
    if (!opened.empty())
        app_.fileOpening().openFiles(opened);
}

} // namespace tabulon
