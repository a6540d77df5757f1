// The one list of formats that documents are imported from: what reads them. The application's commands, the
// command line and the tests use it.
#pragma once

#include "base/Error.h"
#include "formats/ReadOptions.h"
#include "model/Bookmark.h"

#include <span>
#include <string_view>

namespace tabulon {

/// What a tree without children means to the user.
enum class EmptyImport {
    IsTold,      ///< there is no link in the file
    IsADocument, ///< an empty list of bookmarks
};

struct ImportFormat {
    /// The name on the command line.
    std::string_view name;
    EmptyImport empty = EmptyImport::IsADocument;
    /// Returns the tree "Master" of the bookmarks in `bytes`, without children when there are none. Fails
    /// with a sentence, or with `cancelledByUser`, also for a file about which nothing is to be reported.
    Result<Ref<Bookmark>> (*read)(std::string_view bytes, const ReadOptions& options);
};

/// Returns all formats in the order in which they are offered.
std::span<const ImportFormat> importFormats();

/// Returns the format of that name, or `nullptr`.
const ImportFormat* importFormatNamed(std::string_view name);

} // namespace tabulon
