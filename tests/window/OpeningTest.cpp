// The commands that open bookmarks: which bookmarks they open and how, and when they are enabled.
#include "base/Settings.h"
#include "tests/window/WindowFixture.h"
#include "window/OpenCommands.h"

#include <gmock/gmock.h>

namespace tabulon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class OpenCommandsTest : public WindowTest {
protected:
    OpenCommandsTest() {
        folder = &add(makeFolder("folder", false));
        first = &add(makeLink("first", "https://1/"));
        second = &add(makeLink("second", "https://2/"));
        mail = &add(makeLink("mail", "mailto:a@b"));
        add(makeLink("inside", "https://3/"), folder);
        add(makeLink("mail inside", "mailto:c@d"), folder);
        open();
        workspace.front = "org.chromium.Chromium"; // the default browser
    }
    // Performs the action and returns what was asked of other applications.
    std::vector<std::string> perform(const char* action, int tag = 0) {
        requests.clear();
        MenuItem item{.action = action};
        item.tag = tag;
        controller->actions().perform(item);
        return requests;
    }
    bool isEnabled(const char* action) const {
        return controller->actions().validateMenuItem(MenuItem{.action = action});
    }
    std::vector<std::string> doubleClick(std::size_t row, bool inNameCell = false, double x = 0,
                                         double cellRight = 100) {
        requests.clear();
        controller->opening().doubleClick(
            {.row = row, .isInNameCell = inNameCell, .x = x, .cellRight = cellRight});
        return requests;
    }

    bool isInfoShown() const { return window->info && window->info->isShown(); }

    Bookmark* folder = nullptr;
    Bookmark* first = nullptr;
    Bookmark* second = nullptr;
    Bookmark* mail = nullptr;
};

const std::string kChromium = "org.chromium.Chromium";
const std::string kProbe = "event core/getd " + kChromium;
const std::string kSet = "event core/setd " + kChromium;
const std::string kMake = "event core/crel " + kChromium;
const std::string kTab = "event GURL/GURL " + kChromium;

TEST_F(OpenCommandsTest, OneBookmarkOpensInTheCurrentTab) {
    for (const char* action : {"openBookmark:", "openInBrowser:"}) {
        select({second});
        EXPECT_THAT(perform(action), ElementsAre(kProbe, kSet));
        EXPECT_EQ(std::get<std::string>(events.sent.back().parameters.front().second), "https://2/");
    }
}

TEST_F(OpenCommandsTest, SeveralBookmarksOpenInNewTabsInTheOrderOfTheRows) {
    select({mail, folder, second, first});
    EXPECT_THAT(perform("openBookmark:"), ElementsAre(kTab, kTab, "open mailto:a@b"));
    ASSERT_EQ(events.sent.size(), 2u);
    EXPECT_EQ(events.sent[0].directObject, EventValue("https://1/"));
    EXPECT_EQ(events.sent[1].directObject, EventValue("https://2/"));
}

TEST_F(OpenCommandsTest, OneBookmarkBesideAFolderOpensInANewTab) {
    select({folder, first});
    EXPECT_THAT(perform("openBookmark:"), ElementsAre(kTab));
}

TEST_F(OpenCommandsTest, AFolderAloneIsNotOpened) {
    select({folder});
    for (const char* action : {"openBookmark:", "openInTab:", "openInWindow:", "openInHelper:", "openWith:"})
        EXPECT_THAT(perform(action), IsEmpty()) << action;
}

TEST_F(OpenCommandsTest, TabsAndWindowsAreOpenedForEach) {
    select({first, second});
    EXPECT_THAT(perform("openInTab:"), ElementsAre(kTab, kTab));
    EXPECT_THAT(perform("openInWindow:"), ElementsAre(kMake, kSet, kMake, kSet));
    EXPECT_THAT(perform("openInHelper:"), ElementsAre("open https://1/", "open https://2/"));
}

TEST_F(OpenCommandsTest, TheRowUnderAnOpenContextMenuIsOpenedAlone) {
    select({first, second});
    controller->outline().setClickedRow(controller->outline().rowForItem(*mail));
    EXPECT_THAT(perform("openBookmark:"), ElementsAre("open mailto:a@b"));
}

TEST_F(OpenCommandsTest, TheBrowserIsChosenByItsPlaceInTheMenu) {
    select({mail});
    const std::vector<std::string> identifiers = {
        "com.apple.Safari",        "com.google.Chrome",   "org.chromium.Chromium",
        "com.operasoftware.Opera", "org.mozilla.firefox", "de.icab.iCab",
        "com.vivaldi.Vivaldi",     "com.brave.Browser",   "com.microsoft.edgemac"};
    for (int index = 0; index < 9; ++index) {
        workspace.front = identifiers[static_cast<std::size_t>(index)];
        base.log.lines.clear();
        EXPECT_EQ(perform("openWith:", index).front(), "event core/getd " + workspace.front);
        EXPECT_THAT(base.log.lines, ElementsAre("OpenWith : " + std::to_string(index)));
    }
    for (const int index : {-1, 9})
        EXPECT_THAT(perform("openWith:", index), IsEmpty());
}

