// The lists of links that programs pass to each other, as texts: parsing them, and separating addresses from
// other text. Which list is used when there are several is decided in MimeItems.h.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// A link of a list. Texts are UTF-8.
struct NamedLink {
    /// The address, as in the list.
    std::string url;
    /// Empty for a link without a title.
    std::string title;
};

/// Returns a text of Mozilla's own types as UTF-8. Such a text is UTF-16 in the byte order of the machine,
/// with or without a byte-order mark; what follows a zero is ignored.
std::string utf8OfMozilla(std::string_view bytes);

/// Returns the links of "text/x-moz-url": UTF-16 lines with address and title in turn. Where an address is
/// expected, a line that is none is appended to the title before it.
std::vector<NamedLink> linksOfMozillaList(std::string_view bytes);

/// Returns the links of such lines in UTF-8, as in "_NETSCAPE_URL".
std::vector<NamedLink> linksOfPairs(std::string_view text);

/// Returns the links of "text/uri-list", without titles. Lines that begin with "#", and lines that are no
/// address, are skipped.
std::vector<NamedLink> linksOfUriList(std::string_view list);

/// Returns the file URIs of a "text/uri-list" that has files only. Returns an empty list if it has any other
/// address, or none.
std::vector<std::string> fileUrisIn(std::string_view uriList);

/// Returns the links of HTML (UTF-8) that lead to absolute addresses, each with its text in one line as the
/// title. Returns an empty list for HTML of more than `kLargestSelection` bytes, for HTML that cannot be
/// parsed (`readPageLinks`), and where addresses and texts together are more than sixteen times its size.
std::vector<NamedLink> linksOfHtml(std::string_view html);
inline constexpr std::size_t kLargestSelection = std::size_t{1} << 26;

/// Returns whether the text begins with an address, that is with a scheme, or contains "://" or "mailto:".
bool hasAddress(std::string_view text);

} // namespace tabulon
