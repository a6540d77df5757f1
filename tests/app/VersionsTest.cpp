// The versions that the application stores at each save, and the panel that restores them.
#include "app/VersionsController.h"
#include "base/Settings.h"
#include "model/ArchiveReader.h"
#include "tests/app/AppFixture.h"

#include <gmock/gmock.h>

namespace tabulon {
namespace {

using testing::ElementsAre;

class MemoryVersionsPanel : public VersionsPanel {
public:
    void reloadVersion(std::size_t index) override { reloaded.push_back(index); }
    void reloadDifferences() override { ++lists; }
    void dismiss() override { ++dismissals; }

    std::vector<std::size_t> reloaded;
    int lists = 0;
    int dismissals = 0;
};

class VersionsTest : public AppTest {
protected:
    VersionsTest() {
        files.files[kPath] = documentBytes("first");
        app.fileOpening().openFile(kPath);
    }

    Document& document() { return *documents().documents().front(); }
    Bookmark& onlyLink() { return *document().getMaster().getChild(); }
    // Renames the link and saves.
    void saveAs(const char* name) {
        onlyLink().setItemName(name);
        document().updateChangeCount(ChangeKind::Done);
        base.clock.advance(1);
        perform("saveDocument:");
    }
    void browse() {
        perform("browseVersions:");
        controller = windows.presentedVersions;
        ASSERT_TRUE(controller);
        controller->setPanel(&panel);
    }
    std::string nameInVersion(std::size_t index) {
        const auto versions = documents().versions().versionsOf(kPath);
        const auto bytes = documents().versions().read(versions.at(index));
        const auto master = readDocumentArchive(bytes.value());
        return (*master)->getChild()->itemName().string();
    }

