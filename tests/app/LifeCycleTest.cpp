// The effects of a save other than writing the document, files that another program changes, and reverting.
#include "base/Settings.h"
#include "tests/app/AppFixture.h"

namespace tabulon {
namespace {

class LifeCycleTest : public AppTest {
protected:
    Document& openDocument(const std::string& path = "/home/Links.tbln") {
        files.files[path] = documentBytes("first");
        app.fileOpening().openFile(path);
        return *documents().documents().back();
    }
    void change(Document& document, const char* name) {
        document.getMaster().getChild()->setItemName(name);
        document.updateChangeCount(ChangeKind::Done);
    }
    static double secondsAt(double unixSeconds) { return unixSeconds - Date::kReferenceUnixSeconds; }
    std::string nameIn(const std::string& path) {
        Document document(base.services());
        EXPECT_TRUE(document.readFromDataOfType(files.files.at(path), kDocumentType));
        return document.getMaster().getChild()->itemName().string();
    }
};

TEST_F(LifeCycleTest, SideTasksOfASaveComeInTheirOrderBeforeTheDocument) {
    setValue(base.defaults, settings::kSaveAsHTML, true);
    folders.store(settings::kBackupFolderBookmark.key, "/backups");
    folders.store(settings::kExportHTMLBookmark.key, "/web/links.html");
    Document& document = openDocument();
    windowOf(document).place = "1 2 3 4";
    std::vector<std::string> steps;
    files.willWrite = [&](const std::string& path) {
        const bool frameIsKept = state.stringForKey("NSWindow Frame Links").has_value();
        if (!path.starts_with(folders.state))
            steps.push_back(path + (frameIsKept ? " after the frame" : ""));
    };
    change(document, "second");
    perform("saveDocument:");
    EXPECT_EQ(steps, (std::vector<std::string>{"/backups/Links-2025-11-16.tbln", "/web/links.html",
                                               "/home/Links.tbln after the frame"}));
}

TEST_F(LifeCycleTest, BackupOfANameWithoutExtensionEndsWithThePoint) {
    folders.store(settings::kBackupFolderBookmark.key, "/backups");
    change(openDocument("/home/old.links/Links"), "second");
    perform("saveDocument:");
    EXPECT_EQ(nameIn("/backups/Links-2025-11-16."), "first");
}

TEST_F(LifeCycleTest, ClassicFileIsSavedInTheCurrentFormatAndBackedUpAsItWas) {
    const std::string fixedPart = std::string("\0\1\0\0", 4) + std::string(44, '\0');
    const std::string classic = std::string("\0\3", 2) + std::string(8, '\0') + std::string("\0\1", 2) +
                                std::string(8, '\0') + fixedPart + std::string("\0\4olds\0", 7);
    files.files["/home/Classic.tbln"] = classic;
    app.fileOpening().openFile("/home/Classic.tbln");
    ASSERT_TRUE(onlyDocument());
    EXPECT_FALSE(onlyDocument()->isDocumentEdited());
    EXPECT_EQ(onlyDocument()->getMaster().getChild()->itemName().view(), "olds");
    change(*onlyDocument(), "new");
    perform("saveDocument:");
    EXPECT_TRUE(files.files["/home/Classic.tbln"].starts_with("bplist00"));
    EXPECT_EQ(nameIn("/home/Classic.tbln"), "new");
    EXPECT_EQ(files.files["/home/documents/Classic-2025-11-16.tbln"], classic);
}

TEST_F(LifeCycleTest, BackupHoldsTheVersionBeforeTheSaveUnderTheLocalDate) {
    base.clock.set(secondsAt(1794787200)); // 2026-11-16 00:00 UTC
    base.clock.zone = "America/New_York";
    folders.store(settings::kBackupFolderBookmark.key, "/backups");
    Document& document = openDocument();
    change(document, "second");
    perform("saveDocument:");
    EXPECT_EQ(nameIn("/backups/Links-2026-11-15.tbln"), "first");
    EXPECT_EQ(nameIn("/home/Links.tbln"), "second");
    change(document, "third");
    perform("saveDocument:");
    EXPECT_EQ(nameIn("/backups/Links-2026-11-15.tbln"), "second");
    base.clock.zone = "Europe/Berlin";
    change(document, "fourth");
    perform("saveDocument:");
    EXPECT_EQ(nameIn("/backups/Links-2026-11-16.tbln"), "third");
    EXPECT_EQ(nameIn("/backups/Links-2026-11-15.tbln"), "second");
}

TEST_F(LifeCycleTest, FirstSaveMakesNoBackup) {
    documents().openUntitledDocumentAndDisplay();
    panels.nameFile("/home/new.tbln");
    perform("saveDocument:");
    EXPECT_EQ(filesOfTheUser(), 1u);
}

TEST_F(LifeCycleTest, BackupGoesToTheDocumentsFolderWhenItsOwnIsGone) {
    folders.store(settings::kBackupFolderBookmark.key, "/backups");
    folders.gone.insert("/backups");
    change(openDocument(), "second");
    perform("saveDocument:");
    EXPECT_EQ(nameIn("/home/documents/Links-" + std::string("2025-11-16") + ".tbln"), "first");
}

TEST_F(LifeCycleTest, WithoutAnyFolderThereIsNoBackup) {
    folders.documents.reset();
    change(openDocument(), "second");
    perform("saveDocument:");
    EXPECT_EQ(filesOfTheUser(), 1u);
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(LifeCycleTest, MakeBackupsOffMakesNone) {
    setValue(base.defaults, settings::kMakeBackups, false);
    change(openDocument(), "second");
    perform("saveDocument:");
    EXPECT_EQ(filesOfTheUser(), 1u);
}

TEST_F(LifeCycleTest, FailedBackupNeverMakesTheSaveFail) {
    files.unwritable = "/home/documents";
    Document& document = openDocument();
    change(document, "second");
    perform("saveDocument:");
    EXPECT_EQ(nameIn("/home/Links.tbln"), "second");
    EXPECT_FALSE(document.isDocumentEdited());
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(LifeCycleTest, HTMLCopyIsWrittenToTheChosenFile) {
    setValue(base.defaults, settings::kSaveAsHTML, true);
    folders.store(settings::kExportHTMLBookmark.key, "/web/links.html");
    Document& document = openDocument();
    document.getMaster().getChild()->setItemURL("https://a.example/");
    change(document, "second");
    perform("saveDocument:");
    EXPECT_NE(files.files.at("/web/links.html").find(">second</A>"), std::string::npos);
}

TEST_F(LifeCycleTest, FailedHTMLCopyNeverMakesTheSaveFail) {
    setValue(base.defaults, settings::kSaveAsHTML, true);
    folders.store(settings::kExportHTMLBookmark.key, "/web/links.html");
    files.unwritable = "/web";
    Document& document = openDocument();
    change(document, "second");
    perform("saveDocument:");
    EXPECT_EQ(nameIn("/home/Links.tbln"), "second");
    EXPECT_FALSE(document.isDocumentEdited());
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(LifeCycleTest, HTMLCopyThatIsGoneIsNotMadeAnew) {
    setValue(base.defaults, settings::kSaveAsHTML, true);
    folders.store(settings::kExportHTMLBookmark.key, "/web/links.html");
    folders.gone.insert("/web/links.html");
    change(openDocument(), "second");
    perform("saveDocument:");
    EXPECT_FALSE(files.fileExists("/web/links.html"));
    EXPECT_EQ(nameIn("/home/Links.tbln"), "second");
}

TEST_F(LifeCycleTest, SaveAsHTMLWithoutAChosenFileWritesOnlyTheDocument) {
    setValue(base.defaults, settings::kSaveAsHTML, true);
    setValue(base.defaults, settings::kMakeBackups, false);
    change(openDocument(), "second");
    perform("saveDocument:");
    EXPECT_EQ(filesOfTheUser(), 1u);
}

TEST_F(LifeCycleTest, WindowFrameFollowsTheFile) {
    Document& document = openDocument();
    windowOf(document).place = "10 20 800 500";
    change(document, "second");
    perform("saveDocument:");
    perform("performClose:");
    app.fileOpening().openFile("/home/Links.tbln");
    EXPECT_EQ(windowOf(*documents().documents().back()).place, "10 20 800 500");
    EXPECT_EQ(state.stringForKey("NSWindow Frame Links"), "10 20 800 500");
}

TEST_F(LifeCycleTest, FramesAreKeptByTheNameOfTheFileWithoutItsExtension) {
    Document& links = openDocument("/home/Links.tbln");
    Document& other = openDocument("/home/Other.links.tbln");
    windowOf(links).place = "1 1 600 400";
    windowOf(other).place = "2 2 700 500";
    for (Document* document : {&links, &other})
        documents().saveDocument(*document, [](bool) {});
    EXPECT_EQ(state.stringForKey("NSWindow Frame Links"), "1 1 600 400");
    EXPECT_EQ(state.stringForKey("NSWindow Frame Other.links"), "2 2 700 500");
    Document& namesake = openDocument("/elsewhere/Links.tbln");
    EXPECT_EQ(windowOf(namesake).place, "1 1 600 400") << "the name counts, not the folder";
}

TEST_F(LifeCycleTest, ClosingADocumentWhoseFileWasChangedCanDropItsChanges) {
    Document& document = openDocument();
    change(document, "mine");
    files.files["/home/Links.tbln"] = documentBytes("theirs");
    alerts.answer("Cancel");
    perform("performClose:");
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "“Links.tbln” was changed by another program");
    EXPECT_NE(alerts.shown[0].informative.find("close without saving"), std::string::npos);
    EXPECT_EQ(onlyDocument(), &document);
    EXPECT_EQ(windowOf(document).broughtToFront, 1);
    alerts.answer("Close Without Saving");
    perform("performClose:");
    EXPECT_TRUE(documents().documents().empty());
    EXPECT_EQ(nameIn("/home/Links.tbln"), "theirs");
}

TEST_F(LifeCycleTest, ClosingADocumentWhoseFileIsGoneSavesItAgainOrDropsIt) {
    change(openDocument(), "mine");
    files.files.erase("/home/Links.tbln");
    alerts.answer("Close Without Saving");
    perform("performClose:");
    EXPECT_TRUE(documents().documents().empty());
    EXPECT_FALSE(files.fileExists("/home/Links.tbln"));
    change(openDocument(), "mine");
    files.files.erase("/home/Links.tbln");
    alerts.answer("Save");
    perform("performClose:");
    EXPECT_TRUE(documents().documents().empty());
    EXPECT_EQ(nameIn("/home/Links.tbln"), "mine");
}

TEST_F(LifeCycleTest, ClosingWhileTheFoldersDiskIsGoneDoesNotHoldTheUserPrisoner) {
    change(openDocument("/media/stick/Links.tbln"), "mine");
    files.files.erase("/media/stick/Links.tbln");
    files.unwritable = "/media/stick";
    alerts.answer("Save");
    alerts.answer("Close Without Saving");
    app.terminate();
    ASSERT_EQ(alerts.shown.size(), 2u);
    EXPECT_EQ(alerts.shown[1].message, "“Links.tbln” could not be saved");
    EXPECT_EQ(host.stops, 1);
}

TEST_F(LifeCycleTest, FileChangedByAnotherProgramIsNeverOverwrittenSilently) {
    Document& document = openDocument();
    change(document, "mine");
    files.files["/home/Links.tbln"] = documentBytes("theirs");
    alerts.answer("Cancel");
    perform("saveDocument:");
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "“Links.tbln” was changed by another program");
    EXPECT_EQ(nameIn("/home/Links.tbln"), "theirs");
    EXPECT_TRUE(document.isDocumentEdited());
}

TEST_F(LifeCycleTest, KeepMineOverwritesAndBacksTheirsUp) {
    Document& document = openDocument();
    change(document, "mine");
    files.files["/home/Links.tbln"] = documentBytes("theirs");
    alerts.answer("Keep Mine");
    perform("saveDocument:");
    EXPECT_EQ(nameIn("/home/Links.tbln"), "mine");
    EXPECT_EQ(nameIn("/home/documents/Links-2025-11-16.tbln"), "theirs");
    EXPECT_FALSE(document.isDocumentEdited());
    change(document, "mine again");
    perform("saveDocument:");
    EXPECT_EQ(alerts.shown.size(), 1u);
}

TEST_F(LifeCycleTest, ReloadTakesTheirsAndShowsIt) {
    Document& document = openDocument();
    change(document, "mine");
    files.files["/home/Links.tbln"] = documentBytes("theirs");
    alerts.answer("Reload");
    perform("saveDocument:");
    EXPECT_EQ(document.getMaster().getChild()->itemName(), Text("theirs"));
    EXPECT_FALSE(document.isDocumentEdited());
    EXPECT_TRUE(windowOf(document).outlineView.rowsAreRight());
    change(document, "mine");
    perform("saveDocument:");
    EXPECT_EQ(nameIn("/home/Links.tbln"), "mine");
}

TEST_F(LifeCycleTest, SaveAsLeavesTheirsAlone) {
    Document& document = openDocument();
    change(document, "mine");
    files.files["/home/Links.tbln"] = documentBytes("theirs");
    alerts.answer("Save As…");
    panels.nameFile("/home/mine.tbln");
    perform("saveDocument:");
    EXPECT_EQ(nameIn("/home/Links.tbln"), "theirs");
    EXPECT_EQ(nameIn("/home/mine.tbln"), "mine");
    EXPECT_EQ(document.fileName(), "/home/mine.tbln");
}

TEST_F(LifeCycleTest, FileThatChangesWhileTheSavePanelIsUpIsNotOverwrittenUnasked) {
    Document& document = openDocument();
    change(document, "mine");
    panels.whileSaving = [this] { files.files["/home/Links.tbln"] = documentBytes("theirs"); };
    panels.nameFile("/home/Links.tbln");
    alerts.answer("Cancel");
    perform("saveDocumentAs:");
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "“Links.tbln” was changed by another program");
    EXPECT_EQ(nameIn("/home/Links.tbln"), "theirs");
    EXPECT_TRUE(document.isDocumentEdited());
}

TEST_F(LifeCycleTest, AFullDiskThatHasRoomAgainTakesTheNextSaveOfBothDocuments) {
    Document& first = openDocument("/home/A.tbln");
    Document& second = openDocument("/home/B.tbln");
    files.diskFull = true;
    change(first, "1");
    change(second, "2");
    timers.advance(AutosavePause::kSeconds);
    EXPECT_EQ(alerts.shown.size(), 2u) << "each file once";
    alerts.answer("OK");
    documents().saveDocument(second, [](bool) {});
    files.diskFull = false;
    change(first, "3");
    change(second, "4");
    timers.advance(AutosavePause::kSeconds);
    EXPECT_EQ(nameIn("/home/A.tbln"), "3");
    EXPECT_EQ(nameIn("/home/B.tbln"), "4");
    EXPECT_EQ(alerts.shown.size(), 3u);
}

TEST_F(LifeCycleTest, RemovedFileIsSavedAgainOnlyWhenAsked) {
    Document& document = openDocument();
    change(document, "mine");
    files.files.erase("/home/Links.tbln");
    alerts.answer("Cancel");
    perform("saveDocument:");
    EXPECT_FALSE(files.fileExists("/home/Links.tbln"));
    EXPECT_EQ(alerts.shown[0].message, "“Links.tbln” is no longer there");
    alerts.answer("Save");
    perform("saveDocument:");
    EXPECT_EQ(nameIn("/home/Links.tbln"), "mine");
    EXPECT_FALSE(document.isDocumentEdited());
}

TEST_F(LifeCycleTest, RevertAsksReadsAgainHidesMarksAndLeavesTheDocumentClean) {
    setValue(base.defaults, settings::kShowMarks, true);
    const Document& other = openDocument("/home/Other.tbln");
    Document& document = openDocument();
    EXPECT_FALSE(enabled("revertDocumentToSaved:"));
    change(document, "mine");
    EXPECT_TRUE(enabled("revertDocumentToSaved:"));
    alerts.answer("Cancel");
    perform("revertDocumentToSaved:");
    EXPECT_TRUE(document.isDocumentEdited());
    alerts.answer("Revert");
    perform("revertDocumentToSaved:");
    EXPECT_FALSE(document.isDocumentEdited());
    EXPECT_EQ(document.getMaster().getChild()->itemName(), Text("first"));
    EXPECT_FALSE(valueOf(base.defaults, settings::kShowMarks));
    EXPECT_EQ(windowOf(other).outlineView.reloaded.size(), 1u) << "marks are hidden in every window";
    EXPECT_TRUE(windowOf(document).outlineView.rowsAreRight());
}

TEST_F(LifeCycleTest, RevertThatCannotReadKeepsTheDocument) {
    Document& document = openDocument();
    change(document, "mine");
    files.files["/home/Links.tbln"] = "damaged";
    alerts.answer("Revert");
    perform("revertDocumentToSaved:");
    EXPECT_TRUE(document.isDocumentEdited());
    EXPECT_EQ(document.getMaster().getChild()->itemName(), Text("mine"));
    EXPECT_EQ(alerts.shown.size(), 2u);
}

} // namespace
} // namespace tabulon
