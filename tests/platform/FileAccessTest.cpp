// The owner and the permissions of a file after a save: those that are kept, and those that no save adds.
#include "platform/linux/FileAccess.h"

#include "tests/platform/FileStoreFixture.h"
#include "tests/platform/RefusedCalls.h"

#include <grp.h>
#include <sys/syscall.h>
#include <sys/xattr.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fstream>

namespace tabulon {
namespace {

constexpr uid_t kStranger = 12345;
constexpr gid_t kGroup = 23456;
constexpr uid_t kNobody = 65534;
constexpr const char* kAccessList = "system.posix_acl_access";

struct ListEntry {
    std::uint16_t tag, permissions;
    std::uint32_t who;
};
constexpr std::uint32_t kNoOne = 0xFFFFFFFF;

// Returns the bytes of an access control list as the system stores it.
std::string accessList(std::initializer_list<ListEntry> entries) {
    const std::uint32_t version = 2;
    std::string bytes(reinterpret_cast<const char*>(&version), sizeof version);
    for (const ListEntry& entry : entries)
        bytes.append(reinterpret_cast<const char*>(&entry), sizeof entry);
    return bytes;
}

// Returns a list that lets the owner and one other user read and write, lets the group read, and denies
// access to all others.
std::string listForAStranger() {
    return accessList(
        {{0x01, 6, kNoOne}, {0x02, 6, kStranger}, {0x04, 4, kNoOne}, {0x10, 6, kNoOne}, {0x20, 0, kNoOne}});
}

std::string attributeOf(const std::string& file, const char* name) {
    std::string value(1000, '\0');
    const ssize_t size = ::getxattr(file.c_str(), name, value.data(), value.size());
    value.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
    return value;
}

bool setAttribute(const std::string& file, const char* name, const std::string& value) {
    return ::setxattr(file.c_str(), name, value.data(), value.size(), 0) == 0;
}

class FileAccessTest : public FileStoreTest {
protected:
    void SetUp() override {
        FileStoreTest::SetUp();
        ASSERT_EQ(::chmod(folder.c_str(), 0777), 0);
        ASSERT_TRUE(files.writeFileAtomically(path("f"), "old"));
    }
    void give(uid_t owner, gid_t group, mode_t mode) {
        ASSERT_EQ(::chown(path("f").c_str(), owner, group), 0);
        ASSERT_EQ(::chmod(path("f").c_str(), mode), 0);
    }
    /// Saves as a user who may not change the owner of files and is not in the file's group. Returns 0 if the
    /// save succeeds.
    int saveAsNobody() {
        return statusOfChild([this] {
            if (::setgroups(0, nullptr) != 0 || ::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)
                return 2;
            return files.writeBack(path("f"), "new") ? 0 : 1;
        });
    }
    int saveWithout(int call) {
        return statusOfChild(
            [&] { return refuse(call) && files.writeFileAtomically(path("f"), "new") ? 0 : 1; });
    }
};

TEST_F(FileAccessTest, specialBitsAreNeverTakenOver) {
    ASSERT_EQ(::chmod(path("f").c_str(), 07755), 0);
    ASSERT_TRUE(files.writeFileAtomically(path("f"), "new"));
    EXPECT_EQ(mode(path("f")), 0755u);
    ASSERT_EQ(::chmod(path("f").c_str(), 07755), 0);
    ASSERT_TRUE(files.copyFile(path("f"), path("copy")));
    EXPECT_EQ(mode(path("copy")), 0755u);
}

TEST_F(FileAccessTest, withoutTheGroupItAndOthersGetWhatBothHad) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can make files of others";
    for (const auto& [before, after] :
         {std::pair{06770U, 0700U}, {0664U, 0644U}, {0604U, 0600U}, {0666U, 0666U}}) {
        give(kStranger, kGroup, before);
        ASSERT_EQ(saveAsNobody(), 0);
        struct stat status = {};
        ASSERT_EQ(::stat(path("f").c_str(), &status), 0);
        EXPECT_EQ(status.st_uid, kNobody);
        EXPECT_EQ(status.st_mode & 07777, after) << std::oct << before;
    }
}

TEST_F(FileAccessTest, listsAndAttributesAreKept) {
    if (!setAttribute(path("f"), "user.comment", "mine") ||
        !setAttribute(path("f"), kAccessList, listForAStranger()))
        GTEST_SKIP() << "the file system of temporary files has none";
    const std::string list = attributeOf(path("f"), kAccessList);
    ASSERT_TRUE(files.writeFileAtomically(path("f"), "new"));
    EXPECT_EQ(attributeOf(path("f"), "user.comment"), "mine");
    EXPECT_EQ(attributeOf(path("f"), kAccessList), list);
    EXPECT_EQ(mode(path("f")), 0660u) << "the mask of the list";
    ASSERT_TRUE(files.copyFile(path("f"), path("backup")));
    EXPECT_EQ(attributeOf(path("backup"), kAccessList), list);
}

TEST_F(FileAccessTest, aFileThatMayNotBeWrittenKeepsItsAttributes) {
    if (!setAttribute(path("f"), "user.comment", "mine"))
        GTEST_SKIP() << "the file system of temporary files has no attributes";
    give(::geteuid() == 0 ? kNobody : ::geteuid(), ::geteuid() == 0 ? kNobody : ::getegid(), 0444);
    ASSERT_EQ(::geteuid() == 0 ? saveAsNobody()
                               : statusOfChild([this] { return files.writeBack(path("f"), "new") ? 0 : 1; }),
              0);
    EXPECT_EQ(attributeOf(path("f"), "user.comment"), "mine");
    EXPECT_EQ(mode(path("f")), 0444u);
}

TEST_F(FileAccessTest, aListThatCannotBeKeptGrantsNobodyMore) {
    if (!setAttribute(path("f"), kAccessList, listForAStranger()))
        GTEST_SKIP() << "the file system of temporary files has no access control lists";
    ASSERT_EQ(mode(path("f")), 0660u) << "the group itself may only read";
    ASSERT_EQ(saveWithout(SYS_fsetxattr), 0);
    EXPECT_EQ(mode(path("f")), 0600u);
}

TEST_F(FileAccessTest, aListIsNotHandedToAnotherGroup) {
    if (::geteuid() != 0 || !setAttribute(path("f"), kAccessList, listForAStranger()))
        GTEST_SKIP() << "needs root and access control lists";
    ASSERT_EQ(::chown(path("f").c_str(), kStranger, kGroup), 0);
    ASSERT_EQ(saveAsNobody(), 0);
    EXPECT_EQ(mode(path("f")), 0600u);
    EXPECT_EQ(attributeOf(path("f"), kAccessList), "");
}

TEST_F(FileAccessTest, whatTheFolderLaysDownForNewFilesIsNotGrantedToOldOnes) {
    ASSERT_EQ(::chmod(path("f").c_str(), 0640), 0);
    if (!setAttribute(folder.string(), "system.posix_acl_default", listForAStranger()))
        GTEST_SKIP() << "the file system of temporary files has no access control lists";
    ASSERT_TRUE(files.writeFileAtomically(path("f"), "new"));
    EXPECT_EQ(attributeOf(path("f"), kAccessList), "");
    EXPECT_EQ(mode(path("f")), 0640u);
}

TEST_F(FileAccessTest, aFileSystemThatRefusesAChangeOfModeTakesASave) {
    ASSERT_EQ(saveWithout(SYS_fchmod), 0);
    EXPECT_EQ(files.readFile(path("f")).value(), "new");
    ASSERT_EQ(saveWithout(SYS_fchown), 0);
    EXPECT_EQ(files.readFile(path("f")).value(), "new");
}

TEST_F(FileAccessTest, aBackupTakesTheModeOfTheDocumentEachTime) {
    ASSERT_EQ(::chmod(path("f").c_str(), 0644), 0);
    ASSERT_TRUE(files.copyFile(path("f"), path("backup")));
    EXPECT_EQ(mode(path("backup")), 0644u);
    ASSERT_EQ(::chmod(path("f").c_str(), 0600), 0);
    ASSERT_TRUE(files.copyFile(path("f"), path("backup")));
    EXPECT_EQ(mode(path("backup")), 0600u);
}

TEST_F(FileAccessTest, aLinkAtThePlaceOfABackupIsReplaced) {
    ASSERT_TRUE(files.writeFileAtomically(path("precious"), "precious"));
    fs::create_symlink("precious", path("backup"));
    ASSERT_TRUE(files.copyFile(path("f"), path("backup")));
    EXPECT_FALSE(fs::is_symlink(path("backup")));
    EXPECT_EQ(files.readFile(path("precious")).value(), "precious");
    fs::create_directory(path("directory"));
    EXPECT_FALSE(files.copyFile(path("f"), path("directory")));
}

TEST_F(FileAccessTest, aLinkOfAnotherUserIsFollowedOnlyToTheFileThatWasOpenedByIt) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can make links of others";
    fs::create_symlink("f", path("link"));
    ASSERT_EQ(::lchown(path("link").c_str(), kStranger, kGroup), 0);
    const auto refused = files.writeFileAtomically(path("link"), "new");
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().code, EPERM);
    EXPECT_NE(refused.error().message.find("It is a link of another user."), std::string::npos);
    EXPECT_TRUE(fs::is_symlink(path("link")));
    EXPECT_EQ(files.readFile(path("f")).value(), "old");
    ASSERT_TRUE(files.writeBack(path("link"), "new"));
    EXPECT_TRUE(fs::is_symlink(path("link")));
    EXPECT_EQ(files.readFile(path("f")).value(), "new");
}

} // namespace
} // namespace tabulon
