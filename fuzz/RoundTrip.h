// The check that every tree accepted by a reader can be written and read as a document.
#pragma once

#include "model/ArchiveReader.h"
#include "model/ArchiveWriter.h"

#include <cstdlib>

namespace tabulon {

/// Aborts the program unless the tree, written as a document and read again, is the same document.
inline void requireRoundTrip(const Bookmark& master) {
    const std::string written = writeDocumentArchive(master);
    const Result<Ref<Bookmark>> again = readDocumentArchive(written);
    if (!again || writeDocumentArchive(**again) != written)
        std::abort();
}

} // namespace tabulon
