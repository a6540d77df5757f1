// Bookmark trees for measuring: made from a seed, the same on every machine, and shaped like what people
// keep. Tests of behaviour do not use them.
#pragma once

#include "model/Bookmark.h"

#include <cstddef>
#include <cstdint>

namespace tabulon::bench {

/// A root folder "Master" with exactly `links` links below it: folders up to eight deep, two of them large
/// and flat, separators, names in a dozen scripts, addresses of the usual lengths, notes and tags on every
/// eighth link, dates in whole seconds. 100,000 links make about 18 MB of bookmark HTML and 42 MB of archive.
Ref<Bookmark> makeCorpus(std::size_t links, std::uint64_t seed = 2001);

/// What a tree holds below its root.
struct TreeSize {
    std::size_t nodes = 0;
    std::size_t links = 0;
    std::size_t folders = 0;
    std::size_t separators = 0;
    std::size_t depth = 0;
    /// Bytes of all names, addresses, notes and tags.
    std::size_t textBytes = 0;
};

TreeSize sizeOf(const Bookmark& root);

} // namespace tabulon::bench
