// Starting, opening files of every kind, importing bookmark files.
#include "base/Settings.h"
#include "tests/app/AppFixture.h"

#include <algorithm>
#include <array>

namespace tabulon {
namespace {

class OpeningTest : public AppTest {};

TEST_F(OpeningTest, StartWithoutFilesOpensAnUntitledDocument) {
    app.applicationDidFinishLaunching({});
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(windowOf(*onlyDocument()).title, "Untitled");
    EXPECT_TRUE(windowOf(*onlyDocument()).shown);
    EXPECT_TRUE(windowOf(*onlyDocument()).empty);
    EXPECT_FALSE(onlyDocument()->isDocumentEdited());
}

TEST_F(OpeningTest, OpenUntitledSetToNoShowsTheOpenPanelAndCancellingEnds) {
    setValue(base.defaults, settings::kOpenUntitled, false);
    app.applicationDidFinishLaunching({});
    EXPECT_TRUE(documents().documents().empty());
    EXPECT_EQ(panels.openPanels.size(), 1u);
    EXPECT_EQ(host.stops, 1);
}

TEST_F(OpeningTest, DocumentFileIsOpenedUnderItsName) {
    files.files["/home/links.tbln"] = documentBytes("a");
    app.applicationDidFinishLaunching({"/home/links.tbln"});
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(windowOf(*onlyDocument()).title, "links");
    EXPECT_EQ(onlyDocument()->fileName(), "/home/links.tbln");
    EXPECT_FALSE(onlyDocument()->isDocumentEdited());
    EXPECT_EQ(windowOf(*onlyDocument()).outlineView.rows.size(), 1u);
}

TEST_F(OpeningTest, ContentDecidesBeforeTheExtension) {
    files.files["/home/odd.html"] = documentBytes("a");
    files.files["/home/odd.tbln"] = bookmarkHTML;
    EXPECT_TRUE(app.fileOpening().openFile("/home/odd.html"));
    EXPECT_EQ(onlyDocument()->fileName(), "/home/odd.html");
    EXPECT_TRUE(app.fileOpening().openFile("/home/odd.tbln"));
    EXPECT_EQ(documents().documents().back()->fileName(), "");
}

TEST_F(OpeningTest, BookmarkHTMLBecomesAnUntitledChangedDocumentTitledAfterTheFile) {
    files.files["/home/from firefox.html"] = bookmarkHTML;
    EXPECT_TRUE(app.fileOpening().openFile("/home/from firefox.html"));
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(onlyDocument()->fileName(), "");
    EXPECT_TRUE(onlyDocument()->isDocumentEdited());
    EXPECT_EQ(windowOf(*onlyDocument()).title, "from firefox");
    EXPECT_EQ(onlyDocument()->getMaster().getChild()->itemName().view(), "Example");
}

TEST_F(OpeningTest, BookmarkFilesOfOtherProgramsBecomeUntitledDocumentsNamedAfterThem) {
    files.files["/home/Bookmarks"] =
        R"({"checksum": "0", "roots": {"bookmark_bar": {"children": [{"name": "Example", "type": "url", "url": "https://example.org/"}]}}})";
    files.files["/home/from KDE.xml"] =
        "<?xml version=\"1.0\"?><xbel><bookmark "
        "href=\"https://example.org/\"><title>Example</title></bookmark></xbel>";
    files.files["/home/Bookmarks.plist"] =
        "<?xml version=\"1.0\"?><plist><dict><key>Children</key><array><dict><key>URLString</key>"
        "<string>https://example.org/</string></dict></array></dict></plist>";
    files.files["/home/page.html"] =
        "<html><body><p><a href=\"https://example.org/\">Example</a></body></html>";
    for (const auto& [path, name] : {std::pair{"/home/Bookmarks", "Bookmarks"},
                                     {"/home/from KDE.xml", "from KDE"},
                                     {"/home/Bookmarks.plist", "Bookmarks"},
                                     {"/home/page.html", "page"}}) {
        ASSERT_TRUE(app.fileOpening().openFile(path)) << path;
        Document& document = *documents().currentDocument();
        EXPECT_EQ(document.fileName(), "");
        EXPECT_TRUE(document.getMaster().hasChildren()) << path;
        EXPECT_EQ(windowOf(document).title, name);
        perform("saveDocument:");
        EXPECT_EQ(panels.savePanels.back().proposedName, name) << "the panel";
        timers.advance(AutosavePause::kSeconds);
        EXPECT_TRUE(std::ranges::any_of(files.files, [&](const auto& file) {
            return file.first.starts_with("/state/") &&
                   file.first.ends_with(std::string(" ") + name + ".tbln");
        })) << "what a crash leaves is called the same";
        alerts.answer("Don’t Save");
        perform("performClose:");
        EXPECT_NE(alerts.shown.back().message.find(name), std::string::npos) << "the question";
    }
}

TEST_F(OpeningTest, ADamagedBookmarkFileIsRefusedInASentence) {
    files.files["/home/Bookmarks"] = "{\"roots\": {";
    EXPECT_FALSE(app.fileOpening().openFile("/home/Bookmarks"));
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "“Bookmarks” could not be opened");
    EXPECT_FALSE(alerts.shown[0].informative.empty());
}

TEST_F(OpeningTest, ClassicFileWithoutBookmarksGivesItsOwnAlert) {
    files.files["/home/old"] = std::string(20, '\0');
    EXPECT_FALSE(app.fileOpening().openFile("/home/old"));
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "File Read Error");
    EXPECT_EQ(alerts.shown[0].informative, "This document does not contain any bookmarks.");
}

