// The program's own store of document versions: each version that a save replaces is kept here, compressed,
// until the rules of VersionThinning.h remove it. Comparing and restoring versions is in
// VersionsController.h.
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
    /// The path of the version in the store.
    std::string path;
};

/// One folder of plain files: "DOCUMENT KEPT SAVED.tbln.zst" is a version, with the document's identifier
/// (VersionPlaces.h) and both times as 2026-11-22T10-41-38.123Z, in the format of Compression.h. Files are
/// written atomically and flushed before a function returns, so a process that is killed leaves whole
/// versions. Paths are absolute and in the file system's encoding.
class VersionStore {
public:
    /// `folder` need not exist. `defaults` has the setting "VersionsLimit": the most megabytes that all
    /// versions together may take; 0 keeps no versions. Requires: the arguments outlive this object.
    VersionStore(FileStore& files, const Clock& clock, const UserDefaults& defaults, std::string folder);

    /// Returns whether versions are kept.
    bool isOn() const { return limit() > 0; }

    /// Caches the records of the documents' places until the returned object is destroyed. Used for the
    /// duration of one save.
    VersionPlaces::ReadOnce readOnce() { return VersionPlaces::ReadOnce(places_); }

    /// Keeps the version that a save replaces. Called before a document is written to `path`; `didReplace` is
    /// called after that. `fileBefore` is the document's file so far, empty for none. Fails as `keepFile`
    /// does.
    Result<void> willReplace(const std::string& path, const std::string& fileBefore);
    /// Records where the document's file is. If `fileBefore` is another file, its versions become versions of
    /// the new file, too. Requires: `willReplace` was called with the same arguments.
    void didReplace(const std::string& path, const std::string& fileBefore);

    /// Keeps the content of the file at `path`, then removes the versions that the rules give up. Equal
    /// content of one document is kept once, with its latest times. The records of documents without versions
    /// whose file is missing are removed, too. Does nothing if there is no file, and if the store is off.
    /// Fails with the error of the file store, or with a sentence for a file that is larger than the limit.
    Result<void> keepFile(const std::string& path);

    /// Does the same with content that is not in the file, such as unsaved changes.
    Result<void> keepContent(const std::string& path, std::string_view bytes);

    /// Records where a file with versions is. Called when a document is opened, so that it keeps its versions
    /// after it was renamed or moved.
    void noteOpened(const std::string& path);

    /// Returns the versions of the document whose file is, or was last, at `path`, the newest first.
    std::vector<DocumentVersion> versionsOf(const std::string& path) const;

    /// Returns the content of a version. Fails with the error of the file store, or with a sentence for a
    /// damaged file.
    Result<std::string> read(const DocumentVersion& version) const;

    /// Returns whether the file at `backup` is the one that `noteBackup` has recorded for the document at
    /// `path`, and is unchanged since.
    bool isBackupOf(const std::string& path, const std::string& backup) const;
    /// Records the file at `backup` as the backup of the document at `path`, also if the store is off.
    void noteBackup(const std::string& path, const std::string& backup);

private:
    /// Returns the most bytes that all versions together may take.
    std::uint64_t limit() const;
    /// Returns the current time in seconds since 1970-01-01 00:00 UTC.
    double now() const;
    /// Returns the file names of a document's versions.
    std::vector<std::string> versionNamesOf(const std::string& identifier) const;
    /// Keeps the content of the file at `path` as a version of that document.
    Result<void> keepFileOf(const std::string& identifier, const std::string& path);
    /// Keeps `bytes` as a version. `saved` is in seconds since 1970-01-01 00:00 UTC.
    Result<void> keep(const std::string& identifier, const std::string& path, std::string_view bytes,
                      double saved);
    /// Returns a time for a new version of the document that is later than its newest one.
    double nextTime(const std::string& path) const;
    /// Returns the path of the record of the document's backup.
    std::string backupFileOf(const std::string& identifier) const;
    /// Returns the file names of the document's versions with this compressed content.
    std::vector<std::string> equalVersions(const std::string& identifier, std::string_view frame) const;
    /// Removes the versions that the rules give up.
    void thinOut();
    /// Removes the records of documents without versions whose file is missing.
    void forgetDocumentsWithoutVersions();
    /// Removes those of the files whose index is in `indexes`.
    void remove(const std::vector<std::string>& names, const std::vector<std::size_t>& indexes);

    FileStore& files_;
    const Clock& clock_;
    const UserDefaults& defaults_;
    const std::string folder_;
    VersionPlaces places_;
    std::string replaced_; // the identifier of the document that is being written
};

} // namespace tabulon
