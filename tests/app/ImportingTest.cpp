// The commands of the Import menu: their panels, their alerts, failures without an alert, and documents.
#include "tests/app/AppFixture.h"

#include <algorithm>
#include <map>

namespace tabulon {
namespace {

class ImportingTest : public AppTest {
protected:
    /// Runs the command and chooses this file in its panel.
    void import(const char* action, const std::string& path) {
        panels.chooseFiles({path});
        EXPECT_TRUE(perform(action)) << action;
    }
    void import(const char* action, const std::string& path, const std::string& content) {
        files.files[path] = content;
        import(action, path);
    }
    const OpenPanel& panel() { return panels.openPanels.back(); }
    void expectImportError(const std::string& informative) {
        ASSERT_EQ(alerts.shown.size(), 1u);
        EXPECT_EQ(alerts.shown[0].style, AlertStyle::Critical);
        EXPECT_EQ(alerts.shown[0].message, base.texts.text("ImportError"));
        EXPECT_EQ(alerts.shown[0].informative, informative);
        ASSERT_EQ(alerts.shown[0].buttons.size(), 1u);
        EXPECT_EQ(alerts.shown[0].buttons[0].title, "OK");
        EXPECT_TRUE(documents().documents().empty());
        alerts.shown.clear();
    }
    void expectNothing() {
        EXPECT_TRUE(alerts.shown.empty());
        EXPECT_TRUE(documents().documents().empty());
    }
    /// Returns the title of the window of the only document.
    std::string title() { return onlyDocument() ? windowOf(*onlyDocument()).title : "no document"; }
    void closeAll() {
        alerts.answer(base.texts.text("DontSave"));
        perform("performClose:");
        alerts.shown.clear();
        ASSERT_TRUE(documents().documents().empty());
    }

