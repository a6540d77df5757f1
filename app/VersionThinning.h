// Which kept versions of documents go as time passes and space is used up. Rules only; VersionStore applies
// them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tabulon {

/// What the rules know of one kept version.
struct KeptVersion {
    /// The document that it belongs to.
    std::string document;
    /// When it was kept, in seconds since 1970-01-01 00:00 UTC.
    double kept = 0;
    /// Bytes that it takes in the store.
    std::uint64_t size = 0;
};

/// Returns the indexes of the versions that are too close together for their age, in ascending order. Of each
/// document every version of the last hour stays; of the last day the newest of each hour; of the last 30
/// days the newest of each day; before that the newest of each week (hours, days and weeks of UTC, so that
/// they do not shift from one look to the next).
std::vector<std::size_t> versionsTooClose(std::span<const KeptVersion> versions, double now);

/// Returns the indexes of versions to remove, in ascending order, so that the others take at most `limit`
/// bytes. Each comes from the document that takes the most space and has more than one version: the one with
/// the least time between its neighbours, never that document's newest one. When each document has one
/// version left, the oldest goes. The newest version of all goes last.
std::vector<std::size_t> versionsOverLimit(std::span<const KeptVersion> versions, std::uint64_t limit);

} // namespace tabulon
