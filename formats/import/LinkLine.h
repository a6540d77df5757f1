// The fast path for links of a bookmark file in the form that browsers write, read in one pass.
// NetscapeScan.h reads links of every form, and reads these to the same result.
#pragma once

#include "base/Date.h"
#include "formats/import/ScannedBytes.h"

#include <optional>
#include <string_view>

namespace tabulon {

/// The limit on a link's name in bytes. The rest of a longer name is cut off.
inline constexpr std::size_t kLongestLinkName = 1024;

/// The parts of such a link.
struct LinkLine {
    std::string_view address;
    std::string_view name;
    bool addressHasReferences = false; ///< whether it contains an "&"
    bool nameHasReferences = false;
    Date added;
    Date modified;
    /// The number of bytes from the white space before the link to the end of its "</A>".
    std::size_t size = 0;
};

/// Returns the link at `from`, or after white space there, if it has exactly this form: an address that does
/// not begin with "#", dates of ten digits each, of which the second may be missing, further attributes or
/// none, and a name of 1 to `kLongestLinkName` bytes on one line that contains no tags and does not begin
/// with white space:
///     <DT><A HREF="address" ADD_DATE="…" LAST_MODIFIED="…" …>name</A>
///
/// Returns `nullopt` for every other form, for a link whose texts may contain another date, and near the end
/// of the file. The views refer to the scanned bytes, whose references ("&amp;") are not replaced. Linear in
/// the bytes examined, which are counted in `bytes`. Requires: `from` is at most the size of `bytes`.
std::optional<LinkLine> linkLineAt(const ScannedBytes& bytes, std::size_t from);

} // namespace tabulon