TEST_F(OpenCommandsTest, SeveralBookmarksOpenInTabsOfTheChosenBrowserWithoutBringingItForward) {
    select({first, mail});
    EXPECT_THAT(perform("openWith:", 5),
                ElementsAre("event WWW!/OURL de.icab.iCab", "event WWW!/OURL de.icab.iCab"));
    select({first});
    EXPECT_THAT(perform("openWith:", 5), ElementsAre("launch de.icab.iCab", "event core/getd de.icab.iCab",
                                                     "event WWW!/OURL de.icab.iCab"));
}

TEST_F(OpenCommandsTest, AFolderOpensItsLinksAsTabs) {
    select({folder});
    EXPECT_THAT(perform("openInTabs:"), ElementsAre("openAll https://3/"));
    select({folder, first});
    EXPECT_THAT(perform("openInTabs:"), IsEmpty());
    select({first});
    EXPECT_THAT(perform("openInTabs:"), IsEmpty());
}

TEST_F(OpenCommandsTest, CommandsNeedASelection) {
    select({});
    for (const char* action :
         {"openBookmark:", "openInBrowser:", "openInTab:", "openInWindow:", "openWith:", "openInHelper:"})
        EXPECT_FALSE(isEnabled(action)) << action;
    select({folder});
    for (const char* action : {"openBookmark:", "openInBrowser:", "openInTab:", "openInWindow:", "openWith:",
                               "openInHelper:", "openInTabs:"})
        EXPECT_TRUE(isEnabled(action)) << action;
    select({first});
    EXPECT_FALSE(isEnabled("openInTabs:"));
    select({folder, first});
    EXPECT_FALSE(isEnabled("openInTabs:"));
}

TEST_F(OpenCommandsTest, ManyBookmarksAreOpenedAfterAQuestion) {
    std::vector<Bookmark*> many;
    for (std::size_t link = 0; link <= BookmarkOpener::kMostPagesWithoutQuestion; ++link)
        many.push_back(&add(makeLink("link")));
    open();
    select(many);
    alerts.answer("Cancel");
    EXPECT_THAT(perform("openBookmark:"), IsEmpty());
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown.front().message, "Open 51 pages at once?");
    alerts.answer("Open Pages");
    EXPECT_EQ(perform("openBookmark:").size(), 51u);
    many.pop_back();
    select(many);
    EXPECT_EQ(perform("openBookmark:").size(), 50u);
    EXPECT_EQ(alerts.shown.size(), 2u);
}

TEST_F(OpenCommandsTest, BookmarksThatLeaveTheTreeDuringTheQuestionAreOpened) {
    std::vector<Bookmark*> many;
    for (std::size_t link = 0; link <= BookmarkOpener::kMostPagesWithoutQuestion; ++link)
        many.push_back(&add(makeLink("link")));
    open();
    select(many);
    alerts.whileShown = [&] { controller->editing().deleteSelection(); };
    EXPECT_EQ(perform("openInTab:").size(), 51u);
}

TEST_F(OpenCommandsTest, ADoubleClickOpensAsTheSettingsSay) {
    select({first});
    EXPECT_THAT(doubleClick(1), ElementsAre(kProbe, kSet));
    setValue(base.defaults, settings::kOpenInNewWindow, true);
    EXPECT_THAT(doubleClick(1), ElementsAre(kMake, kSet));
    setValue(base.defaults, settings::kOpenInNewTab, true);
    EXPECT_THAT(doubleClick(1), ElementsAre(kTab));
    setValue(base.defaults, settings::kOpenInHelper, true);
    EXPECT_THAT(doubleClick(1), ElementsAre("open https://1/"));
}

TEST_F(OpenCommandsTest, ADoubleClickTurnsAFolder) {
    select({folder});
    EXPECT_THAT(doubleClick(0, true, 99), IsEmpty());
    EXPECT_TRUE(folder->showHier());
    doubleClick(0);
    EXPECT_FALSE(folder->showHier());
    EXPECT_FALSE(isInfoShown());
}

TEST_F(OpenCommandsTest, TheRightEndOfANameShowsTheInfoPanel) {
    // The edge is truncated: 216.9 counts as 216, so the end goes from above 200 to below 216.
    for (const auto& [x, showsInfo] : std::vector<std::pair<double, bool>>{
             {199, false}, {200, false}, {200.5, true}, {215.5, true}, {216, false}, {216.5, false}}) {
        select({first});
        const auto asked = doubleClick(1, true, x, 216.9);
        EXPECT_EQ(asked.empty(), showsInfo) << x;
        EXPECT_EQ(isInfoShown(), showsInfo) << x;
        if (isInfoShown())
            window->info->done();
    }
    EXPECT_THAT(doubleClick(1, false, 210, 216.9), ElementsAre(kProbe, kSet)); // in another column
}

} // namespace
} // namespace tabulon
