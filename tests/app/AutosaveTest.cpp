// Automatic saving, and the documents that are restored after a crash.
#include "base/Settings.h"
#include "tests/app/AppFixture.h"

namespace tabulon {
namespace {

class AutosaveTest : public AppTest {
protected:
    Document& openDocument(const std::string& path = kPath) {
        files.files[path] = documentBytes("first");
        app.fileOpening().openFile(path);
        return *documents().documents().back();
    }
    Document& untitled() { return *documents().openUntitledDocumentAndDisplay(); }
    void change(Document& document, const char* name = "changed") {
        if (!document.getMaster().getChild())
            document.getMaster().addChild(Bookmark::init(base.now()));
        document.getMaster().getChild()->setItemName(name);
        document.updateChangeCount(ChangeKind::Done);
    }
    std::string nameIn(const std::string& path) {
        Document document(base.services());
        EXPECT_TRUE(document.readFromDataOfType(files.files.at(path), kDocumentType));
        return document.getMaster().getChild()->itemName().string();
    }
    std::vector<std::string> copies() {
        std::vector<std::string> paths;
        for (const auto& [path, bytes] : files.files)
            if (path.starts_with("/state/") && path.ends_with(".tbln"))
                paths.push_back(path);
        return paths;
    }
};

TEST_F(AutosaveTest, ChangedDocumentIsSavedAPauseAfterTheChange) {
    Document& document = openDocument();
    change(document);
    timers.advance(kPause - 0.1);
    EXPECT_TRUE(document.isDocumentEdited()) << "the mark shows in between";
    EXPECT_EQ(nameIn(kPath), "first");
    timers.advance(0.2);
    EXPECT_FALSE(document.isDocumentEdited());
    EXPECT_EQ(nameIn(kPath), "changed");
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_EQ(timers.running(), 0u);
}

TEST_F(AutosaveTest, FurtherChangesPutSavingOffButNotForEver) {
    Document& document = openDocument();
    change(document, "1");
    timers.advance(kPause / 2);
    change(document, "2");
    timers.advance(kPause / 2 + 0.1);
    EXPECT_EQ(nameIn(kPath), "first") << "a change came in between";
    timers.advance(kPause);
    EXPECT_EQ(nameIn(kPath), "2");
    double waited = 0;
    for (change(document, "3"); nameIn(kPath) == "2" && waited < 1000; waited += 1) {
        change(document, "3");
        timers.advance(1);
    }
    EXPECT_LE(waited, kPause * (AutosavePause::kMostPostponements + 1) + 1);
}

TEST_F(AutosaveTest, DocumentsThatTakeLongToSaveAreSavedLessOften) {
    files.willWrite = [this](const std::string& path) { base.clock.advance(path == kPath ? 0.6 : 0); };
    Document& document = openDocument();
    change(document, "1");
    timers.advance(kPause);
    EXPECT_EQ(nameIn(kPath), "1");
    change(document, "2");
    timers.advance(2 * kPause);
    EXPECT_EQ(nameIn(kPath), "1");
    timers.advance(10);
    EXPECT_EQ(nameIn(kPath), "2");
}

TEST_F(AutosaveTest, ClockThatIsSetDuringASavePutsTheNextOffByAMinuteAtMost) {
    for (const double jump : {1e6, -1e6}) {
        files.willWrite = [&](const std::string&) { base.clock.advance(jump); };
        Document& document = openDocument();
        change(document, "1");
        timers.advance(kPause);
        change(document, "2");
        timers.advance(61);
        EXPECT_EQ(nameIn(kPath), "2") << jump;
        documents().closeDocument(document, [](bool) {});
    }
}

TEST_F(AutosaveTest, SavingByItselfMakesBackupsLikeAnySave) {
    folders.store(settings::kBackupFolderBookmark.key, "/backups");
    change(openDocument());
    timers.advance(kPause);
    EXPECT_EQ(nameIn("/backups/Links-2025-11-16.tbln"), "first");
}

TEST_F(AutosaveTest, SavedByHandIsNotSavedAgain) {
    Document& document = openDocument();
    change(document);
    perform("saveDocument:");
    const int writes = files.writes;
    timers.advance(10 * kPause);
    EXPECT_EQ(files.writes, writes);
}

TEST_F(AutosaveTest, ClosedDocumentIsSavedBeforeAndNotAfter) {
    Document& document = openDocument();
    change(document);
    perform("performClose:");
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_TRUE(documents().documents().empty());
    EXPECT_EQ(nameIn(kPath), "changed");
    EXPECT_EQ(timers.running(), 0u);
}

TEST_F(AutosaveTest, DeactivationSavesAtOnce) {
    change(openDocument());
    change(untitled());
    app.applicationWillResignActive();
    EXPECT_EQ(nameIn(kPath), "changed");
    EXPECT_EQ(copies().size(), 1u);
}

TEST_F(AutosaveTest, QuittingSavesDocumentsWithAFileWithoutAQuestion) {
    change(openDocument());
    app.terminate();
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_EQ(nameIn(kPath), "changed");
    EXPECT_EQ(host.stops, 1);
}

TEST_F(AutosaveTest, EndOfTheSessionAsksNothingAndKeepsWhatHasNoFile) {
    change(openDocument());
    change(untitled(), "kept");
    app.sessionWillEnd();
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_EQ(host.stops, 1);
    ASSERT_EQ(copies().size(), 1u);
    EXPECT_EQ(nameIn(copies()[0]), "kept");
    EXPECT_EQ(nameIn(kPath), "changed");
}

TEST_F(AutosaveTest, FailureIsReportedOnceUntilSavingWorksAgain) {
    Document& document = openDocument();
    files.diskFull = true;
    for (int i = 0; i < 3; ++i) {
        change(document);
        timers.advance(kPause);
    }
    EXPECT_TRUE(document.isDocumentEdited());
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "“Links.tbln” could not be saved");
    EXPECT_EQ(nameIn(kPath), "first") << "the old file is whole";
    files.diskFull = false;
    change(document);
    timers.advance(kPause);
    EXPECT_EQ(nameIn(kPath), "changed");
    files.diskFull = true;
    change(document);
    timers.advance(kPause);
    EXPECT_EQ(alerts.shown.size(), 2u);
}

TEST_F(AutosaveTest, FileChangedByAnotherProgramIsAskedAboutOnceAndNeverOverwritten) {
    Document& document = openDocument();
    files.files[kPath] = documentBytes("theirs, and longer");
    for (int i = 0; i < 3; ++i) {
        alerts.answer("Cancel");
        change(document);
        timers.advance(kPause);
    }
    EXPECT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(nameIn(kPath), "theirs, and longer");
    app.applicationWillResignActive();
    EXPECT_EQ(alerts.shown.size(), 1u) << "nothing comes up over other programs";
    files.files[kPath] = documentBytes("theirs, longer and again");
    change(document);
    timers.advance(kPause);
    EXPECT_EQ(alerts.shown.size(), 2u) << "another state of the file";
    EXPECT_TRUE(document.isDocumentEdited());
}

TEST_F(AutosaveTest, WhatTheFileDoesNotTakeIsKeptInACopyUntilItDoes) {
    files.unwritable = "/home";
    Document& document = openDocument();
    change(document);
    timers.advance(kPause);
    EXPECT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(copies(), std::vector<std::string>{"/state/unsaved/run-1/1 Links.tbln"});
    EXPECT_EQ(nameIn(copies().at(0)), "changed");
    EXPECT_TRUE(document.isDocumentEdited());
    files.unwritable.clear();
    change(document, "newer");
    timers.advance(kPause);
    EXPECT_TRUE(copies().empty());
    EXPECT_EQ(nameIn(kPath), "newer");
}

TEST_F(AutosaveTest, BesideAFileThatAnotherProgramChangedACopyIsKeptUntilTheUserDecides) {
    Document& document = openDocument();
    files.files[kPath] = documentBytes("theirs, and longer");
    alerts.answer("Cancel");
    change(document, "mine");
    timers.advance(kPause);
    ASSERT_EQ(copies().size(), 1u);
    EXPECT_EQ(nameIn(copies()[0]), "mine");
    change(document, "mine, later");
    timers.advance(kPause);
    ASSERT_EQ(copies().size(), 1u) << "one copy a document";
    EXPECT_EQ(nameIn(copies()[0]), "mine, later");
    alerts.answer("Reload");
    perform("saveDocument:");
    EXPECT_TRUE(copies().empty());
    EXPECT_EQ(nameIn(kPath), "theirs, and longer");
}

TEST_F(AutosaveTest, EndOfTheSessionKeepsWhatItsFileDoesNotTakeWithoutAQuestion) {
    change(openDocument("/home/Conflict.tbln"), "mine");
    files.files["/home/Conflict.tbln"] = documentBytes("theirs");
    files.unwritable = "/media";
    change(openDocument("/media/stick/Links.tbln"), "no room");
    app.sessionWillEnd();
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_EQ(host.stops, 1);
    EXPECT_EQ(nameIn("/home/Conflict.tbln"), "theirs");
    EXPECT_EQ(nameIn("/state/unsaved/run-1/1 Conflict.tbln"), "mine");
    EXPECT_EQ(nameIn("/state/unsaved/run-1/2 Links.tbln"), "no room");
}

TEST_F(AutosaveTest, EndOfTheSessionNamesWhatWouldBeLost) {
    change(openDocument());
    files.diskFull = true;
    app.sessionWillEnd();
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "“Links.tbln” could not be saved");
    EXPECT_EQ(host.stops, 1);
}

