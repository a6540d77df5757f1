// The sources that the Import menu offers: their titles, panels and alerts. The readers are in
// formats/ImportFormats.h.
#pragma once

#include "formats/ImportFormats.h"

#include <span>
#include <string_view>

namespace tabulon {

/// How a file of another format is reported to the user.
enum class ImportFailure {
    IsSilent,
    IsDetailed,  ///< by an alert with the error's code and reason
    IsLocalized, ///< by an alert with the text of the key `failureText`
    IsFixed,     ///< by an alert with `failureText` itself
};

/// The files that a source's panel enables. A panel enables those of every filter that is set. A source that
/// keeps its filter leaves it set after its panel is closed.
enum class PanelFilter { None, HTML, XBEL };

/// One source of the Import menu.
struct ImportSource {
    /// The name of the format that reads the files (`importFormatNamed`).
    std::string_view format;
    /// The key of the menu's title.
    std::string_view titleKey;
    /// The name of the operation.
    std::string_view action;
    /// The key of the panel's message, a format for `fileName`.
    std::string_view messageKey;
    /// The name that the files must have; empty for any name.
    std::string_view fileName = {};
    /// The identifier of the browser that writes the files; empty for a source that is no browser.
    std::string_view browser = {};
    /// The name of the source in the title of the new window; empty for the title of a new document.
    std::string_view name = {};
    /// The title of the new window in every language; empty for a title with `name`, or that of a new
    /// document.
    std::string_view title = {};
    PanelFilter filter = PanelFilter::None;
    /// Whether the filter stays set after the panel is closed.
    bool keepsFilter = false;
    ImportFailure failure = ImportFailure::IsSilent;
    /// The text, or its key, for `failure`.
    std::string_view failureText = {};
    /// Whether a file that cannot be read is reported like one of another format. Otherwise it is not
    /// reported.
    bool reportsUnreadable = false;
    /// Whether the user is informed that a file contains no link. Otherwise it becomes a document without
    /// bookmarks.
    bool reportsEmpty = false;
};

/// Returns the file extensions that a filter enables, without dots.
std::span<const std::string_view> extensionsOf(PanelFilter filter);

/// Returns all sources in the order of the menu.
std::span<const ImportSource> importSources();

/// Returns the source that reads with the format of that name, or `nullptr`. Each format has one.
const ImportSource* importSourceOf(std::string_view format);

} // namespace tabulon
