// Which document a file is, for the store of versions: a document keeps its history when its file is renamed,
// moved, linked or saved anew.
#pragma once

#include "platform/FileStore.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tabulon {

/// Each document of the store has an identifier, 16 hexadecimal digits, and a file "IDENTIFIER.place" with
/// what was last known of its file: one line of device, inode, size and time of change in decimal digits (0
/// where there was no file) and, for each document that it began as a copy of, that one's identifier and the
/// time of the copy in milliseconds since 1970; then the path. Paths are absolute and in the file system's
/// encoding.
class VersionPlaces {
public:
    /// A document whose versions are versions of a file, as far as they were kept until `until` (seconds
    /// since 1970-01-01 00:00 UTC).
    struct Source {
        std::string identifier;
        double until = 0;
    };

    /// The folder need not exist. What is handed in must live longer.
    VersionPlaces(FileStore& files, std::string folder) : files_(files), folder_(std::move(folder)) {}

    /// Until it goes, the records are kept in memory: what another program writes meanwhile is not seen.
    class ReadOnce {
    public:
        explicit ReadOnce(VersionPlaces& places) : places_(places) { places_.known_ = places_.readPlaces(); }
        ReadOnce(const ReadOnce&) = delete;
        ReadOnce& operator=(const ReadOnce&) = delete;
        ~ReadOnce() { places_.known_.reset(); }

    private:
        VersionPlaces& places_;
    };

    /// Returns the documents whose versions are those of the file at `path`, which may be gone: the one with
    /// exactly that file (also after it was renamed or moved) or the one whose path leads to it; else those
    /// that were last known at that path; and the documents that these were copied from. Empty for an unknown
    /// file.
    std::vector<Source> sourcesOf(const std::string& path) const;

    /// Returns the identifier of the document whose file is at `path`. Where another file is at the path than
    /// the one that was known there, that may have been moved and keep its document: the new file becomes a
    /// copy of it at the time `now`. A document that is not known gets an identifier, by which `note` makes
    /// it known. Where there is no file the document last known at the path is meant.
    std::string identifierFor(const std::string& path, double now);
    /// Returns an identifier that no document has.
    std::string newIdentifier(const std::string& path) const;

    /// Records that the document's file is at `path` as it is now.
    Result<void> note(const std::string& identifier, const std::string& path);
    /// The same for an identifier that is not known yet; does nothing for a known one.
    Result<void> noteNew(const std::string& identifier, const std::string& path);
    /// The same as `note`; from now on the versions of the document with its file at `source`, as they were
    /// at the time `now`, are versions of this one, too.
    Result<void> noteCopy(const std::string& identifier, const std::string& path, const std::string& source,
                          double now);

    /// Removes the records of documents that are not `used`, whose file is at their path no more, and that no
    /// document with a record left began as a copy of. Returns the identifiers of the others.
    std::set<std::string> forgetUnused(const std::set<std::string>& used);

private:
    struct Origin {
        std::string identifier;
        std::uint64_t copied = 0;

        friend bool operator==(const Origin&, const Origin&) = default;
    };
    struct Place {
        std::string identifier;
        std::optional<FileIdentity> identity = {};
        std::string path = {};
        std::vector<Origin> origins = {};

        friend bool operator==(const Place&, const Place&) = default;
    };

    std::vector<Place> places() const { return known_ ? *known_ : readPlaces(); }
    std::vector<Place> readPlaces() const;
    std::optional<Place> readPlace(const std::string& name) const;
    Place placeOf(const std::string& identifier) const;
    Result<void> writePlace(const Place& place);
    std::string fileOf(const std::string& identifier) const;
    std::vector<std::string> withFile(const std::vector<Place>& all, const std::string& path) const;

    FileStore& files_;
    const std::string folder_;
    std::optional<std::vector<Place>> known_; // in the order of their identifiers, while they are read once
};

} // namespace tabulon
