// A page → a new document with all its links. The page comes from the clipboard or from a browser; what reads
// it is formats/import/PageBookmarks.h.
#pragma once

#include "base/BaseServices.h"
#include "formats/import/PageBookmarks.h"
#include "model/Document.h"

#include <string_view>
#include <vector>

namespace tabulon {

class DocumentController;

class HTMLWindowController {
public:
    /// What is passed in must outlive this object.
    HTMLWindowController(const BaseServices& services, DocumentController& documents)
        : services_(services), documents_(documents) {}

    /// The source of the page.
    const Text& htmlText() const { return htmlText_; }
    void setHtmlText(Text text) { htmlText_ = std::move(text); }
    /// The identifier of the program that the text came from; null for a file.
    const Text& bundleID() const { return bundleID_; }
    void setBundleID(Text identifier) { bundleID_ = std::move(identifier); }
    /// Scheme and host, placed before addresses that begin with "/"; null for none.
    const Text& domain() const { return domain_; }
    void setDomain(Text domain) { domain_ = std::move(domain); }

    /// Determines whether the text is a Netscape bookmark file, and loads it. For Opera it loads nothing:
    /// that page comes through the clipboard, and the caller loads it a second later. Fails as
    /// `readPageLinks`.
    Result<void> windowDidLoad(Progress* progress = nullptr);
    /// Reads a page and takes its links. Fails as `readPageLinks`.
    Result<void> loadHTMLString(std::string_view text, Progress* progress = nullptr);
    /// Takes the links that scripts in a page collected, wherever they ran.
    void didFinishNavigation(const PageLinks& links);

    /// Opens the links as a new untitled document of that title, with the dates of a Netscape bookmark file.
    /// Returns `nullptr` when no page was loaded and when no window can be made.
    Document* createDocument();
    /// Returns the title of the document's window.
    Text title() const;
    /// Returns whether the program comes to the front after the document is made.
    bool comesToFront() const;

    const std::vector<Text>& urls() const { return page_.urls; }
    const std::vector<Text>& names() const { return page_.names; }
    const std::vector<Date>& datesAdded() const { return page_.datesAdded; }
    const std::vector<Date>& datesModified() const { return page_.datesModified; }
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
