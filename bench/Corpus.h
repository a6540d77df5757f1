// Bookmark trees for measurements: generated from a seed, equal on every machine, and similar to trees of
// users. Tests of behaviour do not use them.
#pragma once

#include "model/Bookmark.h"

#include <cstddef>
#include <cstdint>

namespace tabulon::bench {

/// Returns a root folder "Master" with exactly `links` links below it: folders up to eight deep, two of them
/// large and flat, separators, names in a dozen scripts, addresses of usual lengths, notes and tags on every
/// eighth link, dates in whole seconds. 100,000 links make about 18 MB of bookmark HTML and 42 MB of archive.
Ref<Bookmark> makeCorpus(std::size_t links, std::uint64_t seed = 2001);

/// The numbers of nodes below the root of a tree.
struct TreeSize {
    std::size_t nodes = 0;
    std::size_t links = 0;
    std::size_t folders = 0;
    std::size_t separators = 0;
    /// The number of levels of nested folders.
    std::size_t depth = 0;
    /// Bytes of all names, addresses, notes and tags.
    std::size_t textBytes = 0;
};

/// Returns the numbers for the nodes below `root`. Linear.
TreeSize sizeOf(const Bookmark& root);

} // namespace tabulon::bench