TEST_F(OpeningTest, HTMLWithoutLinksGivesTheNoLinksAlertAndNoDocument) {
    files.files["/home/empty.html"] = "<html><body>nothing</body></html>";
    EXPECT_FALSE(app.fileOpening().openFile("/home/empty.html"));
    EXPECT_TRUE(documents().documents().empty());
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].style, AlertStyle::Informational);
    EXPECT_EQ(alerts.shown[0].message, "No links found");
    EXPECT_EQ(alerts.shown[0].informative, "No links were found in the text or file.");
    EXPECT_EQ(alerts.shown[0].buttons.at(0).title, "OK");
}

TEST_F(OpeningTest, ThePageOfALexiconOpensWithItsLinks) {
    files.files["/home/page.html"] = "<!DOCTYPE html><html><dl><dt>Term<dd>See <a "
                                     "href=\"https://example.org/\">there</a>.</dl></html>";
    EXPECT_TRUE(app.fileOpening().openFile("/home/page.html"));
    ASSERT_TRUE(onlyDocument());
    EXPECT_TRUE(onlyDocument()->getMaster().hasChildren());
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(OpeningTest, ABookmarkFileBehindAStyleSheetKeepsItsFolders) {
    files.files["/home/b.html"] = "<html><style>" + std::string(5000, ' ') +
                                  "</style><DL><p>\n<DT><H3>Folder</H3>\n<DL><p>\n<DT><A "
                                  "HREF=\"https://example.org/\">Example</A>\n</DL><p>\n</DL><p>\n";
    EXPECT_TRUE(app.fileOpening().openFile("/home/b.html"));
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(onlyDocument()->getMaster().getChild()->itemName().view(), "Folder");
}

TEST_F(OpeningTest, XBELBehindALongCommentOpens) {
    files.files["/home/b.xml"] = "<?xml version=\"1.0\"?>\n<!--" + std::string(5000, ' ') +
                                 "-->\n<xbel><bookmark href=\"https://example.org/\"><title>Example</title>"
                                 "</bookmark></xbel>";
    EXPECT_TRUE(app.fileOpening().openFile("/home/b.xml"));
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(onlyDocument()->getMaster().getChild()->itemName().view(), "Example");
}

TEST_F(OpeningTest, FileOfAnotherTypeIsRefusedWithoutAnAlert) {
    std::string bytes = documentBytes("a");
    // The version record contains the file type as these four bytes.
    const auto type = bytes.find("\x54\x62\x6C\x6E");
    ASSERT_NE(type, std::string::npos);
    bytes[type] = 'X';
    files.files["/home/other.tbln"] = bytes;
    EXPECT_FALSE(app.fileOpening().openFile("/home/other.tbln"));
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_TRUE(documents().documents().empty());
}

TEST_F(OpeningTest, DamagedDocumentGivesAnAlertThatNamesTheFile) {
    files.files["/home/broken.tbln"] = documentBytes("a").substr(0, 100);
    EXPECT_FALSE(app.fileOpening().openFile("/home/broken.tbln"));
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "“broken.tbln” could not be opened");
    EXPECT_FALSE(alerts.shown[0].informative.empty());
    EXPECT_EQ(alerts.shown[0].style, AlertStyle::Critical);
}

