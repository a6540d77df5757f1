#include "opening/BookmarkOpener.h"

#include "text/NumberFormat.h"

namespace tabulon {
namespace {

bool isPage(const Bookmark& bookmark) {
    return (bookmark.getType() == kWebType || bookmark.getType() == kQueryType) &&
           !bookmark.itemURL().isEmpty();
}

} // namespace

std::string BookmarkOpener::browserOf(const Bookmark& bookmark) const {
    return bookmark.getBrowser() != 0 ? bookmark.getBrowserID(services_.workspace.defaultHandler())
                                      : delivery_.defaultBrowser();
}

void BookmarkOpener::open(Bookmark& bookmark) const {
    const Text url = bookmark.itemURL();
    if (url.isEmpty())
        return;
    if (bookmark.getType() != kWebType)
        return delivery_.systemOpen(url);
    openWithBrowser(bookmark, browserOf(bookmark));
}

void BookmarkOpener::openInNewWindow(Bookmark& bookmark) const {
    const Text url = bookmark.itemURL();
    if (url.isEmpty())
        return;
    if (bookmark.getType() != kWebType)
        return delivery_.systemOpen(url);
    const std::string browser = browserOf(bookmark);
    delivery_.bringForward(browser);
    delivery_.deliverInNewWindow(browser, url.view());
    bookmark.opened(services_.base);
}

void BookmarkOpener::openInNewTab(Bookmark& bookmark) const {
    if (bookmark.getType() != kWebType)
        return delivery_.systemOpen(bookmark.itemURL());
    const std::string browser = browserOf(bookmark);
    delivery_.bringForward(browser);
    openWithBrowserInNewTab(bookmark, browser);
    bookmark.opened(services_.base);
}

void BookmarkOpener::openWithBrowser(Bookmark& bookmark, const std::string& browser) const {
    const Text url = bookmark.itemURL();
    if (url.isEmpty())
        return;
    delivery_.bringForward(browser);
    delivery_.deliver(browser, url.view());
    bookmark.opened(services_.base);
}

void BookmarkOpener::openWithBrowserInNewTab(Bookmark& bookmark, const std::string& browser) const {
    const Text url = bookmark.itemURL();
    if (url.isEmpty())
        return;
    delivery_.deliverInNewTab(url.view(), browser);
    bookmark.opened(services_.base);
}

void BookmarkOpener::openFolderContents(const std::vector<Bookmark*>& bookmarks) const {
    if (services_.workspace.defaultHandler().empty())
        return;
    std::vector<Ref<Bookmark>> pages;
    for (Bookmark* bookmark : bookmarks)
        if (isPage(*bookmark))
            pages.emplace_back(bookmark);
    if (pages.empty() || !confirmsPages(pages.size()))
        return;
    std::vector<std::string> urls;
    for (const Ref<Bookmark>& page : pages) {
        urls.push_back(page->itemURL().string());
        page->opened(services_.base);
    }
    if (!services_.workspace.openURLs(urls))
        services_.base.log.log("could not open URLs");
}

void BookmarkOpener::openInHelper(const Bookmark& bookmark) const {
    if (!bookmark.itemURL().isEmpty())
        static_cast<void>(services_.workspace.openURL(bookmark.itemURL().view()));
}

bool BookmarkOpener::confirmsPages(std::size_t count) const {
    if (count <= kMostPagesWithoutQuestion)
        return true;
    const Localization& texts = services_.base.texts;
    const Alert question{
        .style = AlertStyle::Warning,
        .message = texts.format("OpenManyPages", numberText(count, texts.locale())),
        .informative = texts.text("OpenManyPagesInfo"),
        .buttons = {{texts.text("OpenPages")}, {texts.text("Cancel"), AlertButtonRole::Cancel}}};
    return services_.alerts.runModal(question) == kAlertFirstButton;
}

} // namespace tabulon
