// The thread by which nodes hang on a document without owning it.
#pragma once

#include <cstdint>

namespace tabulon {

class Document;

/// Counted, one for each document. The document makes it and clears `document` when it goes, so that a node
/// that outlives its document (a copied one, a search result) finds nothing instead of a dangling pointer.
struct DocumentAnchor {
    Document* document = nullptr;

    void retain() noexcept { ++references; }
    void release() noexcept {
        if (--references == 0)
            delete this;
    }

    std::uint32_t references = 1;
};

} // namespace tabulon
