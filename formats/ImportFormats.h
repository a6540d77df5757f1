// The formats that documents can be imported from, each with its reader. The application's commands, the
// command line and the tests use this list.
#pragma once

#include "base/Error.h"
#include "formats/ReadOptions.h"
#include "model/Bookmark.h"

#include <span>
#include <string_view>

namespace tabulon {

struct ImportFormat {
    /// The name on the command line, ASCII.
    std::string_view name;
    /// Returns the root folder "Master" with the bookmarks in `bytes`, without children where there are none.
    /// The tree keeps no reference to `bytes`. Fails with a sentence, or with `cancelledByUser()` for a
    /// cancelled import and for a file about which the user is to see no message.
    Result<Ref<Bookmark>> (*read)(std::string_view bytes, const ReadOptions& options);
};

/// Returns all formats in the order in which they are offered. The list is constant.
std::span<const ImportFormat> importFormats();

/// Returns the format whose name on the command line is `name`, or `nullptr`.
const ImportFormat* importFormatNamed(std::string_view name);

} // namespace tabulon