TEST_F(OpeningTest, FileOfAnotherKindIsRefusedByName) {
    files.files["/home/picture.png"] = "\x89PNG\r\n";
    EXPECT_FALSE(app.fileOpening().openFile("/home/picture.png"));
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "“picture.png” could not be opened");
    EXPECT_EQ(alerts.shown[0].informative,
              "It is neither a bookmark document nor a bookmark file of another program.");
}

TEST_F(OpeningTest, MissingFileGivesAnAlertAndAnUntitledDocument) {
    app.applicationDidFinishLaunching({"/home/gone.tbln"});
    ASSERT_EQ(alerts.shown.size(), 1u);
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(onlyDocument()->fileName(), "");
}

TEST_F(OpeningTest, OpenFileThatIsOpenComesToTheFront) {
    files.files["/home/a.tbln"] = documentBytes("a");
    EXPECT_TRUE(app.fileOpening().openFile("/home/a.tbln"));
    EXPECT_TRUE(app.fileOpening().openFile("/home/a.tbln"));
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(windowOf(*onlyDocument()).broughtToFront, 1);
}

TEST_F(OpeningTest, UntouchedFirstDocumentMakesRoomForAnOpenedFile) {
    files.files["/home/a.tbln"] = documentBytes("a");
    app.applicationDidFinishLaunching({});
    EXPECT_TRUE(app.fileOpening().openFile("/home/a.tbln"));
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(onlyDocument()->fileName(), "/home/a.tbln");
    EXPECT_EQ(host.stops, 0);
}

TEST_F(OpeningTest, ChangedFirstDocumentStays) {
    files.files["/home/a.tbln"] = documentBytes("a");
    app.applicationDidFinishLaunching({});
    onlyDocument()->updateChangeCount(ChangeKind::Done);
    EXPECT_TRUE(app.fileOpening().openFile("/home/a.tbln"));
    EXPECT_EQ(documents().documents().size(), 2u);
}

TEST_F(OpeningTest, OpenPanelOffersBothKindsAndTakesSeveralFiles) {
    files.files["/home/a.tbln"] = documentBytes("a");
    files.files["/home/b.html"] = bookmarkHTML;
    panels.chooseFiles({"/home/a.tbln", "/home/b.html"});
    EXPECT_TRUE(perform("openDocument:"));
    timers.advance(0);
    EXPECT_EQ(documents().documents().size(), 2u);
    ASSERT_EQ(panels.openPanels.size(), 1u);
    EXPECT_TRUE(panels.openPanels[0].allowsMultipleSelection);
    EXPECT_EQ(panels.openPanels[0].kinds.at(0).extensions,
              (std::vector<std::string>{"tbln", "html", "htm", "xbel", "plist"}));
    EXPECT_TRUE(panels.openPanels[0].kinds.at(1).extensions.empty()) << "files without an extension, too";
}

