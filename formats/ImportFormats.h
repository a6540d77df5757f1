// The one list of formats that documents are imported from: menus, panels, the command line and the tests go
// by it.
#pragma once

#include "base/BaseServices.h"
#include "base/Error.h"
#include "base/Progress.h"
#include "formats/import/NetscapeScanner.h"
#include "model/Bookmark.h"

#include <span>
#include <string_view>

namespace tabulon {

/// What imports work with.
struct ImportServices {
    BaseServices base;
    /// Remembers its last item from one import to the next.
    NetscapeScanner& netscape;
    /// Null when nobody watches.
    Progress* progress = nullptr;
};

/// What becomes of a file in which nothing was found.
enum class EmptyImport { IsTold, IsADocument };

/// How a window tells that a file is not of the format; the command line always gives the sentence.
enum class ImportFailure {
    IsSilent,
    IsDetailed,  ///< with the error's code and reason
    IsLocalized, ///< by the text of the key `failureText`
    IsFixed,     ///< by `failureText` itself
};

/// The files that a format's panel enables. A panel enables those of every filter that is set, and one that
/// keeps its filter leaves it set when it closes.
enum class PanelFilter { None, HTML, XBEL };

struct ImportFormat {
    /// As on the command line.
    std::string_view name;
    /// The key of the menu's title.
    std::string_view titleKey;
    /// The operation behind the menu item.
    std::string_view action;
    /// The key of what the panel says: a format for `fileName`.
    std::string_view messageKey;
    /// The exact name that its files have; empty for any.
    std::string_view fileName = {};
    /// The browser whose files they are, as browsers are identified; empty for none.
    std::string_view browser = {};
    /// Which source the title of the new window names; empty for the title that every new document has.
    std::string_view source = {};
    /// The title of the new window, whatever the language; empty where `source` tells, or nothing does.
    std::string_view title = {};
    PanelFilter filter = PanelFilter::None;
    bool keepsFilter = false;
    EmptyImport empty = EmptyImport::IsADocument;
    ImportFailure failure = ImportFailure::IsSilent;
    std::string_view failureText = {};
    /// Whether a file that cannot be read at all is told like one of another format.
    bool tellsUnreadable = false;
    /// The tree "Master" with what the bytes hold; no children where nothing was found. Fails with a
    /// sentence, or with the Cocoa error "cancelled" for a file in which there is no reason to tell anything.
    Result<Ref<Bookmark>> (*read)(std::string_view bytes, const ImportServices& services);
};

/// The extensions that a filter enables, without dots.
std::span<const std::string_view> extensionsOf(PanelFilter filter);

/// In the order in which they are offered.
std::span<const ImportFormat> importFormats();

/// Null when there is none of that name.
const ImportFormat* importFormatNamed(std::string_view name);

} // namespace tabulon
