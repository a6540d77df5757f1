// The links of a page → a tree: addresses, names, dates. A document and its title are made by the
// application.
#pragma once

#include "base/Error.h"
#include "formats/ReadOptions.h"
#include "formats/import/PageLinks.h"
#include "model/Bookmark.h"

#include <string_view>
#include <vector>

namespace tabulon {

/// The links of one page as lists of equal order.
struct PageBookmarks {
    std::vector<Text> urls;
    std::vector<Text> names;
    /// Empty unless the page is a Netscape bookmark file.
    std::vector<Date> datesAdded;
    std::vector<Date> datesModified;
};

/// Returns whether a page begins with the document type of Netscape bookmark files.
bool isNetscapeFile(std::string_view page);

/// Returns the values of `links`, split. `domain` comes before addresses that begin with "/"; it is null for
/// none. The dates are taken when `netscapeFile` is true; a link without a date gets the present one.
PageBookmarks pageBookmarks(const PageLinks& links, bool netscapeFile, const Text& domain,
                            const BaseServices& services);

/// Returns the new root folder "Master" with a link for each pair of a name and an address: a pair of empty
/// texts is skipped, an empty name becomes "Untitled", what the longer list has more is dropped, and the kind
/// of link is not determined. Returns `nullptr` when one of the lists is empty.
Ref<Bookmark> newDocumentFromArraysLinks(const std::vector<Text>& names, const std::vector<Text>& urls,
                                         const BaseServices& services);

/// Returns the tree of `newDocumentFromArraysLinks` with the dates, which go to the links by their place in
/// the tree.
Ref<Bookmark> treeOfPage(const PageBookmarks& page, const BaseServices& services);

/// Returns the addresses, those that begin with "/" after `domain`, which is null for none.
std::vector<Text> adaptURLsDomain(const std::vector<Text>& urls, const Text& domain);

/// Returns the names without their leading white space.
std::vector<Text> adaptNames(const std::vector<Text>& names);

/// Returns the values that a script joined, each followed by a form feed: so the last one is always empty.
std::vector<Text> separatedAtFormFeeds(std::string_view joined);

/// Returns the tree of a file with a page, whose encoding is detected. Fails as `readPageLinks`.
Result<Ref<Bookmark>> readPageFile(std::string_view bytes, const ReadOptions& options);

} // namespace tabulon
