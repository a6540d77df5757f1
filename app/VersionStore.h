// The program's own store of document versions: every version that a save replaces is kept here, compressed,
// until the rules of VersionThinning.h remove it. What a version is compared with and how it is put back is
// in VersionsController.h.
#pragma once

#include "app/VersionPlaces.h"
#include "app/VersionThinning.h"
#include "base/Clock.h"
#include "base/Date.h"
#include "base/UserDefaults.h"
#include "platform/FileStore.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// One kept version of a document.
struct DocumentVersion {
    /// When the document's file got this content.
    Date saved;
    /// When another version replaced it.
    Date kept;
    /// The file in the store.
    std::string path;
};

/// One folder of plain files: "DOCUMENT KEPT SAVED.tbln.zst" is a version, with the document's identifier
/// (VersionPlaces.h) and both times as 2026-11-22T10-41-38.123Z, in the format of Compression.h. Files are
/// written atomically and flushed before a function returns, so a program that is killed leaves whole
/// versions behind. Paths are absolute and in the file system's encoding.
class VersionStore {
public:
    /// `folder` need not exist. What is handed in must live longer. `defaults` has the setting
    /// "VersionsLimit": the megabytes that all versions may take, 0 for keeping none.
    VersionStore(FileStore& files, const Clock& clock, const UserDefaults& defaults, std::string folder);

    bool isOn() const { return limit() > 0; }

    /// Until it goes, the records of where documents are are read once; for the length of one save.
    VersionPlaces::ReadOnce readOnce() { return VersionPlaces::ReadOnce(places_); }

    /// To be called before a document is written to `path`, and `didReplace` after it was: keeps the version
    /// that is replaced, and records where the document's file is. `fileBefore` is the file under which the
    /// document was known so far, empty for none: its versions are also versions of the new file. Errors as
    /// `keepFile`.
    Result<void> willReplace(const std::string& path, const std::string& fileBefore);
    void didReplace(const std::string& path, const std::string& fileBefore);

    /// Keeps the content that the file at `path` has now, then removes what the rules no longer hold. Equal
    /// content of one document is kept once, with its latest times. Of documents that have no version any
    /// more and whose file is gone from its path, nothing stays. Does nothing without a file there, and when
    /// the store is off. Fails with the error of the file store; a file larger than the limit fails with a
    /// sentence.
    Result<void> keepFile(const std::string& path);

    /// The same for content that is not in the file yet, such as unsaved changes.
    Result<void> keepContent(const std::string& path, std::string_view bytes);

    /// Records, for a file with versions, where it is now; to be called when a document is opened, so that it
    /// keeps them after it was renamed or moved.
    void noteOpened(const std::string& path);

    /// Returns the versions of the document whose file is, or was last, at `path`, newest first.
    std::vector<DocumentVersion> versionsOf(const std::string& path) const;

    /// Returns the content of a version. Fails with the error of the file store and for damaged files.
    Result<std::string> read(const DocumentVersion& version) const;

    /// Whether the file at `backup` is the one that `noteBackup` recorded for the document at `path`,
    /// unchanged since. Backups are recorded also when the store is off.
    bool isBackupOf(const std::string& path, const std::string& backup) const;
    void noteBackup(const std::string& path, const std::string& backup);

private:
    std::uint64_t limit() const;
    double now() const;
    std::vector<std::string> versionNamesOf(const std::string& identifier) const;
    Result<void> keepFileOf(const std::string& identifier, const std::string& path);
    Result<void> keep(const std::string& identifier, const std::string& path, std::string_view bytes,
                      double saved);
    double nextTime(const std::string& path) const;
    std::string backupFileOf(const std::string& identifier) const;
    std::vector<std::string> equalVersions(const std::string& identifier, std::string_view frame) const;
    void thinOut();
    void forgetDocumentsWithoutVersions();
    void remove(const std::vector<std::string>& names, const std::vector<std::size_t>& indexes);

    FileStore& files_;
    const Clock& clock_;
    const UserDefaults& defaults_;
    const std::string folder_;
    VersionPlaces places_;
    std::string replaced_; // the identifier of the document that is being written
};

} // namespace tabulon
