// Saving, saving under another name, the HTML copy, and the state after a write to a full disk.
#include "base/Settings.h"
#include "tests/app/AppFixture.h"

namespace tabulon {
namespace {

class SavingTest : public AppTest {
protected:
    Document& openDocument(const std::string& path = "/home/a.tbln") {
        files.files[path] = documentBytes("a");
        app.fileOpening().openFile(path);
        return *documents().documents().back();
    }
};

TEST_F(SavingTest, SaveWritesTheFileAndCleansTheDocument) {
    Document& document = openDocument();
    document.getMaster().getChild()->setItemName("renamed");
    document.updateChangeCount(ChangeKind::Done);
    EXPECT_TRUE(perform("saveDocument:"));
    EXPECT_FALSE(document.isDocumentEdited());
    EXPECT_NE(files.files["/home/a.tbln"].find("renamed"), std::string::npos);
    EXPECT_TRUE(panels.savePanels.empty());
}

TEST_F(SavingTest, FailedSaveAlertsKeepsTheDocumentChangedAndTheFileWhole) {
    Document& document = openDocument();
    const std::string before = files.files["/home/a.tbln"];
    document.updateChangeCount(ChangeKind::Done);
    files.diskFull = true;
    EXPECT_TRUE(perform("saveDocument:"));
    EXPECT_TRUE(document.isDocumentEdited());
    EXPECT_EQ(files.files["/home/a.tbln"], before);
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "“a.tbln” could not be saved");
    EXPECT_NE(alerts.shown[0].informative.find("disk is full"), std::string::npos);
    EXPECT_EQ(alerts.shown[0].document, &document);
}

TEST_F(SavingTest, SavingAnUntitledDocumentAsksForAName) {
    Document& document = *documents().openUntitledDocumentAndDisplay();
    panels.nameFile("/home/new.tbln");
    EXPECT_TRUE(perform("saveDocument:"));
    ASSERT_EQ(panels.savePanels.size(), 1u);
    EXPECT_EQ(panels.savePanels[0].proposedName, "Untitled");
    EXPECT_EQ(panels.savePanels[0].kind.extensions, std::vector<std::string>{"tbln"});
    EXPECT_EQ(panels.savePanels[0].document, &document);
    EXPECT_EQ(document.fileName(), "/home/new.tbln");
    EXPECT_EQ(windowOf(document).title, "new");
}

TEST_F(SavingTest, SaveAsKeepsTheOldFileAndTakesTheNewName) {
    Document& document = openDocument();
    const std::string before = files.files["/home/a.tbln"];
    document.getMaster().getChild()->setItemName("renamed");
    panels.nameFile("/home/b.tbln");
    EXPECT_TRUE(perform("saveDocumentAs:"));
    EXPECT_EQ(files.files["/home/a.tbln"], before);
    EXPECT_TRUE(files.fileExists("/home/b.tbln"));
    EXPECT_EQ(document.fileName(), "/home/b.tbln");
}

TEST_F(SavingTest, FailedSaveAsKeepsTheOldName) {
    Document& document = openDocument();
    files.diskFull = true;
    panels.nameFile("/home/b.tbln");
    EXPECT_TRUE(perform("saveDocumentAs:"));
    EXPECT_EQ(document.fileName(), "/home/a.tbln");
    EXPECT_FALSE(files.fileExists("/home/b.tbln"));
    EXPECT_EQ(alerts.shown.size(), 1u);
}

TEST_F(SavingTest, CancelledSavePanelChangesNothing) {
    Document& document = *documents().openUntitledDocumentAndDisplay();
    document.updateChangeCount(ChangeKind::Done);
    EXPECT_TRUE(perform("saveDocument:"));
    EXPECT_TRUE(document.isDocumentEdited());
    EXPECT_TRUE(files.files.empty());
}

TEST_F(SavingTest, SaveAsOntoAFileOpenInAnotherWindowIsRefused) {
    openDocument("/home/a.tbln");
    Document& second = openDocument("/home/b.tbln");
    const std::string before = files.files["/home/a.tbln"];
    panels.nameFile("/home/a.tbln");
    EXPECT_TRUE(perform("saveDocumentAs:"));
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "“a.tbln” is open in another window");
    EXPECT_EQ(alerts.shown[0].document, &second) << "the other window can be closed";
    EXPECT_EQ(second.fileName(), "/home/b.tbln");
    EXPECT_EQ(files.files["/home/a.tbln"], before);
}

TEST_F(SavingTest, ExportWritesHTMLAndLaterSavesWriteTheCopyAskedForThere) {
    Document& document = openDocument();
    setValue(base.defaults, settings::kSaveAsHTML, true);
    panels.nameFile("/home/out.html");
    EXPECT_TRUE(perform("exportText:"));
    const std::string exported = files.files["/home/out.html"];
    EXPECT_TRUE(exported.starts_with("<!DOCTYPE NETSCAPE-Bookmark-file-1>\n"));
    document.getMaster().getChild()->setItemNote("new");
    document.updateChangeCount(ChangeKind::Done);
    EXPECT_TRUE(perform("saveDocument:"));
    EXPECT_NE(files.files["/home/out.html"].find("<DD>new"), std::string::npos);
}

TEST_F(SavingTest, OpenedAndSavedFilesAreRecentNewestFirst) {
    openDocument("/home/a.tbln");
    panels.nameFile("/home/b.tbln");
    perform("saveDocumentAs:");
    EXPECT_EQ(documents().recentDocuments().paths(),
              (std::vector<std::string>{"/home/b.tbln", "/home/a.tbln"}));
}

} // namespace
} // namespace tabulon
