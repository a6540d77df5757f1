// The one list of formats that a document is exported to: menus, panels, the command line and the tests go by
// it.
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
    /// As on the command line.
    std::string_view name;
    /// The key of what people call it.
    std::string_view titleKey;
    /// Of its files, without a dot.
    std::string_view extension;
    /// The keys of the settings that say how it is written.
    std::span<const std::string_view> options;
    /// The whole file for the children of `master`, as the settings say. `progress` is told how far it is;
    /// null when nobody watches. Fails with a sentence.
    Result<std::string> (*write)(const Bookmark& master, const BaseServices& services, Progress* progress);
};

/// In the order in which they are offered: HTML, XBEL, text.
std::span<const ExportFormat> exportFormats();

/// The format that a file of this extension is written in: what is neither "html" nor "xbel" is text.
const ExportFormat& exportFormatForExtension(std::string_view extension);

/// Null when there is none of that name.
const ExportFormat* exportFormatNamed(std::string_view name);

} // namespace tabulon
