// The sources that the Import menu offers: their titles, panels and alerts. What reads them is
// formats/ImportFormats.h.
#pragma once

#include "formats/ImportFormats.h"

#include <span>
#include <string_view>

namespace tabulon {

/// How the user is told that a file is not of the format.
enum class ImportFailure {
    IsSilent,
    IsDetailed,  ///< with the error's code and reason
    IsLocalized, ///< by the text of the key `failureText`
    IsFixed,     ///< by `failureText` itself
};

/// The files that a source's panel enables. A panel enables those of every filter that is set, and one that
/// keeps its filter leaves it set when it closes.
enum class PanelFilter { None, HTML, XBEL };

struct ImportSource {
    /// The name of what reads the files, as `importFormatNamed` knows it.
    std::string_view format;
    /// The key of the menu's title.
    std::string_view titleKey;
    std::string_view action;
    /// The key of the panel's message, a format for `fileName`.
    std::string_view messageKey;
    /// The exact name that the files have; empty for any.
    std::string_view fileName = {};
    /// The identifier of the browser that the files belong to; empty for none.
    std::string_view browser = {};
    /// The name of the source in the title of the new window; empty for the title that every new document
    /// has.
    std::string_view name = {};
    /// The title of the new window, whatever the language; empty for a title made of `name`, or the usual
    /// one.
    std::string_view title = {};
    PanelFilter filter = PanelFilter::None;
    bool keepsFilter = false;
    ImportFailure failure = ImportFailure::IsSilent;
    std::string_view failureText = {};
    /// Whether a file that cannot be read at all is reported like one of another format.
    bool tellsUnreadable = false;
};

/// Returns the file extensions that a filter enables, without dots.
std::span<const std::string_view> extensionsOf(PanelFilter filter);

/// Returns all sources in the order of the menu.
std::span<const ImportSource> importSources();

/// Returns the source that reads with the format of that name, or `nullptr`.
const ImportSource* importSourceOf(std::string_view format);

} // namespace tabulon
