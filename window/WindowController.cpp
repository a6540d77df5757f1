#include "window/WindowController.h"

#include "window/ActionTable.h"
#include "window/DocumentWindow.h"
#include "window/GetInfoController.h"
#include "window/MoveDeleteController.h"
#include "window/Outline.h"
#include "window/SharedAlerts.h"

#include <utility>

namespace tabulon {

WindowController::WindowController(Outline& outline, Finding& finding, const Platform& platform,
                                   ActionTable& actions)
    : outline_(outline), finding_(finding), platform_(platform), findBar_(finding, platform) {
    outline_.addRowObserver(*this);
    finding_.addObserver(*this);
    actions.add(
        "getInfo:", [this](const MenuItem&) { getInfo(); },
        [this](const MenuItem&) { return outline_.hasSelection(); });
    for (const char* action : {"showFindView:", "performFindPanelAction:"})
        actions.add(action, [this](const MenuItem&) { findBar_.showFindView(); });
    actions.add("legendaSheet:", [this](const MenuItem&) { legendaSheet(); });
    actions.add("hideFindView:", [this](const MenuItem&) { findBar_.hideFindView(); });
    actions.add(
        "findNext:", [this](const MenuItem&) { finding_.findNext(); },
        [this](const MenuItem&) { return !finding_.searchString().empty(); });
}

WindowController::~WindowController() {
    if (info_)
        info_->outlineIsGone();
}

void WindowController::setWindow(DocumentWindow* window) {
    window_ = window;
    findBar_.setFindBar(&window->findBar());
    documentStateChanged();
    rowsDidChange();
}

void WindowController::setWindowTitle(std::string title) {
    windowTitle_ = std::move(title);
    documentStateChanged();
}

std::string WindowController::windowTitle() const {
    return windowTitle_.empty() ? outline_.document().displayName() : windowTitle_;
}

void WindowController::documentStateChanged() {
    const Document& document = outline_.document();
    if (!document.fileName().empty())
        windowTitle_.clear();
    if (window_)
        window_->setTitle(windowTitle(), document.fileName(), document.isDocumentEdited());
}

void WindowController::getInfo() {
    const std::vector<Bookmark*> items = outline_.getSelectionArray();
    const std::optional<std::size_t> current = outline_.view().selectedRow();
    if (items.empty())
        return noSelection(platform_, outline_.document());
    Bookmark& item = items.size() > 1 && current ? outline_.itemAtRow(*current) : *items.front();
    if (info_ && info_->isShown()) {
        info_->editBookmark(item);
        if (!window_->findBar().hasKeyboard()) // so that the user can go on typing
            info_->bringToFront();
        return;
    }
    if (info_)
        info_->outlineIsGone();
    info_ = std::make_shared<GetInfoController>(outline_, finding_, platform_);
    info_->editBookmark(item);
    window_->presentInfo(info_);
}

void WindowController::dismissInfo() {
    if (info_ && info_->isShown())
        info_->done();
}

void WindowController::moveDeleteSheet(std::function<void()> deleteSheetExecute) {
    window_->presentMoveDelete(std::make_shared<MoveDeleteController>(
        platform_.base, [execute = std::move(deleteSheetExecute), alive = std::weak_ptr(life_)] {
            if (!alive.expired())
                execute();
        }));
}

void WindowController::legendaSheet() {
    window_->presentLegenda();
}

void WindowController::rowsDidChange() {
    window_->showEmptyState(outline_.numberOfRows() == 0);
}

void WindowController::treeDidChange() {
    if (info_)
        info_->nodesDidChange();
}

void WindowController::nodesDidLeave() {
    if (info_)
        info_->nodesDidLeave();
}

void WindowController::masterDidChange() {
    if (window_)
        rowsDidChange();
}

void WindowController::foundOutsideRows(FoundIn text, const std::string& match) {
    getInfo();
    text == FoundIn::Note ? info_->selectNote(match) : info_->selectTags(match);
}

} // namespace tabulon
