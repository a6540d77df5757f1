// Tests saving where writing fails: a full disk, a folder without permission, a missing backup folder.
#include "tests/faults/FaultFixture.h"

#include <sys/resource.h>
#include <sys/stat.h>

namespace tabulon {
namespace {

class FullDiskTest : public FaultTest {
protected:
    /// Opens version 1, calls `prepare` and tries to save version 2. Returns 0 if the save fails, the alert
    /// states `reason`, and the document is still edited. Otherwise returns the number of the failed check.
    int tryToSave(const std::function<void()>& prepare, std::string_view reason) {
        ProgramRun run(folder);
        Document& document = run.open(path("Links.tbln"));
        change(document, 2);
        prepare();
        if (run.save(document))
            return 1;
        if (!document.isDocumentEdited())
            return 2;
        if (run.fakes.alerts.shown.size() != 1)
            return 3;
        const Alert& alert = run.fakes.alerts.shown[0];
        if (alert.message != "“Links.tbln” could not be saved")
            return 4;
        if (alert.informative.find(reason) == std::string::npos)
            return 5;
        return alert.informative.find("Save As") == std::string::npos ? 6 : 0; // what to do
    }
    /// Expects that the file still contains version 1 and that its folder contains no temporary file.
    void expectOneWholeFile() {
        EXPECT_EQ(versionIn(path("Links.tbln")), 1);
        for (const std::string& name : files.namesInFolder(folder))
            EXPECT_FALSE(name.starts_with(".tabulon-")) << name;
    }
};

TEST_F(FullDiskTest, onAFullDiskTheOldFileStaysAndAnAlertIsShown) {
    write(path("Links.tbln"), 1);
    const int status = statusOf(start([&] {
        // A limit on the file size has the effect of a full disk: writes are incomplete.
        return tryToSave(
            [] {
                std::signal(SIGXFSZ, SIG_IGN);
                const rlimit limit{5000, 5000};
                ::setrlimit(RLIMIT_FSIZE, &limit);
            },
            "File too large");
    }));
    EXPECT_EQ(status, 0) << WEXITSTATUS(status);
    expectOneWholeFile();
}

TEST_F(FullDiskTest, inAReadOnlyFolderTheOldFileStaysAndAnAlertIsShown) {
    write(path("Links.tbln"), 1);
    ASSERT_EQ(::chmod(folder.c_str(), 0555), 0);
    const int status = statusOf(start([&] {
        return tryToSave(
            [] {
                // Root may write everywhere, so the process becomes another user.
                constexpr uid_t kNobody = 65534;
                if (::geteuid() == 0 && ::setuid(kNobody) != 0)
                    ::_exit(9);
            },
            "Permission denied");
    }));
    ::chmod(folder.c_str(), 0755);
    EXPECT_EQ(status, 0) << WEXITSTATUS(status);
    expectOneWholeFile();
}

TEST_F(FullDiskTest, withoutTheBackupFolderTheSaveGoesOnAndTheDocumentsFolderTakesTheBackup) {
    write(path("Links.tbln"), 1);
    std::filesystem::remove_all(path("backups"));
    std::filesystem::create_directory(path("documents"));
    ProgramRun run(folder);
    run.fakes.folders.gone.insert(path("backups"));
    run.fakes.folders.documents = path("documents");
    Document& document = run.open(path("Links.tbln"));
    change(document, 2);
    EXPECT_TRUE(run.save(document));
    EXPECT_TRUE(run.fakes.alerts.shown.empty());
    EXPECT_EQ(versionIn(path("Links.tbln")), 2);
    EXPECT_EQ(files.namesInFolder(path("documents")).size(), 1u);
}

TEST_F(FullDiskTest, aBackupThatCannotBeWrittenNeverBlocksTheSave) {
    write(path("Links.tbln"), 1);
    std::filesystem::remove_all(path("backups"));
    files.writeFileAtomically(path("backups"), "a file where the folder was");
    ProgramRun run(folder);
    Document& document = run.open(path("Links.tbln"));
    change(document, 2);
    EXPECT_TRUE(run.save(document));
    EXPECT_TRUE(run.fakes.alerts.shown.empty());
    EXPECT_EQ(versionIn(path("Links.tbln")), 2);
}

TEST_F(FullDiskTest, whenTheFolderOfTheFileIsGoneTheUserIsAskedAndNothingIsLost) {
    std::filesystem::create_directory(path("stick"));
    write(path("stick/Links.tbln"), 1);
    ProgramRun run(folder);
    Document& document = run.open(path("stick/Links.tbln"));
    change(document, 2);
    std::filesystem::remove_all(path("stick"));
    run.fakes.alerts.answer("Save As…");
    run.fakes.panels.nameFile(path("elsewhere.tbln"));
    EXPECT_TRUE(run.save(document));
    EXPECT_EQ(versionIn(path("elsewhere.tbln")), 2);
}

} // namespace
} // namespace tabulon
