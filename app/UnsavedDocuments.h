// Copies of documents that have no file yet, or one that cannot be written now, kept so that they are there
// again after a crash or a cut of power. When they are written is DocumentController's affair.
#pragma once

#include "model/Document.h"
#include "platform/FileStore.h"
#include "platform/RecoveryFolders.h"

#include <map>
#include <string>
#include <vector>

namespace tabulon {

/// Each copy is a whole document file named "NUMBER NAME.tbln" after the document's display name.
class UnsavedDocuments {
public:
    /// A copy that a run of the program left behind.
    struct Copy {
        std::string path;
        /// What the document was called.
        std::string displayName;
    };

    /// What is handed in must live longer.
    UnsavedDocuments(FileStore& files, RecoveryFolders& folders) : files_(files), folders_(folders) {}

    /// Writes the document's copy anew.
    Result<void> keep(const Document& document);
    /// Removes the document's copy, if there is one.
    void forget(const Document& document);

    /// What runs left behind that ended without asking about their documents.
    std::vector<Copy> abandonedCopies();
    /// From now on the copy at `path` is that of `document`.
    void adopt(const Document& document, const std::string& path) { paths_[&document] = path; }
    /// Gives a copy that cannot be read a name under which it is not found again, and gives that name.
    std::string putAside(const std::string& path);

private:
    Result<std::string> pathFor(const Document& document);

    FileStore& files_;
    RecoveryFolders& folders_;
    std::map<const Document*, std::string> paths_;
    int lastNumber_ = 0;
};

} // namespace tabulon
