// Copies of documents that have no file, or one that cannot be written, from which they are restored after a
// crash or a power failure. Autosaving decides when they are written.
#pragma once

#include "model/Document.h"
#include "platform/FileStore.h"
#include "platform/RecoveryFolders.h"

#include <map>
#include <string>
#include <vector>

namespace tabulon {

/// The copies of this process. Each is a whole document file named "NUMBER NAME.tbln", with the document's
/// display name. Paths are in the file system's encoding.
class UnsavedDocuments {
public:
    /// A copy that another process has left.
    struct Copy {
        std::string path;
        /// The display name of the document.
        std::string displayName;
    };

    /// Requires: the arguments outlive this object.
    UnsavedDocuments(FileStore& files, RecoveryFolders& folders) : files_(files), folders_(folders) {}

    /// Writes the document's copy, or replaces it. Fails with the error of the file store or the recovery
    /// folders.
    Result<void> keep(const Document& document);
    /// Removes the document's copy, if there is one. Errors are ignored.
    void forget(const Document& document);

    /// Returns the copies of processes that ended without asking about their documents. Their folders belong
    /// to this process after that.
    std::vector<Copy> abandonedCopies();
    /// Makes the copy at `path` that of `document`.
    void adopt(const Document& document, const std::string& path) { paths_[&document] = path; }
    /// Renames a copy that cannot be read, so that it is not found again, and returns its new path. Returns
    /// `path` if that fails.
    std::string putAside(const std::string& path);

private:
    /// Returns the path of the document's copy, which need not exist.
    Result<std::string> pathFor(const Document& document);

    FileStore& files_;
    RecoveryFolders& folders_;
    std::map<const Document*, std::string> paths_;
    /// The number in the name of the last copy.
    int lastNumber_ = 0;
};

} // namespace tabulon