TEST_F(OpeningTest, NewMasterDocumentIsExpandedChangedAndShown) {
    const Ref<Bookmark> root = Bookmark::init(base.now());
    root->setItemName("Master");
    root->makeParent();
    root->addChild(Bookmark::init(base.now()));
    Document* document = documents().newMasterDocument(root);
    ASSERT_TRUE(document);
    EXPECT_EQ(&document->getMaster(), root.get());
    EXPECT_TRUE(root->showHier());
    EXPECT_EQ(root->getChild()->getDocument(), document);
    EXPECT_EQ(document->changeCount(), 1);
    EXPECT_EQ(windowOf(*document).title, "Untitled");
    EXPECT_EQ(windowOf(*document).outlineView.rows.size(), 1u);
}

TEST_F(OpeningTest, NewMasterDocumentGivesNothingWhereNoDocumentCanBeMade) {
    windows.noMoreWindows = true;
    const Ref<Bookmark> root = Bookmark::init(base.now());
    root->makeParent();
    EXPECT_EQ(documents().newMasterDocument(root), nullptr);
    EXPECT_TRUE(documents().documents().empty());
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(OpeningTest, ImportBookmarksAsksForHTMLFilesAndKeepsTheDefaultTitle) {
    files.files["/home/b.htm"] = bookmarkHTML;
    panels.chooseFiles({"/home/b.htm"});
    EXPECT_TRUE(perform("importBookmarks:"));
    ASSERT_EQ(panels.openPanels.size(), 1u);
    EXPECT_EQ(panels.openPanels[0].message, base.texts.text("SelectBookmarks"));
    EXPECT_EQ(panels.openPanels[0].prompt, "Select");
    EXPECT_EQ(panels.openPanels[0].kinds.at(0).extensions, (std::vector<std::string>{"html", "htm"}));
    EXPECT_FALSE(panels.openPanels[0].allowsMultipleSelection);
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(windowOf(*onlyDocument()).title, "Untitled");
    EXPECT_TRUE(onlyDocument()->isDocumentEdited());
}

TEST_F(OpeningTest, ImportBookmarksCancelledOrUnreadableDoesNothing) {
    EXPECT_TRUE(perform("importBookmarks:"));
    panels.chooseFiles({"/home/gone.html"});
    EXPECT_TRUE(perform("importBookmarks:"));
    EXPECT_TRUE(documents().documents().empty());
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(OpeningTest, ImportBookmarksWithNothingInItGivesTheNoLinksAlert) {
    files.files["/home/b.html"] = "plain text";
    panels.chooseFiles({"/home/b.html"});
    EXPECT_TRUE(perform("importBookmarks:"));
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "No links found");
}

TEST_F(OpeningTest, TheButtonOfTheNoLinksAlertIsTheSameInEveryLanguage) {
    struct Esperanto : Localization {
        std::string text(std::string_view key) const override { return "la " + std::string(key); }
        std::string locale() const override { return "eo"; }
    } texts;
    AppDelegate other(platformIn(texts), windows, instance, host, "1.2.3");
    files.files["/home/b.html"] = "nothing";
    panels.chooseFiles({"/home/b.html"});
    EXPECT_TRUE(other.responders().performMenuItem(MenuItem{.action = "importBookmarks:"}));
    EXPECT_TRUE(other.documentController().documents().empty());
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "la EmptyScan");
    EXPECT_EQ(alerts.shown[0].informative, "la NoURLs");
    ASSERT_EQ(alerts.shown[0].buttons.size(), 1u);
    EXPECT_EQ(alerts.shown[0].buttons[0].title, "OK");
}

TEST_F(OpeningTest, ADescriptionBeforeAnyItemGoesToTheLastItemOfTheImportBefore) {
    files.files["/home/a.html"] = "<DT><A HREF=\"u\">n</A>";
    files.files["/home/b.html"] = "<DD>late<HR></DL>";
    panels.chooseFiles({"/home/a.html"});
    EXPECT_TRUE(perform("importBookmarks:"));
    const Document* first = onlyDocument();
    ASSERT_TRUE(first);
    panels.chooseFiles({"/home/b.html"});
    EXPECT_TRUE(perform("importBookmarks:"));
    EXPECT_EQ(documents().documents().size(), 2u);
    EXPECT_EQ(first->getMaster().getChild()->itemNote().view(), "late");
}

