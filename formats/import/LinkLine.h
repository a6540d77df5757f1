// A link of a bookmark file in the form that browsers give it, read in one go. NetscapeScan.h reads links in
// every form, and comes to the same for these, only slower.
#pragma once

#include "base/Date.h"
#include "formats/import/ScannedBytes.h"

#include <optional>
#include <string_view>

namespace tabulon {

/// Of a longer name the rest is cut off, in bytes.
inline constexpr std::size_t kLongestLinkName = 1024;

/// What such a line says.
struct LinkLine {
    std::string_view address;
    std::string_view name;
    bool addressHasReferences = false; ///< an "&" is in it
    bool nameHasReferences = false;
    Date added;
    Date modified;
    /// How many bytes it takes with the white space before it, up to the end of its "</A>".
    std::size_t size = 0;
};

/// The link at `from` or behind the white space there, if it is written so, with dates of ten digits, more
/// attributes or none, and a name on one line without tags and without white space before it:
///     <DT><A HREF="address" ADD_DATE="…" LAST_MODIFIED="…" …>name</A>
/// The second date may be missing. Nothing for every other form, where a date might stand in a text, and at
/// the end of the file. The views are parts of the file, still with their references.
std::optional<LinkLine> linkLineAt(const ScannedBytes& bytes, std::size_t from);

} // namespace tabulon