TEST_F(AutosaveTest, ClosingADocumentThatCannotBeSavedOffersAWayOut) {
    change(openDocument());
    files.diskFull = true;
    alerts.answer("Cancel");
    perform("performClose:");
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].style, AlertStyle::Critical);
    EXPECT_EQ(documents().documents().size(), 1u);
    alerts.answer("Close Without Saving");
    perform("performClose:");
    EXPECT_TRUE(documents().documents().empty());
    EXPECT_EQ(nameIn(kPath), "first");
}

TEST_F(AutosaveTest, UntitledDocumentIsKeptInTheStateFolder) {
    Document& document = untitled();
    timers.advance(kPause);
    EXPECT_TRUE(copies().empty()) << "an untouched one is not worth it";
    change(document, "one");
    timers.advance(kPause);
    EXPECT_EQ(copies(), std::vector<std::string>{"/state/unsaved/run-1/1 Untitled.tbln"});
    EXPECT_TRUE(document.isDocumentEdited()) << "it is in no file of the user's";
    change(document, "two");
    timers.advance(kPause);
    ASSERT_EQ(copies().size(), 1u) << "one copy a document";
    EXPECT_EQ(nameIn(copies()[0]), "two");
}

TEST_F(AutosaveTest, CopyGoesWhenTheDocumentGetsAFile) {
    change(untitled());
    timers.advance(kPause);
    panels.nameFile("/home/mine.tbln");
    perform("saveDocument:");
    EXPECT_TRUE(copies().empty());
    EXPECT_EQ(nameIn("/home/mine.tbln"), "changed");
}

