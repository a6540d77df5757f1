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

    void retain() noexcept { ++references; }
    void release() noexcept {
        if (--references == 0)
            delete this;
    }

    std::uint32_t references = 1;
};

} // namespace tabulon
