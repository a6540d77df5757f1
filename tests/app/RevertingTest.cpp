// Revert to Saved: the contents that it restores, and operations while its question is shown.
#include "base/Settings.h"
#include "tests/app/AppFixture.h"

#include <algorithm>

namespace tabulon {
namespace {

class RevertingTest : public AppTest {
protected:
    RevertingTest() { open(); }
    void open() {
        files.files[kPath] = documentBytes("first");
        app.fileOpening().openFile(kPath);
        document = documents().currentDocument();
    }
    void change(const char* name) {
        document->getMaster().getChild()->setItemName(name);
        document->updateChangeCount(ChangeKind::Done);
    }
    void changeAndWait(const char* name) {
        change(name);
        timers.advance(kPause);
        ASSERT_EQ(nameIn(kPath), name) << "the program saves by itself";
    }
    std::string shownName() { return document->getMaster().getChild()->itemName().string(); }
    std::string nameIn(const std::string& path) {
        Document read(base.services());
        EXPECT_TRUE(read.readFromDataOfType(files.files.at(path), kDocumentType)) << path;
        return read.getMaster().getChild()->itemName().string();
    }
    std::size_t copies() {
        return static_cast<std::size_t>(std::ranges::count_if(
            files.files, [](const auto& file) { return file.first.starts_with("/state/"); }));
    }
    bool canRevert() { return enabled("revertDocumentToSaved:"); }
    void revert(const char* answer = "Revert") {
        alerts.answer(answer);
        perform("revertDocumentToSaved:");
    }

    // Returns a document of two links. The name of the second one cannot be read.
    std::string damagedDocument() {
        const Ref<Bookmark> master = Bookmark::init(base.now());
        master->makeParent();
        for (const char* name : {"sound", "damaged name"}) {
            const Ref<Bookmark> link = Bookmark::init(base.now());
            link->setItemName(name);
            master->addChild(link);
        }
        std::string bytes = writeDocumentArchive(*master);
        bytes[bytes.find("damaged name") - 1] = '\x0f'; // no object has this marker
        return bytes;
    }
    // Changes the document, then damages its file. Returns the damaged file.
    std::string changeAndDamage() {
        change("mine");
        return files.files[kPath] = damagedDocument();
    }

