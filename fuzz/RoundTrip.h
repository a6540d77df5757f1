// What must hold for every tree that a reader accepts.
#pragma once

#include "model/ArchiveReader.h"
#include "model/ArchiveWriter.h"

#include <cstdlib>

namespace tabulon {

/// Ends the program unless the tree, written as a document and read again, is the same document.
inline void requireRoundTrip(const Bookmark& master) {
    const std::string written = writeDocumentArchive(master);
    const Result<Ref<Bookmark>> again = readDocumentArchive(written);
    if (!again || writeDocumentArchive(**again) != written)
        std::abort();
}

} // namespace tabulon
