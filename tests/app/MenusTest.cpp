// The main menu, the recent files, the shared alerts, and the kinds of files.
#include "tests/app/AppFixture.h"
#include "window/SharedAlerts.h"

#include <algorithm>
#include <map>
#include <set>

namespace tabulon {
namespace {

class MenusTest : public AppTest {
protected:
    Menu windowMenu() { return menuNamed("Window"); }
    bool isChecked(const std::string& action) {
        return std::ranges::any_of(
            menuItems(), [&](const MenuItem& item) { return item.action == action && item.checked; });
    }
    Menu recentMenu() { return *menuNamed("File").items.at(2).submenu; }
};

TEST_F(MenusTest, EveryItemHasATitleAndWorks) {
    files.files["/home/a.tbln"] = documentBytes("a");
    app.applicationDidFinishLaunching({"/home/a.tbln"});
    onlyDocument()->updateChangeCount(ChangeKind::Done);
    windowOf(*onlyDocument()).outlineView.selectAll();
    documents().getViewController(*onlyDocument())->finding().setSearchString("a");
    for (const MenuItem& item : menuItems()) {
        if (item.separator)
            continue;
        EXPECT_FALSE(item.title.empty());
        EXPECT_FALSE(item.title.starts_with("Menu")) << "a text is missing: " << item.title;
        if (item.action != "clearRecentDocuments:" && item.action != "addBookmark:" &&
            item.action != "openInTabs:" && !item.action.starts_with("sortBy")) { // these require a folder
            EXPECT_TRUE(app.responders().validateMenuItem(item)) << item.title;
        }
    }
}

TEST_F(MenusTest, NoTwoItemsShareAKey) {
    std::set<std::string> keys;
    for (const MenuItem& item : menuItems()) {
        if (item.keyEquivalent.empty())
            continue;
        const std::string key = item.keyEquivalent + (item.modifiers.shift ? " shift" : "") +
                                (item.modifiers.option ? " option" : "");
        EXPECT_TRUE(keys.insert(key).second) << key;
    }
    EXPECT_TRUE(keys.contains("n") && keys.contains("o") && keys.contains("s") && keys.contains("S") &&
                keys.contains("w") && keys.contains("q"));
}

// Records the keys of the texts that are requested.
class RecordingTexts : public EnglishLocalization {
public:
    std::string text(std::string_view key) const override {
        asked.insert(std::string(key));
        return EnglishLocalization::text(key);
    }

