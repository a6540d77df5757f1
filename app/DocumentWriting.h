// Writing open documents to files, and what that changes: the identity of the file, its versions, the recent
// documents, the copies for a crash.
#pragma once

#include "app/DocumentAlerts.h"
#include "app/OpenDocuments.h"
#include "app/RecentDocuments.h"
#include "app/RevertPoints.h"
#include "app/UnsavedDocuments.h"
#include "app/VersionStore.h"
#include "platform/Platform.h"

#include <string>

namespace tabulon {

/// What is kept about documents besides their files. Owns its parts.
struct DocumentStores {
    /// Requires: the services of `platform` outlive this object.
    explicit DocumentStores(const Platform& platform);

    RecentDocuments recent;
    UnsavedDocuments unsaved;
    RevertPoints revertPoints;
    VersionStore versions;
};

/// Writes documents. After a failed write the document stays changed, and the file is as it was.
class DocumentWriting {
public:
    /// Requires: the arguments and the services of `platform` outlive this object.
    DocumentWriting(const Platform& platform, DocumentStores& stores, DocumentAlerts& alerts)
        : platform_(platform), stores_(stores), alerts_(alerts) {}

    /// Writes the document because the user has asked for it, and removes its revert point. `path` becomes
    /// the document's file. Fails with the error of the file store.
    Result<void> write(OpenDocument& opened, const std::string& path);
    /// Does the same, and reports a failure in an alert. Returns whether the document was written. It may
    /// have been closed while the alert was shown.
    bool writeOrAlert(OpenDocument& opened, const std::string& path);
    /// Writes the document to its own file for an automatic save. Fails with the error of the file store.
    /// Requires: the document has a file.
    Result<void> writeByItself(OpenDocument& opened);
    /// Runs the save tasks, keeps the version that is replaced, and writes `bytes` to `path`, which becomes
    /// the document's file. The document has no changes after that. Fails with the error of the file store;
    /// then the document has the same file and changes as before. A failure of a save task or of keeping the
    /// version does not make it fail.
    Result<void> writeBytes(OpenDocument& opened, const std::string& path, const std::string& bytes);
    /// Shows the alert about a failed save. The document may be closed while it is shown. The next automatic
    /// save does not report the failure again.
    void failedSaveAlert(OpenDocument& opened, const std::string& path, const Error& error);

private:
    const Platform platform_;
    DocumentStores& stores_;
    DocumentAlerts& alerts_;
};

/// Stores the window's frame under the name of the document's file without extension. Documents of the same
/// name share one frame. Requires: the document has a window.
void saveFrameUsingName(const OpenDocument& opened, UserDefaults& state);
/// Restores the frame that is stored under that name, if there is one. Requires: the document has a window.
void restoreWindowFrame(const OpenDocument& opened, const UserDefaults& state);

} // namespace tabulon
