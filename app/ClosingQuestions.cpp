#include "app/ClosingQuestions.h"

#include "window/SharedAlerts.h"

#include <utility>

namespace tabulon {

void ClosingQuestions::ask(Document& document, const SavingDone& done) {
    if (!document.isDocumentEdited())
        return done(true);
    if (!document.fileName().empty())
        return saveBeforeClosing(document, done);
    parts_.documents.find(document)->window->makeKeyAndOrderFront();
    const Localization& texts = platform_.base.texts;
    choose(document,
           Alert{.style = AlertStyle::Warning,
                 .message = texts.format("SaveChanges", document.displayName()),
                 .informative = texts.text("SaveChangesText"),
                 .buttons = {{texts.text("Save")},
                             {texts.text("DontSave"), AlertButtonRole::Destructive},
                             {texts.text("Cancel"), AlertButtonRole::Cancel}}},
           done, &Saving::saveDocument);
}

void ClosingQuestions::choose(Document& document, Alert alert, const SavingDone& done,
                              void (Saving::*save)(Document&, const SavingDone&)) {
    const int response = parts_.alerts.ask(document, std::move(alert));
    if (!parts_.documents.find(document)) // closed while the question was up
        return done(false);
    if (response == kAlertFirstButton)
        return (parts_.saving.*save)(document, done);
    done(response == kAlertFirstButton + 1);
}

// A document with a file is saved without a question, unless another program has changed the file or it
// cannot be written.
void ClosingQuestions::saveBeforeClosing(Document& document, const SavingDone& done) {
    OpenDocument& opened = *parts_.documents.find(document);
    if (platform_.files.identityOf(document.fileName()) != opened.identity)
        opened.window->makeKeyAndOrderFront();
    switch (parts_.conflicts.ask(document, FileConflicts::Before::Closing)) {
    case FileConflicts::Answer::Overwrite:
        break;
    case FileConflicts::Answer::DropMine:
        return done(true);
    case FileConflicts::Answer::SaveAs:
        return parts_.saving.saveDocumentAs(document, done);
    case FileConflicts::Answer::Cancel:
        return done(false);
    }
    if (parts_.documents.size() > 1) // if closing another one is cancelled, this one stays open
        parts_.stores.revertPoints.keep(document);
    const Result<void> written = parts_.writing.writeByItself(opened);
    if (written)
        return done(true);
    opened.window->makeKeyAndOrderFront();
    askAfterFailedSave(document, written.error(), done);
}

void ClosingQuestions::askAfterFailedSave(Document& document, const Error& error, const SavingDone& done) {
    const Localization& texts = platform_.base.texts;
    choose(document,
           Alert{.style = AlertStyle::Critical,
                 .message = texts.format("CouldNotSave", lastPathComponent(document.fileName())),
                 .informative = writeErrorText(texts, error),
                 .buttons = {{texts.text("SaveAsButton")},
                             {texts.text("CloseWithoutSaving"), AlertButtonRole::Destructive},
                             {texts.text("Cancel"), AlertButtonRole::Cancel}}},
           done, &Saving::saveDocumentAs);
}

void ClosingQuestions::askAboutAll(const SavingDone& done) {
    givenUp_.clear();
    reviewFrom(parts_.documents.documents(), done);
}

// While the question about one document was shown, another may have been changed.
std::vector<Document*> ClosingQuestions::documentsToReview() const {
    std::vector<Document*> result = parts_.documents.documents();
    std::erase_if(result, [this](const Document* document) {
        const auto given = givenUp_.find(document);
        return !document->isDocumentEdited() ||
               (given != givenUp_.end() && given->second == document->changeCount());
    });
    return result;
}

// Asks about the last of the pending documents, then about the others.
void ClosingQuestions::reviewFrom(std::vector<Document*> pending, const SavingDone& done) {
    while (!pending.empty() &&
           !(parts_.documents.find(*pending.back()) && pending.back()->isDocumentEdited()))
        pending.pop_back();
    if (pending.empty())
        pending = documentsToReview();
    if (pending.empty())
        return done(true);
    Document* document = pending.back();
    pending.pop_back();
    ask(*document, [this, document, pending = std::move(pending), done](bool mayGo) {
        if (!mayGo)
            return done(false);
        if (parts_.documents.find(*document) && document->isDocumentEdited())
            givenUp_[document] = document->changeCount();
        reviewFrom(pending, done);
    });
}

} // namespace tabulon
