// Which browser opens a bookmark, in which order things happen, and how often the date is set.
#include "opening/BookmarkOpener.h"

#include "base/Settings.h"
#include "model/Document.h"
#include "tests/opening/OpeningFixture.h"

#include <gmock/gmock.h>

namespace tabulon::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BookmarkOpenerTest : public OpeningTest {
protected:
    BookmarkOpenerTest() { setValue(fake_.base.defaults, settings::kLastOpened, true); }

    // Adds a link to the document. A null `url` stays null.
    Bookmark& add(const char* url, std::uint8_t type = kWebType, std::uint32_t browser = 0) {
        const Ref<Bookmark> link = Bookmark::init(Date::now(fake_.base.clock));
        link->setItemURL(url ? Text(url) : Text());
        link->setType(type);
        link->setBrowser(browser);
        link->setDocument(&document_);
        document_.getMaster().addChild(link);
        return *link;
    }
    std::vector<Bookmark*> all() {
        std::vector<Bookmark*> nodes;
        for (Bookmark* node = document_.getMaster().getChild(); node; node = node->nextBookmark())
            nodes.push_back(node);
        return nodes;
    }
    // Returns the number of changes that the document has recorded since the last call, and clears it.
    long changes() {
        const long count = document_.changeCount();
        document_.updateChangeCount(ChangeKind::Cleared);
        return count;
    }
    bool isStamped(const Bookmark& link) const {
        return link.itemLastOpened() == Date::now(fake_.base.clock);
    }
    std::vector<std::string> takeRequests() { return std::exchange(fake_.requests, {}); }

    Document document_{fake_.base.services()};
    BookmarkOpener opener_{services()};
};

const std::string kDefault = "org.chromium.Chromium";

TEST_F(BookmarkOpenerTest, aWebLinkOpensInTheDefaultBrowser) {
    Bookmark& link = add("https://a/");
    opener_.open(link);
    EXPECT_THAT(takeRequests(), ElementsAre("launch " + kDefault, "event core/getd " + kDefault,
                                            "event core/setd " + kDefault));
    EXPECT_TRUE(isStamped(link));
    EXPECT_EQ(changes(), 1);
}

TEST_F(BookmarkOpenerTest, aBookmarkMayHaveItsOwnBrowser) {
    fake_.workspace.front = "org.mozilla.Firefox";
    opener_.open(add("https://a/", kWebType, 11));
    EXPECT_THAT(takeRequests(),
                ElementsAre("event core/getd org.mozilla.Firefox", "event WWW!/OURL org.mozilla.Firefox"));
    opener_.open(add("https://a/", kWebType, 7)); // no browser has this code
    EXPECT_EQ(takeRequests().front(), "launch " + kDefault);
}

TEST_F(BookmarkOpenerTest, aLinkWithoutAnAddressIsSkipped) {
    for (const char* url : {static_cast<const char*>(nullptr), ""})
        for (const std::uint8_t type : {kWebType, kMailType}) {
            Bookmark& link = add(url, type);
            opener_.open(link);
            opener_.openInNewWindow(link);
            opener_.openWithBrowser(link, kDefault);
            opener_.openWithBrowserInNewTab(link, kDefault);
            opener_.openInHelper(link);
        }
    EXPECT_THAT(takeRequests(), IsEmpty());
    EXPECT_EQ(changes(), 0);
}

TEST_F(BookmarkOpenerTest, theDesktopOpensOtherLinksWithoutADate) {
    Bookmark& mail = add("mailto:a@b", kMailType);
    opener_.open(mail);
    opener_.openInNewWindow(mail);
    opener_.openInNewTab(mail);
    EXPECT_THAT(takeRequests(), ElementsAre("open mailto:a@b", "open mailto:a@b", "open mailto:a@b"));
    opener_.open(add("https://a/?q=", kQueryType));
    EXPECT_THAT(takeRequests(), ElementsAre("open https://a/?q="));
    EXPECT_EQ(changes(), 0);
}

TEST_F(BookmarkOpenerTest, aChosenBrowserGetsLinksOfEveryType) {
    Bookmark& mail = add("mailto:a@b", kMailType);
    opener_.openWithBrowser(mail, "com.apple.Safari");
    EXPECT_THAT(takeRequests(), ElementsAre("launch com.apple.Safari", "event core/getd com.apple.Safari",
                                            "event core/setd com.apple.Safari"));
    EXPECT_EQ(changes(), 1);
    opener_.openWithBrowserInNewTab(mail, "com.apple.Safari");
    EXPECT_THAT(takeRequests(), ElementsAre("event GURL/GURL com.apple.Safari")); // not brought forward
    EXPECT_EQ(changes(), 1);
}

TEST_F(BookmarkOpenerTest, aNewWindowIsMadeBeforeThePageIsShown) {
    Bookmark& link = add("https://a/");
    opener_.openInNewWindow(link);
    EXPECT_THAT(takeRequests(), ElementsAre("launch " + kDefault, "event core/crel " + kDefault,
                                            "event core/setd " + kDefault));
    EXPECT_EQ(changes(), 1);
}

