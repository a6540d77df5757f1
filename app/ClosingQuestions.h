// The questions about unsaved changes before documents are closed: about one of them, or about all.
#pragma once

#include "app/DocumentAlerts.h"
#include "app/DocumentWriting.h"
#include "app/FileConflicts.h"
#include "app/OpenDocuments.h"
#include "app/Saving.h"

#include <map>
#include <vector>

namespace tabulon {

/// Finds out whether documents may be closed, and saves them before. Closes none itself.
class ClosingQuestions {
public:
    /// The parts that the questions use. All outlive them.
    struct Parts {
        OpenDocuments& documents;
        DocumentStores& stores;
        DocumentAlerts& alerts;
        FileConflicts& conflicts;
        DocumentWriting& writing;
        Saving& saving;
    };

    /// Requires: the services of `platform` and the parts outlive this object.
    ClosingQuestions(const Platform& platform, const Parts& parts) : platform_(platform), parts_(parts) {}

    /// Calls `done` with whether the document may be closed: it has no changes, was saved, or the user gives
    /// its changes up. A document with a file is saved without a question if that is possible. Requires: the
    /// document is open. `done` may be called before this returns, or later when a panel closes.
    void ask(Document& document, const SavingDone& done);
    /// Does the same for all open documents, one after the other, the last one first. Documents that are
    /// changed while a question is shown are asked about again. Calls `done` with false as soon as one may
    /// not be closed.
    void askAboutAll(const SavingDone& done);

private:
    /// Saves a document with a file, or asks if another program has changed the file.
    void saveBeforeClosing(Document& document, const SavingDone& done);
    /// Asks what is done with a document that could not be saved.
    void askAfterFailedSave(Document& document, const Error& error, const SavingDone& done);
    /// Shows an alert whose buttons are: save in some way, close without saving, cancel. Calls `done` with
    /// false if the document was closed while the alert was shown.
    void choose(Document& document, Alert alert, const SavingDone& done,
                void (Saving::*save)(Document&, const SavingDone&));
    /// Asks about the pending documents and those that are changed meanwhile; then calls `done`.
    void reviewFrom(std::vector<Document*> pending, const SavingDone& done);
    /// Returns the documents with changes that the user has not given up. They are owned by the list.
    std::vector<Document*> documentsToReview() const;

    const Platform platform_;
    const Parts parts_;
    std::map<const Document*, long> givenUp_; // change counts at which the user gave them up
};

} // namespace tabulon
