// The formats that a document can be exported to. Menus, panels, the command line and the tests read this
// list.
#pragma once

#include "base/BaseServices.h"
#include "base/Error.h"
#include "base/Progress.h"
#include "model/Bookmark.h"

#include <span>
#include <string>
#include <string_view>

namespace tabulon {

struct ExportFormat {
    /// The name on the command line, ASCII.
    std::string_view name;
    /// The key of the localized name that the user sees.
    std::string_view titleKey;
    /// The extension of its files, in lower case and without a dot.
    std::string_view extension;
    /// The keys of the settings that an export panel offers for the format. `write` reads all of them but
    /// `SaveAsHTML`, which applies to saving.
    std::span<const std::string_view> options;
    /// Returns the bytes of a file, UTF-8, with the children of `master`, written according to the settings.
    /// `progress` may be `nullptr`; it is not owned. Fails with `cancelledByUser()` after `progress` has
    /// cancelled the export, and with a sentence where the file would be too large.
    Result<std::string> (*write)(const Bookmark& master, const BaseServices& services, Progress* progress);
};

/// Returns all formats in the order in which they are offered: HTML, XBEL, text. The list is constant.
std::span<const ExportFormat> exportFormats();

/// Returns the format that files of this extension are written in: text for every extension but "html" and
/// "xbel". `extension` is without a dot; letter case counts.
const ExportFormat& exportFormatForExtension(std::string_view extension);

/// Returns the format whose name on the command line is `name`, or `nullptr`.
const ExportFormat* exportFormatNamed(std::string_view name);

} // namespace tabulon
