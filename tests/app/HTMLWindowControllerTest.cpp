// The document that is made of a page's links: its title, and the program that the page is from.
#include "app/HTMLWindowController.h"

#include "tests/app/AppFixture.h"

namespace tabulon {
namespace {

class HTMLWindowControllerTest : public AppTest {
protected:
    HTMLWindowController controller{base.services(), documents()};
};

TEST_F(HTMLWindowControllerTest, theLinksBecomeADocumentOfTheTitle) {
    controller.setBundleID("com.barebones.bbedit");
    controller.setDomain("http://h");
    controller.setHtmlText("<!DOCTYPE NETSCAPE-Bookmark-file-1><A HREF=/x ADD_DATE=12>a</A>");
    ASSERT_TRUE(controller.windowDidLoad());
    EXPECT_TRUE(controller.netscapeFile());
    EXPECT_EQ(controller.urls(), (std::vector<Text>{"http://h/x", ""}));
    EXPECT_EQ(controller.names(), (std::vector<Text>{"a", ""}));
    EXPECT_EQ(controller.datesAdded().front(), Date::fromUnixSeconds(12));
    EXPECT_EQ(controller.datesModified().front(), base.now());
    const Document* document = controller.createDocument();
    ASSERT_TRUE(document);
    EXPECT_EQ(document, onlyDocument());
    EXPECT_EQ(document->displayName(), base.texts.text("GrabbedBookmarks"));
    EXPECT_TRUE(document->isDocumentEdited());
    EXPECT_EQ(document->getMaster().getChild()->itemURL().view(), "http://h/x");
    EXPECT_EQ(document->getMaster().getChild()->itemDateAdded(), Date::fromUnixSeconds(12));
}

TEST_F(HTMLWindowControllerTest, datesOfOtherPagesAreLeftOut) {
    controller.setHtmlText("<A HREF=http://a/ ADD_DATE=12>a</A>");
    ASSERT_TRUE(controller.windowDidLoad());
    EXPECT_FALSE(controller.netscapeFile());
    EXPECT_TRUE(controller.datesAdded().empty());
    EXPECT_TRUE(controller.datesModified().empty());
}

TEST_F(HTMLWindowControllerTest, theTitleNamesTheSourceOfThePage) {
    EXPECT_EQ(controller.title().view(), "Imported Bookmarks");
    for (const char* grabbed : {"de.icab.iCab", "com.barebones.bbedit", ""}) {
        controller.setBundleID(grabbed);
        EXPECT_EQ(controller.title().view(), base.texts.text("GrabbedBookmarks")) << grabbed;
    }
    for (const char* other : {"com.operasoftware.Opera", "com.apple.TextEdit", "com.apple.Safari"}) {
        controller.setBundleID(other);
        EXPECT_EQ(controller.title().view(), "Imported Bookmarks") << other;
    }
}

TEST_F(HTMLWindowControllerTest, capturesBringTheProgramToTheFront) {
    EXPECT_FALSE(controller.comesToFront());
    for (const char* captured :
         {"de.icab.iCab", "com.operasoftware.Opera", "com.barebones.bbedit", "com.apple.TextEdit"}) {
        controller.setBundleID(captured);
        EXPECT_TRUE(controller.comesToFront()) << captured;
    }
    controller.setBundleID("");
    EXPECT_FALSE(controller.comesToFront());
}

TEST_F(HTMLWindowControllerTest, operasPageComesLater) {
    controller.setBundleID("com.operasoftware.Opera");
    controller.setHtmlText("<a href=http://a/>a</a>");
    ASSERT_TRUE(controller.windowDidLoad());
    EXPECT_FALSE(controller.createDocument());
    EXPECT_TRUE(documents().documents().empty());
    ASSERT_TRUE(controller.loadHTMLString("<a href=http://b/>b</a>"));
    ASSERT_TRUE(controller.createDocument());
    EXPECT_EQ(onlyDocument()->getMaster().getChild()->itemURL().view(), "http://b/");
}

TEST_F(HTMLWindowControllerTest, withoutAWindowThereIsNoDocument) {
    windows.noMoreWindows = true;
    controller.setHtmlText("<a href=http://a/>a</a>");
    ASSERT_TRUE(controller.windowDidLoad());
    EXPECT_FALSE(controller.createDocument());
}

} // namespace
} // namespace tabulon
