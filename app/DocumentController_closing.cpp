// Closing documents: the question about unsaved changes, one window or all of them.
#include "app/DocumentController.h"
#include "window/SharedAlerts.h"

#include <algorithm>

namespace tabulon {
namespace {

Alert savingQuestion(const Localization& texts, const Document& document) {
    return Alert{.style = AlertStyle::Warning,
                 .message = texts.format("SaveChanges", document.displayName()),
                 .informative = texts.text("SaveChangesText"),
                 .buttons = {{texts.text("Save")},
                             {texts.text("DontSave"), AlertButtonRole::Destructive},
                             {texts.text("Cancel"), AlertButtonRole::Cancel}},
                 .document = &document};
}

} // namespace

// Calls `done` with whether the document may be closed: it was saved, or the user gives its changes up.
void DocumentController::askToSave(Document& document, const Done& done) {
    if (!document.isDocumentEdited())
        return done(true);
    if (!document.fileName().empty())
        return saveBeforeClosing(document, done);
    find(document)->window->makeKeyAndOrderFront();
    const int response = ask(savingQuestion(platform_.base.texts, document));
    if (!find(document)) // closed while the question was up
        return done(false);
    switch (response - kAlertFirstButton) {
    case 0:
        return saveDocument(document, done);
    case 1:
        return done(true);
    default:
        return done(false);
    }
}

// A document with a file is saved without a question, unless another program has changed the file or it
// cannot be written.
void DocumentController::saveBeforeClosing(Document& document, const Done& done) {
    if (platform_.files.identityOf(document.fileName()) != find(document)->identity)
        find(document)->window->makeKeyAndOrderFront();
    switch (askAboutFile(document, Before::Closing)) {
    case FileAnswer::Overwrite:
        break;
    case FileAnswer::DropMine:
        return done(true);
    case FileAnswer::SaveAs:
        return saveDocumentAs(document, done);
    case FileAnswer::Cancel:
        return done(false);
    }
    if (documents_.size() > 1) // if closing another one is cancelled, this one stays open
        revertPoints_.keep(document);
    const Result<void> written = writeByItself(document);
    if (written)
        return done(true);
    find(document)->window->makeKeyAndOrderFront();
    askAfterFailedSave(document, written.error(), done);
}

void DocumentController::askAfterFailedSave(Document& document, const Error& error, const Done& done) {
    const Localization& texts = platform_.base.texts;
    const Alert alert{.style = AlertStyle::Critical,
                      .message = texts.format("CouldNotSave", lastPathComponent(document.fileName())),
                      .informative = writeErrorText(texts, error),
                      .buttons = {{texts.text("SaveAsButton")},
                                  {texts.text("CloseWithoutSaving"), AlertButtonRole::Destructive},
                                  {texts.text("Cancel"), AlertButtonRole::Cancel}},
                      .document = &document};
    const int response = ask(alert);
    if (!find(document)) // closed while the question was up
        return done(false);
    switch (response - kAlertFirstButton) {
    case 0:
        return saveDocumentAs(document, done);
    case 1:
        return done(true);
    default:
        return done(false);
    }
}

void DocumentController::closeDocument(Document& document, const Done& done) {
    find(document)->controller->finishEditing();
    askToSave(document, [this, &document, done](bool mayGo) {
        if (mayGo && find(document))
            remove(document);
        done(mayGo);
    });
}

void DocumentController::remove(const Document& document) {
    const auto found =
        std::ranges::find_if(documents_, [&](const auto& opened) { return &opened->document == &document; });
    unsaved_.forget(document);
    revertPoints_.forget(document);
    const std::unique_ptr<OpenDocument> closing = std::move(*found);
    documents_.erase(found);
    if (current_ == &document)
        current_ = documents_.empty() ? nullptr : &documents_.back()->document;
    if (documents_.empty())
        observer_.noDocumentIsOpen();
}

void DocumentController::closeAllDocuments(const Done& done) {
    for (const auto& opened : documents_)
        opened->controller->finishEditing();
    givenUp_.clear();
    reviewFrom(documents(), [this, done](bool mayGo) {
        if (mayGo)
            for (const Document* document : documents())
                remove(*document);
        done(mayGo);
    });
}

// Returns the documents with changes that the user has not given up. While the question about one was shown,
// another may have been changed.
std::vector<Document*> DocumentController::documentsToReview() const {
    std::vector<Document*> result = documents();
    std::erase_if(result, [this](const Document* document) {
        const auto given = givenUp_.find(document);
        return !document->isDocumentEdited() ||
               (given != givenUp_.end() && given->second == document->changeCount());
    });
    return result;
}

// Asks about the last of the pending documents, then about the others.
void DocumentController::reviewFrom(std::vector<Document*> pending, const Done& done) {
    while (!pending.empty() && !(find(*pending.back()) && pending.back()->isDocumentEdited()))
        pending.pop_back();
    if (pending.empty())
        pending = documentsToReview();
    if (pending.empty())
        return done(true);
    Document* document = pending.back();
    pending.pop_back();
    askToSave(*document, [this, document, pending = std::move(pending), done](bool mayGo) {
        if (!mayGo)
            return done(false);
        if (find(*document) && document->isDocumentEdited())
            givenUp_[document] = document->changeCount();
        reviewFrom(pending, done);
    });
}

} // namespace tabulon
