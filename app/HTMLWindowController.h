// A page → a new document with all its links. The page is from the clipboard or from a browser;
// formats/import/PageBookmarks.h reads it.
#pragma once

#include "base/BaseServices.h"
#include "formats/import/PageBookmarks.h"
#include "model/Document.h"

#include <string_view>
#include <vector>

namespace tabulon {

class DocumentController;

/// Loads one page and makes a document of its links. Texts are UTF-8.
class HTMLWindowController {
public:
    /// Requires: the services and `documents` outlive this object.
    HTMLWindowController(const BaseServices& services, DocumentController& documents)
        : services_(services), documents_(documents) {}

    /// Returns the source of the page.
    const Text& htmlText() const { return htmlText_; }
    /// Sets the source of the page.
    void setHtmlText(Text text) { htmlText_ = std::move(text); }
    /// Returns the identifier of the program that the text is from; null for a file.
    const Text& bundleID() const { return bundleID_; }
    /// Sets that identifier.
    void setBundleID(Text identifier) { bundleID_ = std::move(identifier); }
    /// Returns scheme and host, which are inserted before addresses that begin with "/"; null for none.
    const Text& domain() const { return domain_; }
    /// Sets scheme and host.
    void setDomain(Text domain) { domain_ = std::move(domain); }

    /// Determines whether the text is a Netscape bookmark file, and loads it. Loads no page for Opera, whose
    /// page is on the clipboard: the caller loads it with `loadHTMLString`. `progress` may be `nullptr`.
    /// Fails with the error of `readPageLinks`.
    Result<void> windowDidLoad(Progress* progress = nullptr);
    /// Parses a page and takes its links. `progress` may be `nullptr`. Fails with the error of
    /// `readPageLinks`.
    Result<void> loadHTMLString(std::string_view text, Progress* progress = nullptr);
    /// Takes the links of a page that was parsed elsewhere.
    void didFinishNavigation(const PageLinks& links);

    /// Opens the links as a new untitled document with the title of `title`. Links have their dates if the
    /// page is a Netscape bookmark file. Returns `nullptr` if the page has no links or names, and if no
    /// window can be made.
    Document* createDocument();
    /// Returns the title of the document's window: it depends on the program that the page is from.
    Text title() const;
    /// Returns whether the program is to be activated after the document was made.
    bool comesToFront() const;

    /// Returns the addresses of the links, in the order of the page.
    const std::vector<Text>& urls() const { return page_.urls; }
    /// Returns the names of the links, in the same order.
    const std::vector<Text>& names() const { return page_.names; }
    /// Returns the added-dates; empty unless the page is a Netscape bookmark file.
    const std::vector<Date>& datesAdded() const { return page_.datesAdded; }
    /// Returns the modification dates; empty unless the page is a Netscape bookmark file.
    const std::vector<Date>& datesModified() const { return page_.datesModified; }
    /// Returns whether the page is a Netscape bookmark file.
    bool netscapeFile() const { return netscapeFile_; }

private:
    const BaseServices services_;
    DocumentController& documents_;
    Text htmlText_;
    Text bundleID_;
    Text domain_;
    PageBookmarks page_;
    bool netscapeFile_ = false;
};

} // namespace tabulon