    Document* document = nullptr;
};

TEST_F(RevertingTest, ofAFileThatIsDamagedNowWhatIsLeftIsOffered) {
    const std::string damaged = changeAndDamage();
    alerts.answer("Revert");
    alerts.answer("Cancel");
    perform("revertDocumentToSaved:");
    ASSERT_EQ(alerts.shown.size(), 2u);
    EXPECT_EQ(alerts.shown[1].message, "“Links.tbln” could not be opened");
    EXPECT_NE(alerts.shown[1].informative.find("1 of 2 bookmarks could be read."), std::string::npos);
    EXPECT_EQ(alerts.shown[1].document, document);
    EXPECT_EQ(shownName(), "mine") << "the open document stays as it is";
    EXPECT_TRUE(document->isDocumentEdited());
    EXPECT_EQ(files.files[kPath], damaged) << "and so does the file";
    EXPECT_EQ(documents().documents().size(), 1u);
}

TEST_F(RevertingTest, whatIsLeftOfAFileThatIsReloadedOpensAsAnUntitledDocument) {
    const std::string damaged = changeAndDamage();
    alerts.answer("Reload");
    alerts.answer("Open What Is Left");
    perform("saveDocument:");
    ASSERT_EQ(documents().documents().size(), 2u);
    const Document& remains = *documents().documents().back();
    EXPECT_EQ(remains.displayName(), "Links");
    EXPECT_TRUE(remains.fileName().empty());
    EXPECT_TRUE(remains.isDocumentEdited());
    EXPECT_EQ(shownName(), "mine");
    EXPECT_EQ(files.files[kPath], damaged);
}

TEST_F(RevertingTest, nothingIsSavedWhileTheQuestionIsUp) {
    change("mine");
    alerts.whileShown = [this] {
        timers.advance(10 * kPause);
        app.applicationWillResignActive();
        EXPECT_EQ(nameIn(kPath), "first");
        EXPECT_EQ(nameIn("/state/unsaved/run-1/1 Links.tbln"), "mine") << "a crash now loses nothing";
    };
    revert();
    EXPECT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(shownName(), "first");
    EXPECT_EQ(nameIn(kPath), "first");
    EXPECT_FALSE(document->isDocumentEdited());
    EXPECT_EQ(copies(), 0u);
    timers.advance(10 * kPause);
    EXPECT_EQ(nameIn(kPath), "first");
}

TEST_F(RevertingTest, cancelledItIsSavedAPauseLater) {
    change("mine");
    revert("Cancel");
    EXPECT_EQ(nameIn(kPath), "first");
    timers.advance(kPause);
    EXPECT_EQ(nameIn(kPath), "mine");
    EXPECT_FALSE(document->isDocumentEdited());
}

TEST_F(RevertingTest, theEndOfTheSessionSavesEvenThen) {
    change("mine");
    alerts.whileShown = [this] { app.sessionWillEnd(); };
    revert("Cancel");
    EXPECT_EQ(nameIn(kPath), "mine");
    EXPECT_EQ(host.stops, 1);
}

TEST_F(RevertingTest, aSaveOfTheProgramLeavesTheWayBack) {
    EXPECT_FALSE(canRevert());
    const std::string opened = files.files[kPath];
    changeAndWait("second");
    changeAndWait("third");
    EXPECT_FALSE(document->isDocumentEdited());
    ASSERT_TRUE(canRevert());
    setValue(base.defaults, settings::kShowMarks, true);
    revert();
    EXPECT_EQ(shownName(), "first");
    EXPECT_EQ(files.files[kPath], opened) << "the file, too, to the byte";
    EXPECT_FALSE(document->isDocumentEdited());
    EXPECT_FALSE(valueOf(base.defaults, settings::kShowMarks));
    EXPECT_TRUE(windowOf(*document).outlineView.rowsAreRight());
    EXPECT_FALSE(canRevert());
    EXPECT_EQ(copies(), 0u);
    EXPECT_EQ(nameIn("/home/documents/Links-2025-11-16.tbln"), "third") << "what the file held until then";
    changeAndWait("fourth");
    EXPECT_EQ(alerts.shown.size(), 1u) << "the file is as the document left it";
}

TEST_F(RevertingTest, theUsersOwnSaveIsANewBeginning) {
    changeAndWait("second");
    perform("saveDocument:");
    EXPECT_FALSE(canRevert());
    EXPECT_EQ(copies(), 0u);
    changeAndWait("third");
    revert();
    EXPECT_EQ(shownName(), "second");
    changeAndWait("fourth");
    panels.nameFile("/home/Other.tbln");
    perform("saveDocumentAs:");
    EXPECT_FALSE(canRevert());
}

TEST_F(RevertingTest, deactivationLeavesTheWayBackToo) {
    change("second");
    app.applicationWillResignActive();
    EXPECT_EQ(nameIn(kPath), "second");
    revert();
    EXPECT_EQ(nameIn(kPath), "first");
}

TEST_F(RevertingTest, aQuitThatIsCancelledLeavesTheWayBackToo) {
    documents().openUntitledDocumentAndDisplay()->updateChangeCount(ChangeKind::Done);
    files.files["/home/B.tbln"] = documentBytes("b");
    app.fileOpening().openFile("/home/B.tbln");
    document = documents().currentDocument();
    change("b2");
    alerts.answer("Cancel"); // the question about the untitled one
    app.terminate();
    ASSERT_EQ(documents().documents().size(), 3u);
    EXPECT_EQ(nameIn("/home/B.tbln"), "b2");
    revert();
    EXPECT_EQ(nameIn("/home/B.tbln"), "b");
}

TEST_F(RevertingTest, closingTakesTheCopyAway) {
    changeAndWait("second");
    EXPECT_EQ(copies(), 1u);
    perform("performClose:");
    EXPECT_EQ(copies(), 0u);
    EXPECT_EQ(nameIn(kPath), "second");
}

TEST_F(RevertingTest, aFileOfAnotherProgramIsReadAndNotOverwritten) {
    changeAndWait("second");
    files.files[kPath] = documentBytes("theirs");
    revert();
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_NE(alerts.shown[0].informative.find("Another program"), std::string::npos);
    EXPECT_EQ(shownName(), "theirs");
    EXPECT_EQ(nameIn(kPath), "theirs");
    EXPECT_FALSE(canRevert());
}

TEST_F(RevertingTest, aFileThatChangesWhileTheQuestionIsUpIsAskedAboutAgain) {
    changeAndWait("second");
    alerts.whileShown = [this] {
        if (alerts.shown.size() == 1)
            files.files[kPath] = documentBytes("theirs");
    };
    alerts.answer("Revert");
    revert("Cancel");
    EXPECT_EQ(alerts.shown.size(), 2u);
    EXPECT_EQ(shownName(), "second");
    EXPECT_EQ(nameIn(kPath), "theirs");
}

TEST_F(RevertingTest, aFileThatIsGoneIsWrittenAgain) {
    changeAndWait("second");
    files.files.erase(kPath);
    revert();
    EXPECT_EQ(nameIn(kPath), "first");
    EXPECT_FALSE(document->isDocumentEdited());
}

TEST_F(RevertingTest, aDiskThatIsFullLeavesTheDocumentChanged) {
    changeAndWait("second");
    files.diskFull = true;
    revert();
    EXPECT_EQ(shownName(), "first");
    EXPECT_EQ(nameIn(kPath), "second");
    EXPECT_TRUE(document->isDocumentEdited());
    ASSERT_EQ(alerts.shown.size(), 2u);
    EXPECT_EQ(alerts.shown[1].message, "“Links.tbln” could not be saved");
    files.diskFull = false;
    change("first");
    timers.advance(kPause);
    EXPECT_EQ(nameIn(kPath), "first");
}

TEST_F(RevertingTest, aCopyThatCannotBeMadeDoesNotKeepTheProgramFromSaving) {
    recovery.own = failure("no folder");
    changeAndWait("second");
    EXPECT_FALSE(canRevert());
    EXPECT_EQ(base.log.lines,
              std::vector<std::string>{"“/home/Links.tbln” was not kept for Revert to Saved: no folder"});
    change("third");
    revert();
    EXPECT_EQ(shownName(), "second");
}

TEST_F(RevertingTest, copiesOfARunThatWasKilledGo) {
    files.files["/state/unsaved/run-0/1.revert"] = "old";
    recovery.abandoned = {"/state/unsaved/run-0"};
    documents().recoverUnsavedDocuments();
    EXPECT_EQ(copies(), 0u);
}

TEST_F(RevertingTest, anotherAlertAboutTheDocumentIsNotCoveredByOneOfTheProgram) {
    change("mine");
    files.diskFull = true;
    alerts.whileShown = [this] { timers.advance(10 * kPause); };
    perform("saveDocument:");
    EXPECT_EQ(alerts.shown.size(), 1u) << "the failure is known";
    timers.advance(10 * kPause);
    EXPECT_EQ(alerts.shown.size(), 1u);
    files.diskFull = false;
    change("mine, later");
    timers.advance(kPause);
    EXPECT_EQ(nameIn(kPath), "mine, later");
}

TEST_F(RevertingTest, theTimeOfAnAlertDoesNotPutTheNextSaveOff) {
    files.diskFull = true;
    alerts.whileShown = [this] { base.clock.advance(3600); };
    change("mine");
    timers.advance(kPause);
    ASSERT_EQ(alerts.shown.size(), 1u);
    files.diskFull = false;
    change("mine, later");
    timers.advance(kPause);
    EXPECT_EQ(nameIn(kPath), "mine, later");
}

} // namespace
} // namespace tabulon
