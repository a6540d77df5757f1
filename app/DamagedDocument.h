// What the user is offered when a document is damaged. The file is not changed.
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
    /// A sentence for the user, such as "311 of 312 bookmarks could be read." UTF-8, in the user's language.
    std::string sentence;
};

/// Reads what can be read of the document with these bytes (ArchiveSalvage.h). Returns `nullopt` if no
/// bookmark can be read.
std::optional<Remains> remainsOfDocument(std::string_view bytes, const BaseServices& services);

} // namespace tabulon
