// Revert to Saved: restoring the state that a document had when the user opened it or last saved it.
#pragma once

#include "app/DocumentAlerts.h"
#include "app/DocumentWriting.h"
#include "app/OpenDocuments.h"
#include "app/Refusals.h"
#include "window/SharedState.h"

#include <optional>
#include <string>

namespace tabulon {

/// Opens trees as new untitled documents.
class UntitledDocuments {
public:
    virtual ~UntitledDocuments() = default;
    /// Opens the tree as a new untitled document of that name, with unsaved changes. Returns `nullptr` if no
    /// window can be made.
    virtual Document* openUntitled(const Ref<Bookmark>& root, const std::string& name) = 0;
    /// Returns the offer to open what can be read of a damaged document with these bytes, as an untitled
    /// document of that name. Returns `nullopt` if `bytes` is an error or no bookmark can be read.
    virtual std::optional<Refusals::Offer> offerRemains(const Result<std::string>& bytes,
                                                        const std::string& name) = 0;
};

/// Reverts documents.
class Reverting {
public:
    /// The parts that reverting uses. All outlive it.
    struct Parts {
        OpenDocuments& documents;
        DocumentStores& stores;
        DocumentAlerts& alerts;
        DocumentWriting& writing;
        UntitledDocuments& untitled;
        SharedCommands& commands;
    };

    /// Requires: the services of `platform` and the parts outlive this object.
    Reverting(const Platform& platform, const Parts& parts) : platform_(platform), parts_(parts) {}

    /// Returns whether the document has a file and differs from its state when the user opened or last saved
    /// it.
    bool canRevert(const Document& document) const;
    /// Asks whether the document may go back to that state, and restores it. Where the program has saved over
    /// it since, the file is restored as well. If another program has changed the file, its content is read
    /// instead. Does nothing while the question about the document is shown. Requires: the document is open
    /// and has a file.
    void revertDocument(Document& document);
    /// Reads the document from its file again, without a question. Returns false, after an alert, if that
    /// fails; then the document is as it was.
    bool revertToContentsOfURL(Document& document);

private:
    enum class RevertTo { UsersVersion, File };

    /// Asks whether to revert, and returns the source; `nullopt` if the user cancels.
    std::optional<RevertTo> ask(const Document& document);
    /// Restores the document and its file from the revert point, or as `revertToContentsOfURL` does if its
    /// copy is missing. Returns false, after an alert, if that fails. If only the file cannot be written, the
    /// document is restored and has a change.
    bool revertToUsersVersion(Document& document);
    /// Replaces the tree by that of `bytes`, and hides the marks of links in every window. Returns false,
    /// after an alert, if that fails; then the document is as it was, or was closed.
    bool show(Document& document, const Result<std::string>& bytes);

    const Platform platform_;
    const Parts parts_;
};

} // namespace tabulon