    MemoryVersionsPanel panel;
    std::shared_ptr<VersionsController> controller;
};

TEST_F(VersionsTest, eachSaveKeepsTheVersionThatItReplaces) {
    saveAs("second");
    saveAs("third");
    EXPECT_EQ(nameInVersion(0), "second");
    EXPECT_EQ(nameInVersion(1), "first");
}

TEST_F(VersionsTest, theVersionIsKeptBeforeTheFileIsReplaced) {
    bool wasKept = false;
    files.willWrite = [&](const std::string& path) {
        if (path == kPath)
            wasKept = documents().versions().versionsOf(kPath).size() == 1;
    };
    saveAs("second");
    EXPECT_TRUE(wasKept);
}

TEST_F(VersionsTest, aStoreThatCannotBeWrittenDoesNotStopASave) {
    files.unwritable = folders.state;
    saveAs("second");
    EXPECT_FALSE(document().isDocumentEdited());
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_FALSE(base.log.lines.empty());
}

TEST_F(VersionsTest, whatAnotherProgramWroteIsAVersionWhenMineReplacesIt) {
    files.files[kPath] = documentBytes("theirs");
    alerts.answer("Keep Mine");
    saveAs("mine");
    EXPECT_EQ(nameInVersion(0), "theirs");
}

TEST_F(VersionsTest, saveAsOverAnotherDocumentKeepsWhatWasThere) {
    files.files["/home/Other.tbln"] = documentBytes("other");
    panels.nameFile("/home/Other.tbln");
    perform("saveDocumentAs:");
    const auto versions = documents().versions().versionsOf("/home/Other.tbln");
    ASSERT_EQ(versions.size(), 1u);
    EXPECT_EQ(documents().versions().read(versions[0]).value(), documentBytes("other"));
}

TEST_F(VersionsTest, aFileInTheWayOfTheBackupIsKeptBeforeTheBackupReplacesIt) {
    folders.store(settings::kBackupFolderBookmark.key, "/backups");
    const std::string backup = "/backups/Links-2025-11-16.tbln";
    files.files[backup] = "not a backup of this document";
    saveAs("second");
    ASSERT_EQ(documents().versions().versionsOf(backup).size(), 1u);
    EXPECT_EQ(documents().versions().read(documents().versions().versionsOf(backup)[0]).value(),
              "not a backup of this document");
    saveAs("third");
    saveAs("fourth");
    EXPECT_EQ(documents().versions().versionsOf(backup).size(), 1u) << "the document's own backups are not";
}

TEST_F(VersionsTest, aFileInTheWayThatCannotBeKeptIsNotReplacedByABackup) {
    folders.store(settings::kBackupFolderBookmark.key, "/backups");
    files.files["/backups/Links-2025-11-16.tbln"] = "somebody's";
    files.unwritable = folders.state;
    saveAs("second");
    EXPECT_EQ(files.files["/backups/Links-2025-11-16.tbln"], "somebody's");
    EXPECT_FALSE(document().isDocumentEdited());
}

TEST_F(VersionsTest, whereNoVersionsAreKeptABackupReplacesOnlyBackupsOfTheDocument) {
    folders.store(settings::kBackupFolderBookmark.key, "/backups");
    setValue(base.defaults, settings::kVersionsLimit, 0);
    const std::string backup = "/backups/Links-2025-11-16.tbln";
    files.files[backup] = "somebody's";
    saveAs("second");
    EXPECT_EQ(files.files[backup], "somebody's");
    EXPECT_FALSE(document().isDocumentEdited());
    ASSERT_EQ(base.log.lines.size(), 1u);
    EXPECT_NE(base.log.lines[0].find(backup), std::string::npos);
    files.files.erase(backup);
    saveAs("third");
    const std::string beforeLast = files.files[kPath];
    saveAs("fourth");
    EXPECT_EQ(files.files[backup], beforeLast) << "the day's backup follows";
    EXPECT_EQ(base.log.lines.size(), 1u);
}

TEST_F(VersionsTest, aSaveReadsWhereEachDocumentIsOnce) {
    folders.store(settings::kBackupFolderBookmark.key, "/backups");
    for (const char* path : {"/home/a.tbln", "/home/b.tbln"}) {
        files.files[path] = documentBytes("x");
        EXPECT_TRUE(documents().versions().keepFile(path));
    }
    saveAs("second");
    files.reads.clear();
    saveAs("third");
    int records = 0;
    for (const auto& [path, times] : files.reads)
        if (path.ends_with(".place")) {
            EXPECT_EQ(times, 1) << path;
            ++records;
        }
    EXPECT_EQ(records, 3);
}

TEST_F(VersionsTest, theCommandNeedsADocumentWithAFile) {
    EXPECT_TRUE(enabled("browseVersions:"));
    documents().openUntitledDocumentAndDisplay();
    EXPECT_FALSE(enabled("browseVersions:"));
}

TEST_F(VersionsTest, versionsAreComparedWithTheDocumentOneAfterTheOther) {
    saveAs("second");
    saveAs("third");
    browse();
    EXPECT_EQ(controller->chosen(), 0u);
    EXPECT_EQ(controller->countsText(0), "1 changed");
    EXPECT_EQ(controller->countsText(1), "");
    timers.advance(0.1);
    EXPECT_EQ(controller->countsText(1), controller->countsText(0));
}

TEST_F(VersionsTest, aVersionOpensAsAnUntitledChangedDocument) {
    saveAs("second");
    browse();
    controller->openChosen();
    ASSERT_EQ(documents().documents().size(), 2u);
    const Document& opened = *documents().documents().back();
    EXPECT_EQ(opened.getMaster().getChild()->itemName(), Text("first"));
    EXPECT_TRUE(opened.fileName().empty());
    EXPECT_TRUE(opened.isDocumentEdited());
    EXPECT_TRUE(opened.displayName().starts_with("Links (")) << opened.displayName();
    EXPECT_EQ(panel.dismissals, 1);
    EXPECT_EQ(onlyLink().itemName(), Text("second"));
}

TEST_F(VersionsTest, theWholeVersionIsPutBackAsOneChange) {
    saveAs("second");
    browse();
    controller->putBackAll();
    EXPECT_EQ(onlyLink().itemName(), Text("first"));
    EXPECT_EQ(document().changeCount(), 1);
    EXPECT_EQ(&onlyLink(), &documents().getViewController(document())->outline().itemAtRow(0));
    EXPECT_EQ(panel.dismissals, 1);
}

TEST_F(VersionsTest, chosenItemsArePutBackAsOneChange) {
    const Ref<Bookmark> other = Bookmark::initEmpty();
    other->makeParent();
    other->addChild(Bookmark::initEmpty());
    document().setMaster(other);
    document().updateUI();
    saveAs("second");
    browse();
    EXPECT_EQ(controller->countsText(0), "1 added, 1 removed");
    ASSERT_EQ(controller->differences().size(), 2u);
    EXPECT_TRUE(VersionsController::canPutBack(controller->differences()[0]));
    EXPECT_FALSE(VersionsController::canPutBack(controller->differences()[1])) << "what was added";
    controller->putBackDifferences({0});
    EXPECT_EQ(document().getMaster().getChildren()->size(), 2u);
    EXPECT_EQ(onlyLink().itemName(), Text("first"));
    EXPECT_EQ(document().changeCount(), 1);
    EXPECT_EQ(documents().getViewController(document())->outline().numberOfRows(), 2u);
}

TEST_F(VersionsTest, whatIsNotSavedYetIsAVersionBeforeAnythingIsPutBack) {
    saveAs("second");
    onlyLink().setItemName("not saved");
    document().updateChangeCount(ChangeKind::Done);
    browse();
    controller->putBackAll();
    EXPECT_EQ(nameInVersion(0), "not saved");
}

TEST_F(VersionsTest, whatAnotherProgramReplacedInTheFileIsAVersionBeforeAnythingIsPutBack) {
    saveAs("second");
    files.files[kPath] = documentBytes("theirs, and longer");
    base.clock.advance(1);
    browse();
    controller->putBackAll();
    EXPECT_EQ(onlyLink().itemName().view(), "first");
    EXPECT_EQ(nameInVersion(0), "second");
}

TEST_F(VersionsTest, ofASavedDocumentPuttingBackKeepsNoVersion) {
    saveAs("second");
    base.clock.advance(1);
    browse();
    controller->putBackAll();
    EXPECT_EQ(documents().versions().versionsOf(kPath).size(), 1u) << "the file has it";
}

TEST_F(VersionsTest, whereThatCannotBeKeptNothingIsPutBack) {
    saveAs("second");
    onlyLink().setItemName("not saved");
    document().updateChangeCount(ChangeKind::Done);
    browse();
    files.diskFull = true;
    controller->putBackAll();
    EXPECT_EQ(onlyLink().itemName(), Text("not saved"));
    EXPECT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(panel.dismissals, 0);
}

TEST_F(VersionsTest, aDocumentThatChangedUnderThePanelIsComparedAnewFirst) {
    saveAs("second");
    browse();
    onlyLink().setItemName("changed meanwhile");
    document().updateChangeCount(ChangeKind::Done);
    const int lists = panel.lists;
    controller->putBackDifferences({0});
    EXPECT_EQ(onlyLink().itemName(), Text("changed meanwhile"));
    EXPECT_EQ(panel.lists, lists + 1);
    controller->putBackDifferences({0});
    EXPECT_EQ(onlyLink().itemName(), Text("first"));
}

TEST_F(VersionsTest, aDamagedVersionSaysSoAndTheOthersAreThere) {
    saveAs("second");
    saveAs("third");
    files.files[documents().versions().versionsOf(kPath)[0].path] = "damaged";
    browse();
    EXPECT_EQ(controller->countsText(0), "Cannot be read");
    EXPECT_FALSE(controller->canOpen());
    controller->putBackAll();
    EXPECT_EQ(onlyLink().itemName(), Text("third"));
    controller->choose(1);
    EXPECT_TRUE(controller->canOpen());
}

TEST_F(VersionsTest, theTimerEndsWithThePanel) {
    saveAs("second");
    saveAs("third");
    browse();
    controller->setPanel(nullptr);
    panel.reloaded.clear();
    timers.advance(1);
    EXPECT_THAT(panel.reloaded, ElementsAre());
}

} // namespace
} // namespace tabulon
