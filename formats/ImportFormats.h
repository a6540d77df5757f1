// The one list of formats that documents are imported from: menus, panels, the command line and the tests go
// by it.
#pragma once

#include "formats/import/NetscapeScanner.h"
#include "model/Bookmark.h"
#include "model/Error.h"
#include "platform/BaseServices.h"

#include <span>
#include <string_view>

namespace tabulon {

/// What imports work with.
struct ImportServices {
    BaseServices base;
    /// Remembers its last item from one import to the next.
    NetscapeScanner& netscape;
};

/// What becomes of a file in which nothing was found.
enum class EmptyImport { IsTold, IsADocument };

struct ImportFormat {
    /// As on the command line.
    std::string_view name;
    /// The key of what people call it.
    std::string_view titleKey;
    /// The extensions of its files, without dots; empty for any.
    std::span<const std::string_view> extensions;
    EmptyImport empty;
    /// The tree "Master" with what the bytes hold; no children where nothing was found.
    /// Fails with a sentence.
    Result<Ref<Bookmark>> (*read)(std::string_view bytes, const ImportServices& services);
};

/// In the order in which they are offered.
std::span<const ImportFormat> importFormats();

/// Null when there is none of that name.
const ImportFormat* importFormatNamed(std::string_view name);

} // namespace tabulon
