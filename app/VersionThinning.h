// The rules by which kept versions of documents are removed as time passes and space is used up. VersionStore
// applies them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tabulon {

/// What the rules need of one kept version.
struct KeptVersion {
    /// The identifier of its document.
    std::string document;
    /// When it was kept, in seconds since 1970-01-01 00:00 UTC.
    double kept = 0;
    /// Its size in the store, in bytes.
    std::uint64_t size = 0;
};

/// Returns the indexes of the versions that are too close together for their age, in ascending order. Of each
/// document, these stay: every version of the last hour, the newest of each hour of the last day, the newest
/// of each day of the last 30 days, and the newest of each week before that. Hours, days and weeks are those
/// of UTC since 1970, so that they are the same at each call. `now` is in seconds since 1970-01-01 00:00 UTC.
std::vector<std::size_t> versionsTooClose(std::span<const KeptVersion> versions, double now);

/// Returns the indexes of versions to remove, in ascending order, so that the others take at most `limit`
/// bytes. The next one is always from the document that takes the most space and has more than one version:
/// the version with the shortest time between its neighbours, of two versions the older one, and never the
/// document's newest one. When each document has one version left, the oldest of them is removed.
std::vector<std::size_t> versionsOverLimit(std::span<const KeptVersion> versions, std::uint64_t limit);

} // namespace tabulon
