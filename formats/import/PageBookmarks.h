// The links of a page → tree: addresses, names and dates. The application makes the document and its title.
#pragma once

#include "base/Error.h"
#include "formats/ReadOptions.h"
#include "formats/import/PageLinks.h"
#include "model/Bookmark.h"

#include <string_view>
#include <vector>

namespace tabulon {

/// The links of one page as lists in the same order.
struct PageBookmarks {
    std::vector<Text> urls;
    std::vector<Text> names;
    /// Empty unless the page is a Netscape bookmark file.
    std::vector<Date> datesAdded;
    std::vector<Date> datesModified;
};

/// Returns whether a page begins with the document type of Netscape bookmark files.
bool isNetscapeFile(std::string_view page);

/// Returns the values of `links`, split into lists. `domain` is prepended to each address that begins with
/// "/"; it may be null. The lists of dates are filled only if `netscapeFile` is true. A link without a date
/// has the present one, and a date that is no number is 1970-01-01 00:00 UTC.
PageBookmarks pageBookmarks(const PageLinks& links, bool netscapeFile, const Text& domain,
                            const BaseServices& services);

/// Returns the root folder "Master" with a link for each pair of a name and an address. A pair of empty texts
/// is skipped, an empty name becomes "Untitled", and the surplus of the longer list is dropped. The types of
/// links are not determined. Returns `nullptr` where one of the lists is empty.
Ref<Bookmark> newDocumentFromArraysLinks(const std::vector<Text>& names, const std::vector<Text>& urls,
                                         const BaseServices& services);

/// Returns the tree of `newDocumentFromArraysLinks` with the dates of the page: each date is set on the link
/// at the same index in the tree. Returns `nullptr` as that function does.
Ref<Bookmark> treeOfPage(const PageBookmarks& page, const BaseServices& services);

/// Returns the addresses, with `domain` before each that begins with "/"; unchanged where `domain` is null.
std::vector<Text> adaptURLsDomain(const std::vector<Text>& urls, const Text& domain);

/// Returns the names without their leading white space (tab, line feed, form feed, carriage return, space).
std::vector<Text> adaptNames(const std::vector<Text>& names);

/// Returns the parts of `joined` between form feeds. It has one more element than there are form feeds, so
/// the last one of values that are each followed by a form feed is empty. Requires: UTF-8.
std::vector<Text> separatedAtFormFeeds(std::string_view joined);

/// Returns the tree of the links of the page in `bytes`, whose encoding is detected by `decodeText`. Fails as
/// `readPageLinks`.
Result<Ref<Bookmark>> readPageFile(std::string_view bytes, const ReadOptions& options);

} // namespace tabulon
