// The list of open documents: creating, finding and opening them. Saving and closing are in
// DocumentController_saving.cpp and DocumentController_closing.cpp.
#include "app/DocumentController.h"

#include "app/DamagedDocument.h"
#include "window/SharedAlerts.h"

#include <algorithm>

namespace tabulon {

DocumentController::DocumentController(const Platform& platform, DocumentWindowMaker& windows,
                                       LastDocumentObserver& observer, SharedCommands& commands)
    : platform_(platform), windows_(windows), observer_(observer), shared_(commands),
      recentDocuments_(platform.state), unsaved_(platform.files, platform.recovery),
      revertPoints_(platform.files, platform.recovery, platform.base.log),
      versions_(platform.files, platform.base.clock, platform.base.defaults,
                platform.folders.stateFolder() + "/versions") {
    addActions();
}

DocumentController::~DocumentController() = default;

void DocumentController::addActions() {
    const auto hasDocument = [this](const MenuItem&) { return current_ != nullptr; };
    const auto nothing = [](bool) {};
    actions_.add(
        "saveDocument:", [=, this](const MenuItem&) { saveDocument(*current_, nothing); }, hasDocument);
    actions_.add(
        "saveDocumentAs:", [=, this](const MenuItem&) { saveDocumentAs(*current_, nothing); }, hasDocument);
    actions_.add(
        "revertDocumentToSaved:", [this](const MenuItem&) { revertDocument(*current_); },
        [this](const MenuItem&) { return current_ && canRevert(*current_); });
    actions_.add(
        "browseVersions:", [this](const MenuItem&) { browseVersions(*current_); },
        [this](const MenuItem&) { return current_ && !current_->fileName().empty(); });
    actions_.add(
        "performClose:", [=, this](const MenuItem&) { closeDocument(*current_, nothing); }, hasDocument);
    addWindowActions();
}

void DocumentController::addWindowActions() {
    // The document of an item may have been closed since the item was made.
    const auto windowOf = [this](const MenuItem& item) -> DocumentWindow* {
        const auto* document = std::get_if<Document*>(&item.representedObject);
        return document && *document ? getWindow(**document) : nullptr;
    };
    actions_.add(
        "performMiniaturize:", [this](const MenuItem&) { getWindow(*current_)->performMiniaturize(); },
        [this](const MenuItem&) { return current_ != nullptr; });
    actions_.add(
        "makeKeyAndOrderFront:", [=](const MenuItem& item) { windowOf(item)->makeKeyAndOrderFront(); },
        [=](const MenuItem& item) { return windowOf(item) != nullptr; });
}

void DocumentController::showMarksInEveryWindow() {
    for (const auto& opened : documents_)
        opened->controller->marks().showMarksView();
}

std::vector<Document*> DocumentController::documents() const {
    std::vector<Document*> result;
    for (const auto& opened : documents_)
        result.push_back(&opened->document);
    return result;
}

DocumentController::OpenDocument* DocumentController::find(const Document& document) const {
    const auto found =
        std::ranges::find_if(documents_, [&](const auto& opened) { return &opened->document == &document; });
    return found == documents_.end() ? nullptr : found->get();
}

DocumentWindow* DocumentController::getWindow(const Document& document) const {
    OpenDocument* opened = find(document);
    return opened ? opened->window.get() : nullptr;
}

ViewController* DocumentController::getViewController(const Document& document) const {
    OpenDocument* opened = find(document);
    return opened ? &*opened->controller : nullptr;
}

Document* DocumentController::makeWindowControllers(std::unique_ptr<OpenDocument> opened) {
    opened->controller.emplace(opened->document, platform_, shared_);
    opened->window = windows_.makeWindow(*opened->controller);
    if (!opened->window)
        return nullptr;
    documents_.push_back(std::move(opened));
    OpenDocument& shown = *documents_.back();
    shown.controller->setWindow(shown.window.get());
    shown.document.setChangeObserver([this, &shown] { noteChange(shown); });
    if (!shown.document.fileName().empty())
        restoreWindowFrame(shown);
    current_ = &shown.document;
    shown.window->show();
    return &shown.document;
}

Document* DocumentController::openUntitledDocumentAndDisplay() {
    return makeWindowControllers(std::make_unique<OpenDocument>(platform_.base));
}

void DocumentController::closeUntouchedDocument() {
    for (const Document* document : documents()) {
        const bool untouched =
            document == untouched_ && !document->isDocumentEdited() && document->fileName().empty();
        if (untouched && documents_.size() > 1 && !platform_.alerts.isAskingAbout(document))
            remove(*document);
    }
    untouched_ = nullptr;
}

Result<Document*> DocumentController::openDocument(const std::string& path, std::string_view bytes,
                                                   const std::optional<FileIdentity>& identity) {
    auto opened = std::make_unique<OpenDocument>(platform_.base);
    opened->identity = identity;
    if (const Result<void> read = opened->document.readFromDataOfType(bytes, kDocumentType); !read)
        return tl::unexpected(read.error());
    opened->document.setFileName(path);
    Document* document = makeWindowControllers(std::move(opened));
    if (document) {
        recentDocuments_.note(path);
        versions_.noteOpened(path);
    }
    return document;
}

Document* DocumentController::openUntitled(const Ref<Bookmark>& root, const std::string& name) {
    auto opened = std::make_unique<OpenDocument>(platform_.base);
    root->setShowHier(true);
    opened->document.setMaster(root);
    opened->document.setDisplayName(name);
    Document* document = makeWindowControllers(std::move(opened));
    if (document)
        document->updateChangeCount(ChangeKind::Done);
    return document;
}

Document* DocumentController::newMasterDocument(Ref<Bookmark> root) {
    Document* document = openUntitledDocumentAndDisplay();
    if (!document)
        return nullptr;
    root->setShowHier(true);
    document->setMaster(std::move(root));
    document->updateUI();
    document->updateChangeCount(ChangeKind::Done);
    return document;
}

std::optional<Refusals::Offer> DocumentController::offerRemains(const Result<std::string>& bytes,
                                                                const std::string& name) {
    const std::optional<Remains> remains = bytes ? remainsOfDocument(*bytes, platform_.base) : std::nullopt;
    if (!remains)
        return std::nullopt;
    const auto open = [this, name, master = remains->master] { openUntitled(master, name); };
    return Refusals::Offer{remains->sentence, platform_.base.texts.text("OpenRemains"), open};
}

bool DocumentController::showDocumentOfFile(const std::string& path) {
    const auto found = std::ranges::find_if(documents_, [&](const auto& opened) {
        return isSameFile(platform_.files, opened->document.fileName(), path);
    });
    if (found == documents_.end())
        return false;
    (*found)->window->makeKeyAndOrderFront();
    return true;
}

} // namespace tabulon
