// Tests the changes that other programs make to the file of an open document.
#include "tests/faults/FaultFixture.h"

#include <sys/stat.h>

#include <fstream>

namespace tabulon {
namespace {

class FileConflictsTest : public FaultTest {
protected:
    FileConflictsTest() : run(folder) {
        write(path("Links.tbln"), 1);
        document = &run.open(path("Links.tbln"));
        change(*document, 2);
    }
    const std::string& message() const { return run.fakes.alerts.shown.back().message; }

    ProgramRun run;
    Document* document = nullptr;
};

TEST_F(FileConflictsTest, aReplacedFileIsNotOverwrittenWithoutAnAnswer) {
    write(path("Links.tbln"), 3);
    run.fakes.alerts.answer("Cancel");
    EXPECT_FALSE(run.save(*document));
    EXPECT_EQ(message(), "“Links.tbln” was changed by another program");
    EXPECT_EQ(versionIn(path("Links.tbln")), 3);
    EXPECT_TRUE(document->isDocumentEdited());
}

TEST_F(FileConflictsTest, aFileEditedInPlaceIsNoticedAlthoughItIsTheSameFile) {
    const std::string other = writeDocumentArchive(*version(3));
    std::ofstream(path("Links.tbln"), std::ios::binary | std::ios::trunc) << other;
    run.fakes.alerts.answer("Cancel");
    EXPECT_FALSE(run.save(*document));
    EXPECT_EQ(versionIn(path("Links.tbln")), 3);
}

TEST_F(FileConflictsTest, keepMineOverwritesAndTheBackupHoldsTheirs) {
    write(path("Links.tbln"), 3);
    run.fakes.alerts.answer("Keep Mine");
    EXPECT_TRUE(run.save(*document));
    EXPECT_EQ(versionIn(path("Links.tbln")), 2);
    const std::vector<std::string> backups = files.namesInFolder(path("backups"));
    ASSERT_EQ(backups.size(), 1u);
    EXPECT_EQ(versionIn(path("backups/") + backups[0]), 3);
}

TEST_F(FileConflictsTest, reloadTakesTheirs) {
    write(path("Links.tbln"), 3);
    run.fakes.alerts.answer("Reload");
    EXPECT_TRUE(run.save(*document));
    EXPECT_EQ(versionIn(path("Links.tbln")), 3);
    EXPECT_EQ(document->getMaster().getChild()->itemName().view(), "3");
    EXPECT_FALSE(document->isDocumentEdited());
}

TEST_F(FileConflictsTest, saveAsKeepsBoth) {
    write(path("Links.tbln"), 3);
    run.fakes.alerts.answer("Save As…");
    run.fakes.panels.nameFile(path("mine.tbln"));
    EXPECT_TRUE(run.save(*document));
    EXPECT_EQ(versionIn(path("Links.tbln")), 3);
    EXPECT_EQ(versionIn(path("mine.tbln")), 2);
}

TEST_F(FileConflictsTest, whatTheFileBecomesWhileTheQuestionIsUpIsAskedAboutAgain) {
    write(path("Links.tbln"), 3);
    int newer = 4;
    run.fakes.alerts.whileShown = [&] {
        if (newer < 6)
            write(path("Links.tbln"), newer++);
    };
    run.fakes.alerts.answer("Keep Mine"); // about version 3, then 4 is written
    run.fakes.alerts.answer("Keep Mine"); // about version 4, then 5 is written
    run.fakes.alerts.answer("Cancel");
    EXPECT_FALSE(run.save(*document));
    EXPECT_EQ(run.fakes.alerts.shown.size(), 3u);
    EXPECT_EQ(versionIn(path("Links.tbln")), 5);
    EXPECT_TRUE(document->isDocumentEdited());
}

TEST_F(FileConflictsTest, aSecondQuestionNeverComesOverTheFirst) {
    write(path("Links.tbln"), 3);
    run.fakes.alerts.whileShown = [this] {
        change(*document, 9);
        run.fakes.timers.advance(100); // long enough for an autosave
    };
    run.fakes.alerts.answer("Cancel");
    EXPECT_FALSE(run.save(*document));
    EXPECT_EQ(run.fakes.alerts.shown.size(), 1u);
}

TEST_F(FileConflictsTest, aDeletedFileIsAskedAboutAndCanBeSavedAgain) {
    std::filesystem::remove(path("Links.tbln"));
    run.fakes.alerts.answer("Cancel");
    EXPECT_FALSE(run.save(*document));
    EXPECT_FALSE(files.fileExists(path("Links.tbln")));
    EXPECT_EQ(message(), "“Links.tbln” is no longer there");
    run.fakes.alerts.answer("Save");
    EXPECT_TRUE(run.save(*document));
    EXPECT_EQ(versionIn(path("Links.tbln")), 2);
}

TEST_F(FileConflictsTest, aMovedFileIsNotMadeAnewUnasked) {
    std::filesystem::rename(path("Links.tbln"), path("moved.tbln"));
    run.fakes.alerts.answer("Cancel");
    EXPECT_FALSE(run.save(*document));
    EXPECT_FALSE(files.fileExists(path("Links.tbln")));
    EXPECT_EQ(versionIn(path("moved.tbln")), 1);
}

TEST_F(FileConflictsTest, aLinkIsFollowedAndStaysALink) {
    std::filesystem::create_directory(path("real"));
    write(path("real/Links.tbln"), 1);
    std::filesystem::create_symlink(path("real/Links.tbln"), path("link.tbln"));
    ASSERT_EQ(::chmod(path("real/Links.tbln").c_str(), 0640), 0);
    Document& linked = run.open(path("link.tbln"));
    change(linked, 4);
    EXPECT_TRUE(run.save(linked));
    EXPECT_TRUE(std::filesystem::is_symlink(path("link.tbln")));
    EXPECT_EQ(versionIn(path("real/Links.tbln")), 4);
    struct stat status = {};
    ASSERT_EQ(::stat(path("real/Links.tbln").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
}

// Two instances of the application save one file in turn, a hundred times. Each must detect the change of the
// other.
TEST_F(FileConflictsTest, twoProgramsOnOneFileNeverOverwriteEachOtherUnasked) {
    ProgramRun other(folder);
    std::array<ProgramRun*, 2> runs = {&run, &other};
    std::array<Document*, 2> documents = {document, &other.open(path("Links.tbln"))};
    EXPECT_TRUE(run.save(*document));
    int noticed = 0;
    for (int turn = 0; turn < 100; ++turn) {
        const auto writer = static_cast<std::size_t>((turn + 1) % 2);
        Document& mine = *documents[writer];
        const int before = versionIn(path("Links.tbln"));
        change(mine, 10 + turn);
        runs[writer]->fakes.alerts.answer("Cancel");
        EXPECT_FALSE(runs[writer]->save(mine));
        EXPECT_EQ(versionIn(path("Links.tbln")), before);
        noticed += static_cast<int>(runs[writer]->fakes.alerts.shown.size());
        runs[writer]->fakes.alerts.shown.clear();
        runs[writer]->fakes.alerts.answer("Keep Mine");
        EXPECT_TRUE(runs[writer]->save(mine));
        runs[writer]->fakes.alerts.shown.clear();
        EXPECT_EQ(versionIn(path("Links.tbln")), 10 + turn);
    }
    EXPECT_EQ(noticed, 100);
}

} // namespace
} // namespace tabulon
