// A page → a document with all its links: titles, names, dates. The page comes from a file, the clipboard or
// a browser; the command around it (panel, window, bringing the program to the front) is the application's.
#pragma once

#include "base/BaseServices.h"
#include "base/Error.h"
#include "formats/import/PageLinks.h"
#include "model/Bookmark.h"

#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// The new root folder "Master" with a link for each pair of a name and an address: a pair of empty texts is
/// skipped, an empty name is "Untitled", what the longer array has more is passed over, and the kind of link
/// is not told. Null when one of the arrays is empty.
Ref<Bookmark> newDocumentFromArraysLinks(const std::vector<Text>& names, const std::vector<Text>& urls,
                                         const BaseServices& services);

/// The addresses, those that begin with "/" behind `domain`, which is null for none.
std::vector<Text> adaptURLsDomain(const std::vector<Text>& urls, const Text& domain);

/// The names without the white space that they begin with.
std::vector<Text> adaptNames(const std::vector<Text>& names);

/// The values that a script joined, every one followed by a form feed: so the last one is always empty.
std::vector<Text> separatedAtFormFeeds(std::string_view joined);

class HTMLWindowController {
public:
    explicit HTMLWindowController(const BaseServices& services) : services_(services) {}

    /// The source of the page.
    const Text& htmlText() const { return htmlText_; }
    void setHtmlText(Text text) { htmlText_ = std::move(text); }
    /// The program that the text came from; null for a file.
    const Text& bundleID() const { return bundleID_; }
    void setBundleID(Text identifier) { bundleID_ = std::move(identifier); }
    /// Scheme and host put in front of addresses that begin with "/"; null for none.
    const Text& domain() const { return domain_; }
    void setDomain(Text domain) { domain_ = std::move(domain); }
    /// The encoding that the page was written in, by ICU's name; empty for UTF-8.
    void setQueryEncoding(std::string encoding) { queryEncoding_ = std::move(encoding); }

    /// Looks at the text whether it is a Netscape bookmark file, and loads it; for Opera it loads nothing:
    /// that page comes by the clipboard, and the caller loads it a second later. Fails as `readPageLinks`.
    Result<void> windowDidLoad(Progress* progress = nullptr);
    /// Reads a page and takes what it tells.
    Result<void> loadHTMLString(std::string_view text, Progress* progress = nullptr);
    /// Takes what scripts in a page told, wherever they ran.
    void didFinishNavigation(const PageLinks& links);

    /// The tree of what was taken, with the dates of a Netscape bookmark file; null before anything was.
    Ref<Bookmark> createDocument() const;
    /// What the document's window is called.
    Text title() const;
    /// Whether the program comes to the front when the document is made.
    bool comesToFront() const;

    const std::vector<Text>& urls() const { return urls_; }
    const std::vector<Text>& names() const { return names_; }
    const std::vector<Date>& datesAdded() const { return datesAdded_; }
    const std::vector<Date>& datesModified() const { return datesModified_; }
    bool netscapeFile() const { return netscapeFile_; }

private:
    std::vector<Date> datesOf(std::string_view joined) const;

    BaseServices services_;
    Text htmlText_;
    Text bundleID_;
    Text domain_;
    std::string queryEncoding_;
    std::vector<Text> urls_;
    std::vector<Text> names_;
    std::vector<Date> datesAdded_;
    std::vector<Date> datesModified_;
    bool netscapeFile_ = false;
};

/// A file with a page → the tree of its links; the encoding is found out. Fails as `readPageLinks`.
Result<Ref<Bookmark>> readPageFile(std::string_view bytes, const BaseServices& services,
                                   Progress* progress = nullptr);

} // namespace tabulon