    const std::string safari = "<?xml version=\"1.0\"?><plist><dict><key>Children</key><array>"
                               "<dict><key>URLString</key><string>https://a/</string></dict>"
                               "</array></dict></plist>";
    const std::string chromium =
        R"({"roots": {"bookmark_bar": {"children": [{"type": "url", "name": "n", "url": "https://a/"}]}}})";
    const std::string xbel = "<?xml version=\"1.0\"?><xbel><title>T</title><folder/></xbel>";
};

TEST_F(ImportingTest, eachBrowserAsksForItsFileByItsExactName) {
    for (const auto& [action, name] :
         std::map<const char*, const char*>{{"importSafari:", "Bookmarks.plist"},
                                            {"importChrome:", "Bookmarks"},
                                            {"importChromium:", "Bookmarks"},
                                            {"importVivaldi:", "Bookmarks"},
                                            {"importBrave:", "Bookmarks"},
                                            {"importEdge:", "Bookmarks"},
                                            {"importOpera:", "Bookmarks"},
                                            {"importiCab:", "iCab 4 Bookmarks"}}) {
        const std::string please = "Please select the file “" + std::string(name) + "”.";
        EXPECT_TRUE(perform(action));
        EXPECT_EQ(panel().message, please);
        EXPECT_EQ(panel().prompt, "Select");
        EXPECT_TRUE(panel().kinds.empty());
        EXPECT_FALSE(panel().allowsMultipleSelection);
        expectNothing();

        std::string other = name;
        other[0] = static_cast<char>(other[0] ^ 0x20);
        import(action, "/home/" + other, chromium);
        expectImportError(please);
    }
}

TEST_F(ImportingTest, thePanelStartsWithTheFileThatTheBrowserWroteLast) {
    EXPECT_TRUE(perform("importChromium:"));
    EXPECT_EQ(panel().directory, "/home/downloads");
    EXPECT_EQ(panel().selectedFile, "");
    stores.files["org.chromium.Chromium"] = {"/home/snap/chromium/Default/Bookmarks", "/home/old/Bookmarks"};
    EXPECT_TRUE(perform("importChromium:"));
    EXPECT_EQ(panel().directory, "/home/snap/chromium/Default");
    EXPECT_EQ(panel().selectedFile, "/home/snap/chromium/Default/Bookmarks");
    EXPECT_TRUE(perform("importChrome:"));
    EXPECT_EQ(panel().directory, "/home/downloads");
    EXPECT_TRUE(perform("importXBEL:"));
    EXPECT_EQ(panel().directory, "") << "the folder of the last panel";
}

TEST_F(ImportingTest, theMenuMarksTheBrowsersThatAreHere) {
    stores.files["com.brave.Browser"] = {"/home/brave/Default/Bookmarks"};
    const Menu import = menuNamed("Import");
    ASSERT_FALSE(import.items.empty());
    for (const MenuItem& item : import.items) {
        const bool marked = !item.imageName.empty();
        EXPECT_EQ(marked, item.action == "importBrave:") << item.title;
        EXPECT_EQ(item.toolTip.find("/home/brave/Default/Bookmarks") != std::string::npos, marked);
    }
}

TEST_F(ImportingTest, everyFormatHasACommandInTheMenu) {
    const Menu import = menuNamed("Import");
    ASSERT_FALSE(import.items.empty());
    for (const ImportFormat& format : importFormats()) {
        const ImportSource* source = importSourceOf(format.name);
        ASSERT_TRUE(source) << format.name;
        EXPECT_NE(std::ranges::find(import.items, source->action, &MenuItem::action), import.items.end())
            << format.name;
        EXPECT_TRUE(enabled(std::string(source->action).c_str())) << format.name;
        EXPECT_EQ(source->reportsEmpty, format.name == "html" || format.name == "text") << format.name;
    }
}

TEST_F(ImportingTest, theWindowIsTitledAfterTheSourceUntilTheDocumentIsSaved) {
    import("importSafari:", "/home/Bookmarks.plist", safari);
    EXPECT_EQ(title(), "Imported from Safari");
    ASSERT_TRUE(onlyDocument());
    EXPECT_TRUE(onlyDocument()->isDocumentEdited());
    EXPECT_TRUE(onlyDocument()->fileName().empty());
    EXPECT_TRUE(onlyDocument()->getMaster().showHier());
    EXPECT_EQ(onlyDocument()->getMaster().itemName().view(), "Master");
    EXPECT_EQ(onlyDocument()->displayName(), "Imported from Safari") << "the question and the panel";
    onlyDocument()->updateChangeCount(ChangeKind::Done);
    EXPECT_EQ(title(), "Imported from Safari");
    panels.nameFile("/home/mine.tbln");
    EXPECT_TRUE(perform("saveDocumentAs:"));
    EXPECT_EQ(title(), "mine");
}

TEST_F(ImportingTest, everyBrowserOfTheFamilyNamesItself) {
    for (const auto& [action, source] : std::map<const char*, const char*>{{"importChrome:", "Chrome"},
                                                                           {"importChromium:", "Chromium"},
                                                                           {"importVivaldi:", "Vivaldi"},
                                                                           {"importBrave:", "Brave"},
                                                                           {"importEdge:", "Edge"},
                                                                           {"importOpera:", "Opera"}}) {
        import(action, "/home/Bookmarks", chromium);
        EXPECT_EQ(title(), std::string("Imported from ") + source);
        closeAll();
    }
    import("importiCab:", "/home/iCab 4 Bookmarks", safari);
    EXPECT_EQ(title(), "Imported from iCab");
}

TEST_F(ImportingTest, aSafariListThatCannotBeParsedIsReportedWithCodeNameAndReason) {
    import("importSafari:", "/home/Bookmarks.plist", "<plist><dict>");
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].style, AlertStyle::Critical);
    EXPECT_EQ(alerts.shown[0].message, "Code : 3840, Bookmarks.plist.");
    EXPECT_FALSE(alerts.shown[0].informative.empty());
    EXPECT_TRUE(documents().documents().empty());
}

TEST_F(ImportingTest, aSafariFileThatCannotBeReadIsPassedOverInSilence) {
    import("importSafari:", "/gone/Bookmarks.plist");
    expectNothing();
}

