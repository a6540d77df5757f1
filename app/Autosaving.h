// Automatic saving: documents with a file to that file; documents without one, or with one that cannot be
// written, to a copy that the next start opens.
#pragma once

#include "app/DocumentAlerts.h"
#include "app/DocumentWriting.h"
#include "app/FileConflicts.h"
#include "app/OpenDocuments.h"
#include "app/Saving.h"

#include <functional>
#include <optional>
#include <string_view>

namespace tabulon {

/// Saves documents by itself.
class Autosaving {
public:
    /// The parts that automatic saving uses. All outlive it.
    struct Parts {
        OpenDocuments& documents;
        DocumentStores& stores;
        DocumentAlerts& alerts;
        FileConflicts& conflicts;
        DocumentWriting& writing;
        Saving& saving;
    };
    /// The occasion of a save. After a pause questions may be asked; at the end even failures that lose no
    /// changes are not reported.
    enum class Moment { Pause, Deactivation, End };

    /// Requires: the services of `platform` and the parts outlive this object.
    Autosaving(const Platform& platform, const Parts& parts) : platform_(platform), parts_(parts) {}

    /// Ends the pause of a document and, if it has changes, saves it to its file or to a copy. A failure is
    /// reported once, until a save succeeds. An alert may be shown, during which the document may be closed
    /// and `opened` destroyed. Requires: the document is in the list.
    void save(OpenDocument& opened, Moment moment);
    /// Ends editing in every window and saves every document that has changes. At the end of the session info
    /// panels are closed as well. A document may be closed while an alert of another one is shown.
    void saveAll(Moment moment);

private:
    /// Calls `save` and stores how long it took. Returns the result of `save`.
    Result<void> timed(OpenDocument& opened, const std::function<Result<void>()>& save);
    /// Saves a document to its file, or to a copy if the file cannot be written or was changed.
    void saveFile(OpenDocument& opened, Moment moment);
    /// Saves a document whose file another program has changed to a copy, and asks what is done with the
    /// file.
    void saveBesideFile(OpenDocument& opened, const std::optional<FileIdentity>& identity, Moment moment);
    /// Reports a failure, unless the user knows of it. `failureKey` is the key of the alert's message.
    /// Postpones the report while an alert about the document is shown.
    void note(OpenDocument& opened, std::string_view failureKey, const Result<void>& saved);

    const Platform platform_;
    const Parts parts_;
};

} // namespace tabulon
