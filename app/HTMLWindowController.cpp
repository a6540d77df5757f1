#include "app/HTMLWindowController.h"

#include "app/DocumentController.h"

#include <algorithm>
#include <initializer_list>

namespace tabulon {
namespace {

bool isOneOf(const Text& identifier, std::initializer_list<std::string_view> some) {
    return !identifier.isNull() && std::ranges::find(some, identifier.view()) != some.end();
}

} // namespace

Result<void> HTMLWindowController::windowDidLoad(Progress* progress) {
    netscapeFile_ = isNetscapeFile(htmlText_.view());
    if (isOneOf(bundleID_, {"com.operasoftware.Opera"}))
        return {};
    return loadHTMLString(htmlText_.view(), progress);
}

Result<void> HTMLWindowController::loadHTMLString(std::string_view text, Progress* progress) {
    const Result<PageLinks> links = readPageLinks(text, {}, progress);
    if (!links)
        return tl::unexpected(links.error());
    didFinishNavigation(*links);
    return {};
}

void HTMLWindowController::didFinishNavigation(const PageLinks& links) {
    page_ = pageBookmarks(links, netscapeFile_, domain_, services_);
}

Document* HTMLWindowController::createDocument() {
    Ref<Bookmark> root = treeOfPage(page_, services_);
    Document* document = root ? documents_.newMasterDocument(std::move(root)) : nullptr;
    if (document)
        document->setDisplayName(title().string());
    return document;
}

Text HTMLWindowController::title() const {
    if (isOneOf(bundleID_, {"de.icab.iCab", "com.barebones.bbedit", ""}))
        return services_.texts.text("GrabbedBookmarks");
    return "Imported Bookmarks";
}

bool HTMLWindowController::comesToFront() const {
    return isOneOf(bundleID_,
                   {"de.icab.iCab", "com.operasoftware.Opera", "com.barebones.bbedit", "com.apple.TextEdit"});
}

} // namespace tabulon