TEST_F(ImportingTest, aSafariListWithoutChildrenIsAnEmptyDocument) {
    import("importSafari:", "/home/Bookmarks.plist", "<?xml version=\"1.0\"?><plist><dict/></plist>");
    EXPECT_EQ(title(), "Imported from Safari");
    EXPECT_FALSE(onlyDocument()->getMaster().hasChildren());
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(ImportingTest, jsonThatCannotBeReadOrParsedIsReported) {
    import("importChrome:", "/home/Bookmarks", "{\"roots\": ");
    expectImportError(base.texts.text("ErrorImportBookmarks"));
    import("importEdge:", "/gone/Bookmarks");
    expectImportError(base.texts.text("ErrorImportBookmarks"));
    import("importOpera:", "/home/Bookmarks");
    expectImportError("Error importing Opera bookmarks");
    import("importOpera:", "/gone/Bookmarks");
    expectImportError("Error importing Opera bookmarks");
}

TEST_F(ImportingTest, jsonWithoutRootsIsPassedOverInSilence) {
    import("importVivaldi:", "/home/Bookmarks", "{\"version\": 1}");
    expectNothing();
    import("importOpera:", "/home/Bookmarks");
    expectNothing();
}

TEST_F(ImportingTest, whatOperaKeepsIsLogged) {
    import("importOpera:", "/home/Bookmarks", "{\n  \"version\": 1\n}\n");
    EXPECT_EQ(base.log.lines, std::vector<std::string>{"dictionary : {\"version\":1}"});
    import("importOpera:", "/home/Bookmarks", "{");
    EXPECT_EQ(base.log.lines.back(), "dictionary : (null)");
}

TEST_F(ImportingTest, anICabListThatCannotBeParsedGetsOneFixedSentence) {
    import("importiCab:", "/home/iCab 4 Bookmarks", "<plist><dict>");
    expectImportError("Error importing iCab bookmarks");
    import("importiCab:", "/gone/iCab 4 Bookmarks");
    expectNothing();
}

TEST_F(ImportingTest, xbelKeepsTheDefaultTitleAndEveryFailureIsSilent) {
    import("importXBEL:", "/home/a.xbel", "<xbel>");
    expectNothing();
    import("importXBEL:", "/home/a.xbel", "<xbel></xbel>");
    expectNothing();
    import("importXBEL:", "/gone/a.xbel");
    expectNothing();
    import("importXBEL:", "/home/a.xbel", xbel);
    EXPECT_EQ(title(), "Untitled");
    EXPECT_EQ(onlyDocument()->getMaster().itemName().view(), "T");
    EXPECT_EQ(panel().message, base.texts.text("SelectXBEL"));
}

TEST_F(ImportingTest, anXBELFileWithoutBookmarksIsAnEmptyDocument) {
    import("importXBEL:", "/home/a.xbel", "<?xml version=\"1.0\"?><xbel/>");
    ASSERT_TRUE(onlyDocument());
    EXPECT_FALSE(onlyDocument()->getMaster().hasChildren());
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(ImportingTest, thePanelOfHTMLFilesLeavesThemEnabledInLaterOnes) {
    const auto enabled = [this] {
        std::vector<std::string> extensions;
        for (const FileKind& kind : panel().kinds)
            extensions.insert(extensions.end(), kind.extensions.begin(), kind.extensions.end());
        return extensions;
    };
    EXPECT_TRUE(perform("importXBEL:"));
    EXPECT_EQ(enabled(), std::vector<std::string>{"xbel"});
    EXPECT_TRUE(perform("importBookmarks:"));
    EXPECT_EQ(enabled(), (std::vector<std::string>{"html", "htm"})) << "the XBEL panel takes its own back";
    EXPECT_TRUE(perform("importXBEL:"));
    EXPECT_EQ(enabled(), (std::vector<std::string>{"xbel", "html", "htm"}));
    EXPECT_TRUE(perform("scanText:"));
    EXPECT_TRUE(enabled().empty());
}

TEST_F(ImportingTest, aFileThatThePanelDoesNotEnableIsNotImported) {
    for (const char* name : {"/home/a.XBEL", "/home/a.txt", "/home/a.html", "/home/axbel"}) {
        import("importXBEL:", name, xbel);
        expectNothing();
    }
    import("importBookmarks:", "/home/a.HTM", bookmarkHTML);
    expectNothing();
    import("importXBEL:", "/home/a.html", xbel);
    EXPECT_TRUE(onlyDocument()) << "which the panel before has left enabled";
}

TEST_F(ImportingTest, textWithoutLinksGivesTheNoLinksAlert) {
    import("scanText:", "/home/a.txt", "nothing here");
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].style, AlertStyle::Informational);
    EXPECT_EQ(alerts.shown[0].message, "No links found");
    EXPECT_EQ(alerts.shown[0].informative, base.texts.text("NoURLs"));
    EXPECT_TRUE(documents().documents().empty());
    alerts.shown.clear();
    import("scanText:", "/gone/a.txt");
    expectNothing();
}

TEST_F(ImportingTest, textWithLinksBecomesAListOfThem) {
    import("scanText:", "/home/a", "see https://server/a?b=1, and more; user@server");
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(title(), "Untitled");
    const auto* links = onlyDocument()->getMaster().getChildren();
    ASSERT_EQ(links->size(), 2u);
    EXPECT_EQ(links->at(0)->itemURL().view(), "https://server/a?b=1");
    EXPECT_EQ(links->at(1)->itemURL().view(), "user@server");
    EXPECT_EQ(panel().message, base.texts.text("SelectTEXT"));
}

