// Saving where the system allows a file without a name and then refuses to link it to a name.
#include "tests/platform/FileStoreFixture.h"
#include "tests/platform/RefusedCalls.h"

#include <sys/syscall.h>

namespace tabulon {
namespace {

// Refuses each system call that the C library may use to rename a file.
bool refuseRenaming() {
#ifdef SYS_rename
    if (!refuse(SYS_rename))
        return false;
#endif
    return refuse(SYS_renameat) && refuse(SYS_renameat2);
}

class TemporaryFileTest : public FileStoreTest {};

TEST_F(TemporaryFileTest, aRefusedLinkCallStopsNoSave) {
    ASSERT_TRUE(files.writeFileAtomically(path("f"), "old"));
    ASSERT_EQ(::chmod(path("f").c_str(), 0640), 0);
    const std::string bytes(200'000, 'n');
    EXPECT_EQ(statusOfChild([&] { return refuse(SYS_linkat) && files.writeBack(path("f"), bytes) ? 0 : 1; }),
              0);
    EXPECT_TRUE(files.readFile(path("f")).value() == bytes);
    EXPECT_EQ(mode(path("f")), 0640u);
    EXPECT_EQ(fileCount(), 1u);
}

TEST_F(TemporaryFileTest, aSaveThatFailsAfterARefusedLinkCallLeavesNothingBehind) {
    ASSERT_TRUE(files.writeFileAtomically(path("f"), "old"));
    EXPECT_EQ(statusOfChild([&] {
                  if (!refuse(SYS_linkat) || !refuseRenaming())
                      return 2;
                  const auto written = files.writeBack(path("f"), "new");
                  return !written && written.error().code == EPERM ? 0 : 1;
              }),
              0);
    EXPECT_EQ(files.readFile(path("f")).value(), "old");
    EXPECT_EQ(fileCount(), 1u);
}

} // namespace
} // namespace tabulon
