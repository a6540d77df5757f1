#include "app/DocumentController.h"

#include "app/DamagedDocument.h"
#include "base/Utf8.h"
#include "window/SharedAlerts.h"

#include <algorithm>

namespace tabulon {

DocumentController::DocumentController(const Platform& platform, DocumentWindowMaker& windows,
                                       LastDocumentObserver& observer, SharedCommands& commands)
    : platform_(platform), windows_(windows), observer_(observer), shared_(commands), stores_(platform),
      list_(platform.files), alerts_(platform.alerts, list_), conflicts_(platform, list_, alerts_),
      writing_(platform, stores_, alerts_),
      reverting_(platform, {list_, stores_, alerts_, writing_, *this, commands}),
      saving_(platform, {list_, alerts_, conflicts_, writing_, reverting_}),
      autosaving_(platform, {list_, stores_, alerts_, conflicts_, writing_, saving_}),
      closing_(platform, {list_, stores_, alerts_, conflicts_, writing_, saving_}) {
    addActions();
}

DocumentController::~DocumentController() = default;

void DocumentController::addActions() {
    const auto hasDocument = [this](const MenuItem&) { return current_ != nullptr; };
    const auto nothing = [](bool) {};
    actions_.add(
        "saveDocument:", [=, this](const MenuItem&) { saveDocument(*current_, nothing); }, hasDocument);
    actions_.add(
        "saveDocumentAs:", [=, this](const MenuItem&) { saving_.saveDocumentAs(*current_, nothing); },
        hasDocument);
    actions_.add(
        "revertDocumentToSaved:", [this](const MenuItem&) { reverting_.revertDocument(*current_); },
        [this](const MenuItem&) { return current_ && reverting_.canRevert(*current_); });
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
    for (const Document* document : documents())
        getViewController(*document)->marks().showMarksView();
}

DocumentWindow* DocumentController::getWindow(const Document& document) const {
    const OpenDocument* opened = list_.find(document);
    return opened ? opened->window.get() : nullptr;
}

ViewController* DocumentController::getViewController(const Document& document) const {
    OpenDocument* opened = list_.find(document);
    return opened ? &*opened->controller : nullptr;
}

Document* DocumentController::makeWindowControllers(std::unique_ptr<OpenDocument> opened) {
    opened->controller.emplace(opened->document, platform_, shared_);
    opened->window = windows_.makeWindow(*opened->controller);
    if (!opened->window)
        return nullptr;
    OpenDocument& shown = list_.add(std::move(opened));
    shown.controller->setWindow(shown.window.get());
    shown.pause.emplace(platform_.timers,
                        [this, &shown] { autosaving_.save(shown, Autosaving::Moment::Pause); });
    if (!shown.document.fileName().empty())
        restoreWindowFrame(shown, platform_.state);
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
        if (untouched && list_.size() > 1 && !platform_.alerts.isAskingAbout(document))
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
        stores_.recent.note(path);
        stores_.versions.noteOpened(path);
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
    const OpenDocument* opened = list_.findFile(path);
    if (opened)
        opened->window->makeKeyAndOrderFront();
    return opened != nullptr;
}

void DocumentController::browseVersions(Document& document) {
    if (document.fileName().empty())
        return;
    list_.find(document)->controller->fields().commitEditing();
    const auto open = [this](const Ref<Bookmark>& root, const std::string& name) {
        return openUntitled(root, name) != nullptr;
    };
    const auto fileIsAsLeft = [this, &document] {
        return platform_.files.identityOf(document.fileName()) == list_.find(document)->identity;
    };
    windows_.presentVersions(
        std::make_shared<VersionsController>(document, stores_.versions, platform_, open, fileIsAsLeft));
}

void DocumentController::closeDocument(Document& document, const Done& done) {
    list_.find(document)->controller->finishEditing();
    closing_.ask(document, [this, &document, done](bool mayGo) {
        if (mayGo && list_.find(document))
            remove(document);
        done(mayGo);
    });
}

void DocumentController::closeAllDocuments(const Done& done) {
    for (const Document* document : documents())
        list_.find(*document)->controller->finishEditing();
    closing_.askAboutAll([this, done](bool mayGo) {
        if (mayGo)
            for (const Document* document : documents())
                remove(*document);
        done(mayGo);
    });
}

void DocumentController::remove(const Document& document) {
    stores_.unsaved.forget(document);
    stores_.revertPoints.forget(document);
    const std::unique_ptr<OpenDocument> closing = list_.take(document);
    if (current_ == &document)
        current_ = list_.size() == 0 ? nullptr : &list_.last().document;
    if (list_.size() == 0)
        observer_.noDocumentIsOpen();
}

void DocumentController::recoverUnsavedDocuments() {
    Refusals refusals;
    for (const UnsavedDocuments::Copy& copy : stores_.unsaved.abandonedCopies())
        recover(copy, refusals);
    refusals.report(platform_);
}

void DocumentController::recover(const UnsavedDocuments::Copy& copy, Refusals& refusals) {
    auto opened = std::make_unique<OpenDocument>(platform_.base);
    const Result<std::string> bytes = platform_.files.readFile(copy.path);
    const Result<void> read = bytes ? opened->document.readFromDataOfType(*bytes, kDocumentType)
                                    : Result<void>(tl::unexpected(bytes.error()));
    if (!read) {
        const std::string aside = stores_.unsaved.putAside(copy.path);
        const Localization& texts = platform_.base.texts;
        Error error = read.error();
        error.title = texts.format("CouldNotRecover", copy.displayName);
        error.message += " " + texts.format("CopyKept", decodeUtf8Leniently(aside));
        return refusals.add(aside, error, [this, aside, name = copy.displayName] {
            return offerRemains(platform_.files.readFile(aside), name);
        });
    }
    opened->document.setDisplayName(copy.displayName);
    Document* document = makeWindowControllers(std::move(opened));
    if (!document)
        return;
    stores_.unsaved.adopt(*document, copy.path);
    document->updateChangeCount(ChangeKind::Done);
    getViewController(*document)->statusLine().showStatusUntilSaved(platform_.base.texts.text("Recovered"));
}

} // namespace tabulon
