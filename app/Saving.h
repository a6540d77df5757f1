// Save and Save As.
#pragma once

#include "app/DocumentAlerts.h"
#include "app/DocumentWriting.h"
#include "app/FileConflicts.h"
#include "app/OpenDocuments.h"
#include "app/Reverting.h"

#include <functional>

namespace tabulon {

/// Receives whether the operation was done: false if the user has cancelled it or it has failed. A failure
/// has been reported to the user before.
using SavingDone = std::function<void(bool done)>;

/// Saves documents by command.
class Saving {
public:
    /// The parts that saving uses. All outlive it.
    struct Parts {
        OpenDocuments& documents;
        DocumentAlerts& alerts;
        FileConflicts& conflicts;
        DocumentWriting& writing;
        Reverting& reverting;
    };

    /// Requires: the services of `platform` and the parts outlive this object.
    Saving(const Platform& platform, const Parts& parts) : platform_(platform), parts_(parts) {}

    /// Saves the document to its file, or asks for one as `saveDocumentAs` does. If another program has
    /// changed, moved or removed the file since it was read or written, the user first decides what is done.
    /// Requires: the document is open. `done` is called before this returns, or later if a panel asks for a
    /// file.
    void saveDocument(Document& document, const SavingDone& done);
    /// Asks in a panel for a file and saves the document to it. Refuses, with an alert, a file that another
    /// open document has. Calls `done` when the panel has closed, with false if the document was closed
    /// meanwhile. Requires: the document is open.
    void saveDocumentAs(Document& document, const SavingDone& done);

private:
    /// Saves the document to the file at `path`, which was chosen in the panel. Requires: the document is
    /// open.
    void saveTo(Document& document, const std::string& path, const SavingDone& done);

    const Platform platform_;
    const Parts parts_;
};

} // namespace tabulon
