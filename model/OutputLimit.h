// A limit on the size of an export. Texts are shared in memory and in documents, but not in other formats, so
// a small file whose bookmarks share one long address would otherwise fill a disk.
#pragma once

#include "base/Error.h"
#include "model/Bookmark.h"

#include <cstddef>
#include <cstdint>

namespace tabulon {

/// Returns the size of a tree in bytes: its texts, each shared one once, and 64 bytes for each node with the
/// root. Linear in the number of nodes.
std::uint64_t bytesHeldBy(const Bookmark& root);

/// The limit on the bytes that are written for a tree: kFactor times its size, but at least kAlways. The size
/// is computed only when an export exceeds kAlways.
class OutputLimit {
public:
    static constexpr std::uint64_t kFactor = 16;
    /// The limit for a small tree, in bytes.
    static constexpr std::uint64_t kAlways = std::uint64_t{64} << 20;

    /// The tree must outlive this object and must not change meanwhile.
    explicit OutputLimit(const Bookmark& root) : root_(root) {}

    /// Returns true if `bytes` exceeds the limit. Linear in the tree at the first call above kAlways, else
    /// constant time.
    bool isPassedBy(std::uint64_t bytes) { return bytes > allowed_ && isReallyPassedBy(bytes); }
    /// Returns the error of an export that exceeds the limit: a sentence, without a code.
    static tl::unexpected<Error> failure();

private:
    bool isReallyPassedBy(std::uint64_t bytes);

    const Bookmark& root_;            // not owned
    std::uint64_t allowed_ = kAlways; // in bytes; too low until the size of the tree is known
    bool isKnown_ = false;
};

} // namespace tabulon
