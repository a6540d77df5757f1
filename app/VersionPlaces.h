// The identity of documents for the store of versions: a document keeps its history when its file is renamed,
// moved, linked or saved again.
#pragma once

#include "platform/FileStore.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tabulon {

/// Each document of the store has an identifier, 16 hexadecimal digits, and a file "IDENTIFIER.place". Its
/// first line has the device, inode, size and time of change of the document's file in decimal digits (0 if
/// there was no file); then, for each document that it began as a copy of, that document's identifier and the
/// time of the copy in milliseconds since 1970. The path follows the line. Paths are absolute and in the file
/// system's encoding.
class VersionPlaces {
public:
    /// A document whose versions are versions of a file, if they were kept until `until` (seconds since
    /// 1970-01-01 00:00 UTC).
    struct Source {
        std::string identifier;
        double until = 0;
    };

    /// The folder need not exist. Requires: `files` outlives this object.
    VersionPlaces(FileStore& files, std::string folder) : files_(files), folder_(std::move(folder)) {}

    /// While it exists, the records are cached in memory, and changes by other programs are not seen.
    class ReadOnce {
    public:
        explicit ReadOnce(VersionPlaces& places) : places_(places) { places_.known_ = places_.readPlaces(); }
        ReadOnce(const ReadOnce&) = delete;
        ReadOnce& operator=(const ReadOnce&) = delete;
        ~ReadOnce() { places_.known_.reset(); }

    private:
        VersionPlaces& places_;
    };

    /// Returns the documents whose versions are those of the file at `path`, which may be missing: the
    /// documents with exactly that file, also after it was renamed or moved, or linked from the path; if
    /// no document has that file, those that were last known at that path; and the documents that these were
    /// copied from. Returns an empty list for an unknown file.
    std::vector<Source> sourcesOf(const std::string& path) const;

    /// Returns the identifier of the document whose file is at `path`, or was last if there is no file. If
    /// the path now has another file than before, the new file is recorded as a copy, at the time `now`, of
    /// the document that was known there, because that may have been moved and keeps its own identifier. An
    /// unknown document gets a new identifier, which `note` records.
    std::string identifierFor(const std::string& path, double now);
    /// Returns an identifier that no document has. It depends on `path`.
    std::string newIdentifier(const std::string& path) const;

    /// Records that the document's file is at `path`, as it is. Fails with the error of the file store.
    Result<void> note(const std::string& identifier, const std::string& path);
    /// Does the same for an identifier that has no record, and nothing for any other.
    Result<void> noteNew(const std::string& identifier, const std::string& path);
    /// Does the same as `note`. The versions of the document with its file at `source`, as far as they were
    /// kept until `now`, become versions of this document, too.
    Result<void> noteCopy(const std::string& identifier, const std::string& path, const std::string& source,
                          double now);

    /// Removes the record of each document that is not in `used`, whose file is no longer at its path, and
    /// that no remaining document began as a copy of. Returns the identifiers of the remaining ones.
    std::set<std::string> forgetUnused(const std::set<std::string>& used);

private:
    /// A document that another one began as a copy of, and when (milliseconds since 1970).
    struct Origin {
        std::string identifier;
        std::uint64_t copied = 0;

        friend bool operator==(const Origin&, const Origin&) = default;
    };
    /// The record of one document.
    struct Place {
        std::string identifier;
        std::optional<FileIdentity> identity = {};
        std::string path = {};
        std::vector<Origin> origins = {};

        friend bool operator==(const Place&, const Place&) = default;
    };

    /// Returns all records, cached or read from the folder.
    std::vector<Place> places() const { return known_ ? *known_ : readPlaces(); }
    /// Reads all records.
    std::vector<Place> readPlaces() const;
    /// Reads one record; `nullopt` if it is damaged or missing.
    std::optional<Place> readPlace(const std::string& name) const;
    /// Returns the record of a document, or an empty one.
    Place placeOf(const std::string& identifier) const;
    /// Writes a record, if it has changed.
    Result<void> writePlace(const Place& place);
    /// Returns the path of a record.
    std::string fileOf(const std::string& identifier) const;
    /// Returns the documents that have exactly the file at `path`.
    std::vector<std::string> withFile(const std::vector<Place>& all, const std::string& path) const;

    FileStore& files_;
    const std::string folder_;
    std::optional<std::vector<Place>> known_; // in the order of their identifiers, while they are read once
};

} // namespace tabulon