TEST_F(AutosaveTest, CopyGoesWhenTheUserDoesNotWantTheDocument) {
    change(untitled());
    timers.advance(kPause);
    alerts.answer("Don’t Save");
    perform("performClose:");
    EXPECT_EQ(alerts.shown.size(), 1u) << "asked once";
    EXPECT_TRUE(copies().empty());
}

TEST_F(AutosaveTest, CopyStaysWhenClosingIsCancelled) {
    change(untitled());
    timers.advance(kPause);
    alerts.answer("Cancel");
    perform("performClose:");
    EXPECT_EQ(copies().size(), 1u);
}

TEST_F(AutosaveTest, DocumentsOfARunThatCrashedAreThereAgain) {
    recovery.abandoned = {"/state/unsaved/run-0"};
    files.files["/state/unsaved/run-0/1 Untitled.tbln"] = documentBytes("lost?");
    files.files["/state/unsaved/run-0/12 My old links.tbln"] = documentBytes("found");
    app.applicationDidFinishLaunching({});
    ASSERT_EQ(documents().documents().size(), 2u) << "and no empty one besides";
    Document& second = *documents().documents()[1];
    EXPECT_EQ(second.displayName(), "My old links");
    EXPECT_EQ(second.fileName(), "");
    EXPECT_TRUE(second.isDocumentEdited());
    EXPECT_EQ(second.getMaster().getChild()->itemName().view(), "found");
    change(second, "newer");
    timers.advance(2 * kPause);
    EXPECT_EQ(nameIn("/state/unsaved/run-0/12 My old links.tbln"), "newer") << "its copy is still its copy";
    alerts.answer("Don’t Save");
    documents().closeDocument(second, [](bool) {});
    EXPECT_FALSE(files.fileExists("/state/unsaved/run-0/12 My old links.tbln"));
}

