// The lists of links that programs hand each other, as texts: reading them, and telling an address from a
// text. Which list counts when there are several is MimeItems.h's.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

struct NamedLink {
    std::string url;
    /// Empty for none.
    std::string title;
};

/// A text in Mozilla's own types: UTF-16 in the order of the machine, with or without a byte-order mark, and
/// in some programs with a zero at the end.
std::string utf8OfMozilla(std::string_view bytes);

/// "text/x-moz-url": lines of address and title in turn. A line that is no address where one is due belongs
/// to the title before it.
std::vector<NamedLink> linksOfMozillaList(std::string_view bytes);

/// The same lines as UTF-8, in "_NETSCAPE_URL".
std::vector<NamedLink> linksOfPairs(std::string_view text);

/// "text/uri-list": lines, of which those that begin with "#" and those that are no address do not count.
std::vector<NamedLink> linksOfUriList(std::string_view list);

/// Returns the file URIs of a list of URIs that is one of files, as drags carry it ("text/uri-list"). Empty
/// where any other address is in the list: then it is one of links.
std::vector<std::string> fileUrisIn(std::string_view uriList);

/// The links of HTML (UTF-8) that lead to whole addresses, named by their texts in one line. None for what is
/// too large (`kLargestSelection`), too entangled to be read, or would become sixteen times as much.
std::vector<NamedLink> linksOfHtml(std::string_view html);
inline constexpr std::size_t kLargestSelection = std::size_t{1} << 26;

/// Whether the text is an address, which begins with a scheme, or one with "://" or "mailto:" stands in it.
bool hasAddress(std::string_view text);

} // namespace tabulon