TEST_F(BookmarkOpenerTest, aNewTabSetsTheDateTwice) {
    Bookmark& link = add("https://a/");
    opener_.openInNewTab(link);
    EXPECT_THAT(takeRequests(), ElementsAre("launch " + kDefault, "event GURL/GURL " + kDefault));
    EXPECT_EQ(changes(), 2);
}

TEST_F(BookmarkOpenerTest, aNewTabWithoutAnAddressBringsTheBrowserForward) {
    Bookmark& link = add(nullptr);
    opener_.openInNewTab(link);
    EXPECT_THAT(takeRequests(), ElementsAre("launch " + kDefault));
    EXPECT_TRUE(isStamped(link));
    EXPECT_EQ(changes(), 1);
    opener_.openInNewTab(add("", kMailType));
    EXPECT_THAT(takeRequests(), ElementsAre("open "));
    opener_.openInNewTab(add(nullptr, kMailType));
    EXPECT_THAT(takeRequests(), IsEmpty());
}

TEST_F(BookmarkOpenerTest, withoutTheSettingNoDateIsSet) {
    setValue(fake_.base.defaults, settings::kLastOpened, false);
    Bookmark& link = add("https://a/");
    opener_.open(link);
    opener_.openInNewTab(link);
    opener_.openFolderContents({&link});
    EXPECT_TRUE(link.itemLastOpened().isNull());
    EXPECT_EQ(changes(), 0);
}

TEST_F(BookmarkOpenerTest, withoutPermissionTheDateIsSetAllTheSame) {
    fake_.permission.granted = false;
    opener_.open(add("https://a/"));
    EXPECT_THAT(takeRequests(), ElementsAre("launch " + kDefault, "open https://a/"));
    EXPECT_EQ(changes(), 1);
}

TEST_F(BookmarkOpenerTest, aFolderOpensItsWebLinksInOneRequest) {
    add("https://1/", kWebType, 11);
    add("mailto:a@b", kMailType);
    Bookmark& folder = add(nullptr);
    folder.makeParent();
    add("https://2/?q=", kQueryType);
    add(nullptr, kSeparatorType);
    add("");
    add("https://3/");
    opener_.openFolderContents(all());
    EXPECT_THAT(takeRequests(), ElementsAre("openAll https://1/ https://2/?q= https://3/"));
    EXPECT_EQ(changes(), 3);
    EXPECT_THAT(fake_.base.log.lines, IsEmpty());
}

TEST_F(BookmarkOpenerTest, aFolderNeedsADefaultBrowser) {
    fake_.workspace.handler.clear();
    add("https://1/");
    opener_.openFolderContents(all());
    EXPECT_THAT(takeRequests(), IsEmpty());
    EXPECT_EQ(changes(), 0);
}

TEST_F(BookmarkOpenerTest, aFolderThatCannotBeOpenedIsLogged) {
    fake_.workspace.opens = false;
    add("https://1/");
    opener_.openFolderContents(all());
    EXPECT_THAT(fake_.base.log.lines, ElementsAre("could not open URLs"));
    EXPECT_THAT(alerts(), IsEmpty());
    EXPECT_EQ(changes(), 1);
}

TEST_F(BookmarkOpenerTest, aFolderWithoutWebLinksOpensNothing) {
    add("mailto:a@b", kMailType);
    opener_.openFolderContents(all());
    EXPECT_THAT(takeRequests(), IsEmpty());
}

TEST_F(BookmarkOpenerTest, manyPagesAreOpenedAfterAQuestion) {
    for (std::size_t page = 0; page < BookmarkOpener::kMostPagesWithoutQuestion; ++page)
        add("https://1/");
    opener_.openFolderContents(all());
    EXPECT_THAT(alerts(), IsEmpty());
    EXPECT_EQ(changes(), 50);
    add("https://2/");
    fake_.alerts.answer("Cancel");
    takeRequests();
    opener_.openFolderContents(all());
    EXPECT_THAT(alerts(), ElementsAre("Open 51 pages at once?"));
    EXPECT_THAT(takeRequests(), IsEmpty());
    EXPECT_EQ(changes(), 0);
    fake_.alerts.answer("Open Pages");
    opener_.openFolderContents(all());
    EXPECT_EQ(takeRequests().size(), 1u);
    EXPECT_EQ(changes(), 51);
}

TEST_F(BookmarkOpenerTest, theHelperOpensEveryAddressWithoutAMessage) {
    Bookmark& link = add("https://a/");
    opener_.openInHelper(link);
    fake_.workspace.opens = false;
    opener_.openInHelper(link);
    EXPECT_THAT(takeRequests(), ElementsAre("open https://a/", "open https://a/"));
    EXPECT_THAT(alerts(), IsEmpty());
    EXPECT_EQ(changes(), 0);
}

} // namespace
} // namespace tabulon::test