TEST_F(OpeningTest, OpenFileReachedByALinkOrAnotherSpellingComesToTheFront) {
    files.files["/home/a.tbln"] = documentBytes("a");
    files.files["/home/twin.tbln"] = files.files["/home/a.tbln"];
    files.links["/desk/link.tbln"] = "/home/a.tbln";
    EXPECT_TRUE(app.fileOpening().openFile("/home/a.tbln"));
    EXPECT_TRUE(app.fileOpening().openFile("/desk/link.tbln"));
    EXPECT_TRUE(app.fileOpening().openFile("file:///home/a.tbln"));
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(windowOf(*onlyDocument()).broughtToFront, 2);
    EXPECT_TRUE(app.fileOpening().openFile("/home/twin.tbln"));
    EXPECT_EQ(documents().documents().size(), 2u) << "the same content is not the same file";
}

TEST_F(OpeningTest, SavingOverAnOpenFileIsRefusedUnderWhateverPath) {
    files.files["/home/a.tbln"] = documentBytes("a");
    files.links["/desk/link.tbln"] = "/home/a.tbln";
    const std::string before = files.files["/home/a.tbln"];
    EXPECT_TRUE(app.fileOpening().openFile("/home/a.tbln"));
    perform("newDocument:");
    panels.nameFile("/desk/link.tbln");
    perform("saveDocumentAs:");
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "“link.tbln” is open in another window");
    EXPECT_EQ(files.files["/home/a.tbln"], before);
}

TEST_F(OpeningTest, WhatIsNoFileIsRefusedWithItsReason) {
    files.folders = {"/home", "/home/folder"};
    files.devices.insert("/dev/zero");
    for (const auto& [location, name, reason] : std::vector<std::array<std::string, 3>>{
             {"/home/folder", "folder", "It is a folder. Open the files in it instead."},
             {"file:///home/folder/", "folder", "It is a folder. Open the files in it instead."},
             {"/dev/zero", "zero", "It is a device or a pipe, not a file."},
             {"/home/none.tbln", "none.tbln",
              "There is no such file in “/home”. It may have been moved, renamed or removed."},
             {"file://server/a.tbln", "file://server/a.tbln",
              "Only files on this computer can be opened."}}) {
        EXPECT_FALSE(app.fileOpening().openFile(location));
        EXPECT_EQ(alerts.shown.back().message, "“" + name + "” could not be opened");
        EXPECT_EQ(alerts.shown.back().informative, reason);
    }
    EXPECT_EQ(alerts.shown.size(), 5u);
}

TEST_F(OpeningTest, SeveralFilesThatCannotBeOpenedAreListedInOneAlertAndTheOthersOpen) {
    files.files["/home/a.tbln"] = documentBytes("a");
    files.files["/home/picture.png"] = "\x89PNG\r\n";
    openFiles({"/home/none.tbln", "/home/a.tbln", "/home/picture.png"});
    EXPECT_TRUE(onlyDocument());
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "2 files could not be opened");
    EXPECT_EQ(alerts.shown[0].informative,
              "“none.tbln”: There is no such file in “/home”. It may have been moved, renamed or removed.\n"
              "“picture.png”: It is neither a bookmark document nor a bookmark file of another program.");
}

TEST_F(OpeningTest, AHundredFilesThatCannotBeOpenedMakeAShortAlert) {
    files.folders.insert("/home");
    openFiles(std::vector<std::string>(100, "/home/none.tbln"));
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "100 files could not be opened");
    EXPECT_TRUE(alerts.shown[0].informative.ends_with("\nand 92 more"));
    EXPECT_EQ(std::ranges::count(alerts.shown[0].informative, '\n'), 8);
}

} // namespace
} // namespace tabulon
