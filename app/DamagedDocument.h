// What can be offered to the user instead of a document that is damaged. The file stays as it is.
#pragma once

#include "base/BaseServices.h"
#include "model/Bookmark.h"

#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// The bookmarks of a damaged document that can still be read.
struct Remains {
    /// The root folder of a tree without a document. Never null.
    Ref<Bookmark> master;
    /// "311 of 312 bookmarks could be read."
    std::string sentence;
};

/// Reads what is left of the document with these bytes. Returns nullopt when no bookmark is left in it
/// (ArchiveSalvage.h).
std::optional<Remains> remainsOfDocument(std::string_view bytes, const BaseServices& services);

} // namespace tabulon