TEST_F(AutosaveTest, DocumentsOfACrashSayInTheirWindowThatTheyAreNotSavedYet) {
    files.files["/state/unsaved/run-0/1 Links.tbln"] = documentBytes("mine");
    recovery.abandoned = {"/state/unsaved/run-0"};
    app.applicationDidFinishLaunching({});
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(windowOf(*onlyDocument()).urlField, "Recovered: not saved yet");
}

TEST_F(AutosaveTest, SavedDocumentOfACrashNoLongerSaysThatItIsNot) {
    files.files["/state/unsaved/run-0/1 Links.tbln"] = documentBytes("mine");
    recovery.abandoned = {"/state/unsaved/run-0"};
    app.applicationDidFinishLaunching({});
    ASSERT_TRUE(onlyDocument());
    panels.nameFile("/home/mine.tbln");
    perform("saveDocument:");
    timers.advance(0);
    EXPECT_EQ(windowOf(*onlyDocument()).urlField, "1 bookmark in 0 folders");
}

TEST_F(AutosaveTest, FailureWaitsForTheEndOfAnAlertOfTheRows) {
    Document& document = openDocument();
    change(document);
    files.diskFull = true;
    int shown = 0;
    alerts.whileShown = [&] {
        if (++shown == 1)
            timers.advance(kPause);
        EXPECT_EQ(shown, 1) << "one came up over another";
    };
    documents().getViewController(document)->editing().deleteSelection();
    alerts.whileShown = nullptr;
    EXPECT_EQ(alerts.shown.size(), 1u);
    timers.advance(kPause);
    ASSERT_EQ(alerts.shown.size(), 2u);
    EXPECT_EQ(alerts.shown[1].message, "“Links.tbln” could not be saved");
}

TEST_F(AutosaveTest, ConflictWaitsForTheEndOfAnAlertOfTheRows) {
    Document& document = openDocument();
    files.files[kPath] = documentBytes("theirs, and longer");
    change(document);
    alerts.whileShown = [&] { timers.advance(kPause); };
    documents().getViewController(document)->editing().deleteSelection();
    alerts.whileShown = nullptr;
    EXPECT_EQ(alerts.shown.size(), 1u);
    alerts.answer("Cancel");
    timers.advance(kPause);
    EXPECT_EQ(alerts.shown.size(), 2u);
}

TEST_F(AutosaveTest, DamagedCopyIsReportedAndRenamed) {
    recovery.abandoned = {"/state/unsaved/run-0"};
    files.files["/state/unsaved/run-0/1 Untitled.tbln"] = "bplist00 and then nothing";
    app.applicationDidFinishLaunching({});
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_NE(alerts.shown[0].informative.find("1 Untitled.tbln.damaged"), std::string::npos);
    EXPECT_TRUE(files.fileExists("/state/unsaved/run-0/1 Untitled.tbln.damaged"));
    EXPECT_FALSE(files.fileExists("/state/unsaved/run-0/1 Untitled.tbln"));
}

TEST_F(AutosaveTest, WhereNoCopyCanBeKeptOneAlertIsShown) {
    recovery.own = failure("There is no room.");
    Document& document = untitled();
    for (int i = 0; i < 2; ++i) {
        change(document);
        timers.advance(kPause);
    }
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].informative, "There is no room.");
}

TEST_F(AutosaveTest, NamesThatNoFileCanHaveAreChangedForTheCopy) {
    Document& document = untitled();
    document.setDisplayName("a/b\n" + std::string(300, 'x'));
    change(document);
    timers.advance(kPause);
    ASSERT_EQ(copies().size(), 1u);
    EXPECT_TRUE(copies()[0].starts_with("/state/unsaved/run-1/1 a%2Fb%0Axxx"));
    EXPECT_LT(copies()[0].size(), 255u);
}

TEST_F(AutosaveTest, RecoveredDocumentHasTheNameThatItHad) {
    const std::string x(179, 'x');
    for (const std::string& name : {std::string("50% of AC/DC %41\t"), x + "é"}) {
        Document& document = untitled();
        document.setDisplayName(name);
        change(document);
        timers.advance(kPause);
    }
    recovery.abandoned = {"/state/unsaved/run-1"};
    documents().recoverUnsavedDocuments();
    const std::vector<Document*> all = documents().documents();
    ASSERT_EQ(all.size(), 4u);
    EXPECT_EQ(all[2]->displayName(), "50% of AC/DC %41\t");
    EXPECT_EQ(all[3]->displayName(), x) << "whole characters of a name that is too long";
}

} // namespace
} // namespace tabulon
