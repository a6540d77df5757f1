// The folders for unsaved documents: one for each run, and those of runs that have ended.
#include "platform/linux/XdgRecoveryFolders.h"

#include "tests/platform/FileStoreFixture.h"
#include "tests/platform/RefusedCalls.h"

#include <sys/syscall.h>

namespace tabulon {
namespace {

class XdgRecoveryFoldersTest : public FileStoreTest {
protected:
    std::string parent() const { return path("unsaved"); }
    /// Makes a folder that a run has left, with a document in it.
    std::string makeAbandoned() {
        const std::string left = parent() + "/run-left";
        EXPECT_TRUE(files.makeFolder(left));
        EXPECT_TRUE(files.writeFileAtomically(left + "/a.tbln", "x"));
        return left;
    }
};

TEST_F(XdgRecoveryFoldersTest, AFolderWithoutALockIsAdoptedOnce) {
    const std::string left = makeAbandoned();
    XdgRecoveryFolders run(parent());
    ASSERT_TRUE(run.ownFolder());
    EXPECT_EQ(run.adoptAbandonedFolders(), std::vector{left});
    EXPECT_TRUE(run.adoptAbandonedFolders().empty());
    XdgRecoveryFolders other(parent());
    EXPECT_TRUE(other.adoptAbandonedFolders().empty()) << "it belongs to the first run";
}

TEST_F(XdgRecoveryFoldersTest, WithoutLocksTheFolderOfARunningProgramIsNotAdopted) {
    const std::string left = makeAbandoned();
    const int status = statusOfChild([&] {
        if (!refuse(SYS_flock))
            return 2;
        XdgRecoveryFolders first(parent());
        const Result<std::string> own = first.ownFolder();
        if (!own || !files.writeFileAtomically(*own + "/b.tbln", "y"))
            return 3;
        XdgRecoveryFolders second(parent());
        return second.adoptAbandonedFolders().empty() ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(files.readFile(left + "/a.tbln").value(), "x") << "nothing is removed";
}

} // namespace
} // namespace tabulon