TEST_F(ImportingTest, theLinksOfAPageMakeADocumentOfAFixedName) {
    import("importHTML:", "/home/a.html", "<a href='https://a/'> one </a><a href='https://b/'></a>");
    EXPECT_EQ(panel().message, base.texts.text("SelectHTML"));
    EXPECT_EQ(title(), "Imported Bookmarks");
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(onlyDocument()->displayName(), "Imported Bookmarks");
    const auto* links = onlyDocument()->getMaster().getChildren();
    ASSERT_EQ(links->size(), 2u);
    EXPECT_EQ(links->at(0)->itemURL().view(), "https://a/");
    EXPECT_EQ(links->at(1)->itemName().view(), "Untitled");
}

TEST_F(ImportingTest, aPageWithoutLinksIsAnEmptyDocument) {
    import("importHTML:", "/home/a.html", "<p>nothing");
    ASSERT_TRUE(onlyDocument());
    EXPECT_FALSE(onlyDocument()->getMaster().hasChildren());
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(ImportingTest, aPanelForPagesTakesItsFilterBack) {
    EXPECT_TRUE(perform("importBookmarks:"));
    EXPECT_TRUE(perform("importHTML:"));
    EXPECT_EQ(panel().kinds.size(), 1u);
    EXPECT_TRUE(perform("importXBEL:"));
    ASSERT_EQ(panel().kinds.size(), 1u);
    EXPECT_EQ(panel().kinds[0].extensions, std::vector<std::string>{"xbel"});
}

TEST_F(ImportingTest, theClipboardWithoutATextDoesNothing) {
    EXPECT_TRUE(perform("scanClipboard:"));
    expectNothing();
}

TEST_F(ImportingTest, aPageOnTheClipboardIsReadAsOne) {
    for (const char* page : {"<html><a href='https://a/'>n", "<HTML><a href='https://a/'>n",
                             "text <a href='https://a/'>n</A>", "text <a href='https://a/'>n</a>"}) {
        pasteboard.setString(page);
        EXPECT_TRUE(perform("scanClipboard:"));
        ASSERT_TRUE(onlyDocument()) << page;
        EXPECT_EQ(title(), base.texts.text("GrabbedBookmarks"));
        EXPECT_EQ(onlyDocument()->getMaster().getChild()->itemName().view(), "n");
        closeAll();
    }
}

TEST_F(ImportingTest, otherTextOnTheClipboardIsScannedUpToANul) {
    using namespace std::string_literals;
    pasteboard.setString("<Html> https://a/ \0 https://b/"s);
    EXPECT_TRUE(perform("scanClipboard:"));
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(title(), "Untitled");
    ASSERT_EQ(onlyDocument()->getMaster().getChildren()->size(), 1u);
    EXPECT_EQ(onlyDocument()->getMaster().getChild()->itemURL().view(), "https://a/");
    closeAll();
    pasteboard.setString("no links");
    EXPECT_TRUE(perform("scanClipboard:"));
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "No links found");
}

TEST_F(ImportingTest, longImportsCanBeCancelled) {
    std::string text;
    for (int i = 0; i < 20'000; ++i)
        text += "https://server/" + std::to_string(i) + "\n";
    progress.cancelAfter = 1;
    import("scanText:", "/home/a.txt", text);
    expectNothing();
    ASSERT_EQ(progress.works.size(), 1u);
    EXPECT_EQ(progress.works[0].panel.message, "Importing “a.txt”");
    EXPECT_EQ(progress.works[0].panel.cancel, "Cancel");
    EXPECT_TRUE(progress.works[0].done);
}

TEST_F(ImportingTest, firefoxAndTorAreExplained) {
    for (const char* action : {"importFirefox:", "importTor:"}) {
        EXPECT_TRUE(perform(action));
        ASSERT_EQ(alerts.shown.size(), 1u);
        EXPECT_EQ(alerts.shown[0].style, AlertStyle::Informational);
        EXPECT_EQ(alerts.shown[0].message,
                  "Direct Import of Firefox or Tor bookmarks is currently not supported.");
        EXPECT_EQ(alerts.shown[0].informative,
                  "Please use Firefox -> Show All Bookmarks -> Export Bookmarks to HTML and then "
                  "Tabulon -> Import -> Bookmarks HTML File.");
        ASSERT_EQ(alerts.shown[0].buttons.size(), 2u);
        EXPECT_EQ(alerts.shown[0].buttons[0].title, "OK");
        EXPECT_EQ(alerts.shown[0].buttons[1].title, "Cancel");
        alerts.shown.clear();
    }
    expectNothing();
}

TEST_F(ImportingTest, whereNoWindowCanBeMadeNothingHappens) {
    windows.noMoreWindows = true;
    import("importSafari:", "/home/Bookmarks.plist", safari);
    expectNothing();
}

} // namespace
} // namespace tabulon
