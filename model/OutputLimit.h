// How much may be made of one tree. Texts are shared in memory and in documents, but not in other formats: a
// small file whose bookmarks share one long address would fill a disk.
#pragma once

#include "base/Error.h"
#include "model/Bookmark.h"

#include <cstddef>
#include <cstdint>

namespace tabulon {

/// What a tree takes when each shared text counts once: its texts, and 64 bytes for each node. The root
/// counts too.
std::uint64_t bytesHeldBy(const Bookmark& root);

/// The limit on the bytes that are written of a tree: sixteen times what it takes, or 64 MiB where that is
/// more. The tree is looked at only when 64 MiB are passed.
class OutputLimit {
public:
    static constexpr std::uint64_t kFactor = 16;
    static constexpr std::uint64_t kAlways = std::uint64_t{64} << 20;

    /// The tree must live longer and not change.
    explicit OutputLimit(const Bookmark& root) : root_(root) {}

    /// Whether so many bytes are too many.
    bool isPassedBy(std::uint64_t bytes) { return bytes > allowed_ && isReallyPassedBy(bytes); }
    static tl::unexpected<Error> failure();

private:
    bool isReallyPassedBy(std::uint64_t bytes);

    const Bookmark& root_;
    std::uint64_t allowed_ = kAlways;
    bool isKnown_ = false;
};

} // namespace tabulon
