// A weak reference from nodes to their document.
#pragma once

#include <cstdint>

namespace tabulon {

class Document;

/// One counted object for each document. The document sets `document` to nullptr when it is destroyed, so
/// that a node that outlives it (a copy, a search result) has no dangling pointer. The count is not atomic.
struct DocumentAnchor {
    /// The document, or nullptr after its destruction.
    Document* document = nullptr;

    /// Adds and removes a count; see Ref. `release` destroys the anchor with its last count.
    void retain() noexcept { ++references; }
    void release() noexcept {
        if (--references == 0)
            delete this;
    }

    /// The number of counts. A new anchor has one, for `Ref::adopt`.
    std::uint32_t references = 1;
};

} // namespace tabulon
