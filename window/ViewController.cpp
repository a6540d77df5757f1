// Construction, the window, rows and the alerts that commands share.
#include "window/ViewController.h"

#include "window/GetInfoController.h"

#include <algorithm>
#include <array>
#include <compare>

namespace tabulon {

ViewController::ViewController(Document& document, const Platform& platform, SharedState& shared)
    : document_(document), platform_(platform), shared_(shared) {
    addActions();
    outline_.addRowObserver(*this);
    outline_.addSelectionObserver(*this);
    outline_.addPointerObserver(*this);
    document_.setPresenter(this);
}

ViewController::~ViewController() {
    if (info_)
        info_->outlineIsGone();
    document_.setPresenter(nullptr);
}

void ViewController::addActions() {
    actions_.setWillPerform([this] { commitEditing(); });
    actions_.add("expandFolder:", [this](const MenuItem&) { expandFolder(); });
    actions_.add("expandFolderPlus:", [this](const MenuItem&) { expandFolderPlus(); });
    actions_.add("collapseFolder:", [this](const MenuItem&) { collapseFolder(); });
    actions_.add("collapseFolderPlus:", [this](const MenuItem&) { collapseFolderPlus(); });
    actions_.add("expandAll:", [this](const MenuItem&) { expandAll(); });
    actions_.add("collapseAll:", [this](const MenuItem&) { collapseAll(); });
    actions_.add("exportText:", [this](const MenuItem&) { exportText(); });
    actions_.add(
        "saveBookmark:", [this](const MenuItem&) { saveBookmark(); },
        [this](const MenuItem&) { return outline_.view().selectedRow().has_value(); });
    actions_.add(
        "selectAll:", [this](const MenuItem&) { outline_.view().selectAll(); },
        [this](const MenuItem&) { return outline_.numberOfRows() > 0; });
    actions_.add("zoomIn:", [this](const MenuItem&) { zoomIn(); });
    actions_.add("zoomOut:", [this](const MenuItem&) { zoomOut(); });
    addEditingActions();
    addMarkActions();
    addSortActions();
    addFindActions();
}

void ViewController::addEditingActions() {
    const auto selected = [this](const MenuItem&) { return outline_.hasSelection(); };
    const auto oneFolder = [this](const MenuItem&) { return outline_.hasOneSelectedFolder(); };
    actions_.add("newBookmark:", [this](const MenuItem&) { newBookmark(); });
    actions_.add("newFolder:", [this](const MenuItem&) { newFolder(); });
    actions_.add(
        "addBookmark:", [this](const MenuItem&) { addBookmark(); }, oneFolder);
    actions_.add("insertSeparator:", [this](const MenuItem&) { insertSeparator(); });
    actions_.add(
        "editBookmark:", [this](const MenuItem&) { editBookmark(); }, selected);
    actions_.add(
        "delete:", [this](const MenuItem&) { deleteSelection(); }, selected);
    actions_.add("cut:", [this](const MenuItem&) { cut(); });
    actions_.add("copy:", [this](const MenuItem&) { copyEditMenu(); });
    actions_.add("paste:", [this](const MenuItem&) { pasteEditMenu(); });
    actions_.add("moveUp:", [this](const MenuItem&) { moveUp(); });
    actions_.add("moveDown:", [this](const MenuItem&) { moveDown(); });
    actions_.add(
        "labelBookmark:",
        [this](const MenuItem& sender) { labelBookmark(static_cast<std::uint8_t>(sender.tag)); }, selected);
}

void ViewController::addMarkActions() {
    actions_.add("showMarks:", [this](const MenuItem&) { showMarks(); });
    actions_.add("findDuplicates:", [this](const MenuItem&) { findDuplicates(); });
    actions_.add("clearMarks:", [this](const MenuItem&) { clearMarks(); });
    actions_.add("deleteDuplicatesCommand:", [this](const MenuItem&) { deleteDuplicatesCommand(); });
    actions_.add("moveDeleteSheet:", [this](const MenuItem&) { moveDeleteSheet(); });
    actions_.add("legendaSheet:", [this](const MenuItem&) { legendaSheet(); });
}

void ViewController::addSortActions() {
    static constexpr std::array kActions = {
        "sortByName:",      "sortByURL:",          "sortByTags:",
        "sortByDateAdded:", "sortByDateModified:", "sortByDateLastOpened:"};
    for (std::size_t index = 0; index < kActions.size(); ++index)
        actions_.add(
            kActions[index],
            [this, index](const MenuItem& sender) {
                const bool descending = sender.tag == kSortDescendingTag || platform_.keyboard.isOptionDown();
                sortByIndexAscending(static_cast<int>(index), !descending);
            },
            [this](const MenuItem&) { return outline_.hasOneSelectedFolder(); });
}

void ViewController::addFindActions() {
    actions_.add(
        "getInfo:", [this](const MenuItem&) { getInfo(); },
        [this](const MenuItem&) { return outline_.hasSelection(); });
    for (const char* action : {"showFindView:", "performFindPanelAction:"})
        actions_.add(action, [this](const MenuItem&) {
            autoEdit_.reset(); // what is typed from now on is meant for the search field
            findBar_.showFindView();
        });
    actions_.add("hideFindView:", [this](const MenuItem&) { findBar_.hideFindView(); });
    actions_.add(
        "findNext:", [this](const MenuItem&) { findBar_.findNext(); },
        [this](const MenuItem&) { return !searchString().empty(); });
}

void ViewController::setWindow(DocumentWindow* window) {
    window_ = window;
    outline_.setView(&window->outline());
    findBar_.setFindBar(&window->findBar());
    statusLine_.setWindow(window);
    viewDidLoad();
    documentStateChanged();
    window_->showEmptyState(outline_.numberOfRows() == 0);
    statusLine_.showCounts();
}

void ViewController::setMaster(Bookmark& master) {
    outline_.setMaster(master);
}

void ViewController::masterDidChange() {
    counts_.reset();
    if (!window_)
        return;
    rowsDidChange();
    statusLine_.treeDidChange();
    statusLine_.showCounts();
}

void ViewController::rowsWillChange() {
    statusLine_.rowsWillChange();
}

void ViewController::rowsDidChange() {
    window_->showEmptyState(outline_.numberOfRows() == 0);
}

void ViewController::treeDidChange() {
    counts_.reset();
    statusLine_.treeDidChange();
    if (info_)
        info_->nodesDidChange();
}

void ViewController::nodesDidLeave() {
    if (info_)
        info_->nodesDidLeave();
}

void ViewController::documentStateChanged() {
    if (!document_.fileName().empty())
        windowTitle_.clear();
    if (!window_)
        return;
    window_->setTitle(windowTitle(), document_.fileName(), document_.isDocumentEdited());
    if (!document_.isDocumentEdited())
        statusLine_.documentDidSave();
}

std::string ViewController::windowTitle() const {
    return windowTitle_.empty() ? document_.displayName() : windowTitle_;
}

void ViewController::setWindowTitle(std::string title) {
    windowTitle_ = std::move(title);
    documentStateChanged();
}

namespace {

// The first `count` characters of UTF-8 text, or all of it.
std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    while (end < text.size()) {
        const bool startsCharacter = (static_cast<unsigned char>(text[end]) & 0xC0) != 0x80;
        if (startsCharacter && count-- == 0)
            break;
        ++end;
    }
    return text.substr(0, end);
}

std::size_t characterCount(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }));
}

} // namespace

std::optional<std::size_t> ViewController::rowWithPrefix(const std::string& prefix, std::size_t start) const {
    const std::size_t length = characterCount(prefix);
    for (std::size_t step = 0; step < outline_.numberOfRows(); ++step) {
        const std::size_t row = (start + step) % outline_.numberOfRows();
        const std::string_view name = firstCharacters(outline_.itemAtRow(row).itemName().view(), length);
        if (!name.empty() && std::is_eq(collation_.compareIgnoringCase(name, prefix)))
            return row;
    }
    return std::nullopt;
}

void ViewController::selectionAlert(const char* informativeKey) {
    const Localization& texts = platform_.base.texts;
    platform_.alerts.runModal(Alert{.style = AlertStyle::Warning,
                                    .message = texts.text("NoSelection"),
                                    .informative = texts.text(informativeKey),
                                    .buttons = {{"OK"}},
                                    .document = &document_});
}

void ViewController::noSelection() {
    selectionAlert("PleaseSelect");
}

void ViewController::noSelectedFolder() {
    selectionAlert("PleaseSelectFolder");
}

} // namespace tabulon
