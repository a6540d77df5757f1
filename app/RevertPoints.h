// The states that Revert to Saved restores: the file of a document as the user opened it or last saved it, if
// the program has saved over it since. Autosaving and ClosingQuestions make the copies.
#pragma once

#include "base/SystemLog.h"
#include "model/Document.h"
#include "platform/FileStore.h"
#include "platform/RecoveryFolders.h"

#include <map>
#include <string>
#include <string_view>

namespace tabulon {

/// The copies are files in this process's recovery folder, so that they need no memory. The destructor
/// removes them; copies of a process that was killed are removed by the next one.
class RevertPoints {
public:
    /// Requires: the arguments outlive this object.
    RevertPoints(FileStore& files, RecoveryFolders& folders, SystemLog& log)
        : files_(files), folders_(folders), log_(log) {}
    RevertPoints(const RevertPoints&) = delete;
    RevertPoints& operator=(const RevertPoints&) = delete;
    ~RevertPoints();

    /// Copies the document's file. Called before the program saves over it automatically. Does nothing if
    /// there is a copy already, because the first one is what the user has left. A failure is only logged:
    /// saving matters more.
    void keep(const Document& document);
    /// Returns whether there is a copy of the document's file.
    bool has(const Document& document) const { return paths_.contains(&document); }
    /// Returns the bytes of the copy. Fails with the error of the file store, for example if the copy was
    /// removed. Requires: has(document).
    Result<std::string> read(const Document& document);
    /// Removes the document's copy, if there is one. Errors are ignored. The document is only compared, never
    /// read.
    void forget(const Document& document);

    /// Returns whether a file of this name in a recovery folder is such a copy.
    static bool isCopy(std::string_view fileName) { return fileName.ends_with(kExtension); }

private:
    /// Copies the document's file and returns the path of the copy. Fails with the error of the recovery
    /// folders or the file store.
    Result<std::string> copy(const Document& document);

    static constexpr std::string_view kExtension = ".revert";

    FileStore& files_;
    RecoveryFolders& folders_;
    SystemLog& log_;
    /// The path of each document's copy, in the file system's encoding. The documents are not owned.
    std::map<const Document*, std::string> paths_;
    /// The number in the name of the last copy.
    int lastNumber_ = 0;
};

} // namespace tabulon