    mutable std::set<std::string> asked;
};

TEST_F(MenusTest, OpeningAMenuBuildsThatOneOnly) {
    RecordingTexts texts;
    const MainMenu menus(platformIn(texts), documents());
    std::set<std::string> before;
    for (std::size_t place = 0; place < MainMenu::count(); ++place) {
        texts.asked.clear();
        menus.menu(place);
        EXPECT_FALSE(texts.asked.empty());
        for (const std::string& key : texts.asked)
            EXPECT_TRUE(before.insert(key).second) << key << " belongs to an earlier menu than " << place;
    }
}

TEST_F(MenusTest, OnlyTheImportMenuLooksForTheFilesOfBrowsers) {
    for (std::size_t place = 0; place < MainMenu::count(); ++place) {
        stores.lookUps = 0;
        app.mainMenu().itemsWithKeys(place);
        EXPECT_EQ(stores.lookUps, 0);
        app.mainMenu().menu(place);
        EXPECT_EQ(stores.lookUps > 0, app.mainMenu().title(place) == "Import") << place;
    }
}

TEST_F(MenusTest, KeysAreKnownWithoutBuildingTheMenus) {
    for (std::size_t place = 0; place < MainMenu::count(); ++place) {
        std::vector<std::string> known;
        for (const MenuItem& item : app.mainMenu().itemsWithKeys(place))
            known.push_back(item.action + item.keyEquivalent + (item.modifiers.shift ? " shift" : ""));
        std::vector<std::string> shown;
        for (const MenuItem& item : app.mainMenu().menu(place).items)
            if (!item.keyEquivalent.empty())
                shown.push_back(item.action + item.keyEquivalent + (item.modifiers.shift ? " shift" : ""));
        EXPECT_EQ(known, shown) << place;
    }
}

TEST_F(MenusTest, ShowMarksHasACheckMarkAndIsForEveryWindow) {
    for (const char* path : {"/home/a.tbln", "/home/b.tbln"}) {
        files.files[path] = documentBytes("a");
        app.fileOpening().openFile(path);
    }
    EXPECT_FALSE(isChecked("showMarks:"));
    EXPECT_TRUE(perform("showMarks:"));
    EXPECT_TRUE(isChecked("showMarks:"));
    for (const Document* document : documents().documents())
        EXPECT_EQ(windowOf(*document).outlineView.reloaded, (std::vector<RowRange>{{0, 1}}));
    EXPECT_TRUE(perform("showMarks:"));
    EXPECT_FALSE(isChecked("showMarks:"));
}

TEST_F(MenusTest, SortHasEveryKeyAndASubmenuForTheOtherDirection) {
    std::map<std::string, std::vector<int>> tags;
    for (const MenuItem& item : menuItems()) {
        if (item.action.starts_with("sortBy"))
            tags[item.action].push_back(item.tag);
    }
    const std::vector<int> both = {0, SortCommands::kSortDescendingTag};
    EXPECT_EQ(tags, (std::map<std::string, std::vector<int>>{{"sortByName:", both},
                                                             {"sortByURL:", both},
                                                             {"sortByTags:", both},
                                                             {"sortByDateAdded:", both},
                                                             {"sortByDateModified:", both},
                                                             {"sortByDateLastOpened:", both}}));
}

TEST_F(MenusTest, OpenRecentListsAtMostTenFilesAndCanBeCleared) {
    for (int i = 0; i < 12; ++i) {
        const std::string path = "/home/" + std::to_string(i) + ".tbln";
        files.files[path] = documentBytes("a");
        app.fileOpening().openFile(path);
    }
    const Menu menu = recentMenu();
    ASSERT_EQ(menu.items.size(), 12u) << "ten files, a separator and the command";
    EXPECT_EQ(menu.items[0].title, "11.tbln");
    EXPECT_EQ(menu.items[0].toolTip, "/home/11.tbln");
    EXPECT_EQ(menu.items[9].title, "2.tbln");
    EXPECT_TRUE(app.responders().performMenuItem(menu.items[11]));
    EXPECT_EQ(recentMenu().items.size(), 1u);
    EXPECT_FALSE(app.responders().validateMenuItem(recentMenu().items[0]));
}

TEST_F(MenusTest, RecentItemOpensItsFileAndAVanishedOneLeavesTheList) {
    files.files["/home/a.tbln"] = documentBytes("a");
    app.fileOpening().openFile("/home/a.tbln");
    const MenuItem item = recentMenu().items.at(0);
    perform("performClose:");
    EXPECT_TRUE(app.responders().performMenuItem(item));
    EXPECT_TRUE(onlyDocument());
    perform("performClose:");
    files.files.clear();
    files.folders.insert("/home");
    app.responders().performMenuItem(item);
    EXPECT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(recentMenu().items.size(), 1u);
}

TEST_F(MenusTest, RecentFileWhoseFolderIsGoneTooOrThatMayNotBeReadStaysInTheList) {
    files.files["/media/stick/a.tbln"] = documentBytes("a");
    app.fileOpening().openFile("/media/stick/a.tbln");
    perform("performClose:");
    const std::string bytes = std::exchange(files.files, {}).begin()->second;
    app.responders().performMenuItem(recentMenu().items.at(0));
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_NE(alerts.shown[0].informative.find("disk that is not connected"), std::string::npos);
    files.files["/media/stick/a.tbln"] = bytes;
    files.unreadable = "/media/";
    app.responders().performMenuItem(recentMenu().items.at(0));
    EXPECT_EQ(alerts.shown.size(), 2u);
    files.unreadable.clear();
    app.responders().performMenuItem(recentMenu().items.at(0));
    EXPECT_TRUE(onlyDocument());
}

TEST_F(MenusTest, RecentListKeepsPathsOfAnyBytes) {
    RecentDocuments recent(state);
    recent.note("/home/with space/100%.tbln");
    recent.note(std::string("/home/latin1-\xE9 and \n line"));
    EXPECT_EQ(RecentDocuments(state).paths(),
              (std::vector<std::string>{"/home/latin1-\xE9 and \n line", "/home/with space/100%.tbln"}));
    recent.note("/home/with space/100%.tbln");
    EXPECT_EQ(recent.paths().size(), 2u);
    EXPECT_EQ(recent.paths()[0], "/home/with space/100%.tbln");
}

TEST_F(MenusTest, WindowMenuListsTheOpenDocumentsWithACheckMarkAtTheCurrentOne) {
    files.files["/home/a.tbln"] = documentBytes("a");
    app.applicationDidFinishLaunching({"/home/a.tbln"});
    documents().newMasterDocument(Bookmark::init(base.now()));
    documents().getViewController(*documents().currentDocument())->window().setWindowTitle("Imported");
    Menu menu = windowMenu();
    ASSERT_EQ(menu.items.size(), 4u) << "the command, a separator, two documents";
    EXPECT_EQ(menu.items[2].title, "a");
    EXPECT_EQ(menu.items[2].toolTip, "/home/a.tbln");
    EXPECT_FALSE(menu.items[2].checked);
    EXPECT_EQ(menu.items[3].title, "Imported") << "as the window is called";
    EXPECT_TRUE(menu.items[3].checked);

    Document& first = *documents().documents().front();
    EXPECT_TRUE(app.responders().performMenuItem(menu.items[2]));
    EXPECT_EQ(windowOf(first).broughtToFront, 1);
    documents().windowDidBecomeKey(first);
    menu = windowMenu();
    EXPECT_TRUE(menu.items[2].checked);
    EXPECT_FALSE(menu.items[3].checked);
}

TEST_F(MenusTest, MinimizePutsTheCurrentWindowAwayAndTheMenuBringsItBack) {
    EXPECT_FALSE(enabled("performMiniaturize:")) << "there is no window";
    app.applicationDidFinishLaunching({});
    MemoryWindow& window = windowOf(*onlyDocument());
    EXPECT_TRUE(app.responders().performMenuItem(windowMenu().items[0]));
    EXPECT_TRUE(window.miniaturized);
    EXPECT_TRUE(app.responders().performMenuItem(windowMenu().items[2]));
    EXPECT_FALSE(window.miniaturized);
}

TEST_F(MenusTest, WindowItemOfADocumentThatWasClosedDoesNothing) {
    app.applicationDidFinishLaunching({});
    app.responders().performMenuItem(MenuItem{.action = "newDocument:"});
    const MenuItem item = windowMenu().items[3];
    EXPECT_TRUE(app.responders().validateMenuItem(item));
    perform("performClose:");
    ASSERT_EQ(documents().documents().size(), 1u);
    EXPECT_FALSE(app.responders().validateMenuItem(item));
    EXPECT_FALSE(app.responders().performMenuItem(item));
    EXPECT_FALSE(enabled("makeKeyAndOrderFront:")) << "without a document";
}

TEST_F(MenusTest, AboutNamesTheVersion) {
    perform("orderFrontStandardAboutPanel:");
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_NE(alerts.shown[0].informative.find("1.2.3"), std::string::npos);
}

TEST_F(MenusTest, ImportErrorAlertIsCriticalWithTheTextGiven) {
    importErrorAlert(platform(), "why");
    EXPECT_EQ(alerts.shown.at(0).style, AlertStyle::Critical);
    EXPECT_EQ(alerts.shown[0].message, base.texts.text("ImportError"));
    EXPECT_EQ(alerts.shown[0].informative, "why");
    EXPECT_EQ(alerts.shown[0].buttons.at(0).title, "OK");
}

TEST_F(MenusTest, DetailedErrorAlertGivesCodeFileAndReason) {
    detailedErrorAlert(platform(), 3840, "Bookmarks.plist", "It is damaged.", "Unexpected character.");
    EXPECT_EQ(alerts.shown.at(0).style, AlertStyle::Critical);
    EXPECT_EQ(alerts.shown[0].message, "Code : 3840, Bookmarks.plist.");
    EXPECT_EQ(alerts.shown[0].informative, "It is damaged. Unexpected character.");
}

} // namespace
} // namespace tabulon
