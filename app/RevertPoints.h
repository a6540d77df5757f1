// What Revert to Saved goes back to: the file of a document as the user opened it or last saved it himself,
// where the program has saved over it since. When a copy is made and when it goes is DocumentController's
// concern.
#pragma once

#include "base/SystemLog.h"
#include "model/Document.h"
#include "platform/FileStore.h"
#include "platform/RecoveryFolders.h"

#include <map>
#include <string>
#include <string_view>

namespace tabulon {

/// The copies are files in this run's recovery folder, so that they need no memory. They last as long as this
/// object: the copies of a run that was killed are removed by the next one.
class RevertPoints {
public:
    /// What is handed in must live longer.
    RevertPoints(FileStore& files, RecoveryFolders& folders, SystemLog& log)
        : files_(files), folders_(folders), log_(log) {}
    RevertPoints(const RevertPoints&) = delete;
    RevertPoints& operator=(const RevertPoints&) = delete;
    ~RevertPoints();

    /// Copies the document's file, to be called before the program saves over it. Does nothing where there is
    /// a copy already: the first one is what the user left. A copy that cannot be made is left out and
    /// logged, because saving matters more.
    void keep(const Document& document);
    bool has(const Document& document) const { return paths_.contains(&document); }
    /// The bytes of the copy. Requires one.
    Result<std::string> read(const Document& document);
    /// Removes the document's copy, if there is one.
    void forget(const Document& document);

    /// Whether a file in a recovery folder is such a copy.
    static bool isCopy(std::string_view fileName) { return fileName.ends_with(kExtension); }

private:
    Result<std::string> copy(const Document& document);

    static constexpr std::string_view kExtension = ".revert";

    FileStore& files_;
    RecoveryFolders& folders_;
    SystemLog& log_;
    std::map<const Document*, std::string> paths_;
    int lastNumber_ = 0;
};

} // namespace tabulon
