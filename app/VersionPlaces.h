// Which document a file is, for the store of versions: a document keeps its history when its file is renamed,
// moved, linked or saved anew.
#pragma once

#include "platform/FileStore.h"

#include <optional>
#include <string>
#include <vector>

namespace tabulon {

/// Each document of the store has an identifier, 16 hexadecimal digits, and a file "IDENTIFIER.place" with
/// what was last known of its file: one line of device, inode, size and time of change in decimal digits (0
/// where there was no file), for a document that began as a copy also the identifier of its source and the
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

    /// Returns the documents whose versions are those of the file at `path`, which may be gone: the one with
    /// exactly that file (also after it was renamed or moved), every one that was last known at that path,
    /// the one whose path leads to the same file (a link), and those that they were copied from. The first
    /// one is the document itself. Empty when there is none.
    std::vector<Source> sourcesOf(const std::string& path) const;

    /// Returns the identifier of the document at `path`, a new one when it is not known yet. `note` makes the
    /// new one known.
    std::string identifierFor(const std::string& path) const;

    /// Records that the document's file is at `path` as it is now.
    Result<void> note(const std::string& identifier, const std::string& path);

    /// The same for an identifier that is not known yet; does nothing for a known one.
    Result<void> noteNew(const std::string& identifier, const std::string& path);

    /// Records that the document at `path` is from now on a copy of the one that has its file at `source`.
    Result<void> noteCopy(const std::string& path, const std::string& source, double now);

private:
    struct Place {
        std::string identifier;
        std::optional<FileIdentity> identity = {};
        std::string path = {};
        std::string copyOf = {};
        std::uint64_t copied = 0;
    };

    std::vector<Place> places() const;
    std::optional<Place> readPlace(const std::string& name) const;
    Result<void> writePlace(const Place& place);
    std::string fileOf(const std::string& identifier) const;

    FileStore& files_;
    const std::string folder_;
};

} // namespace tabulon
