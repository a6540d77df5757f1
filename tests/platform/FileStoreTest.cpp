// The real file store in an empty folder: atomic writes, modes, links, failures.
#include "tests/platform/FileStoreFixture.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/resource.h>

#include <cerrno>
#include <csignal>
#include <fstream>

namespace tabulon {
namespace {

TEST_F(FileStoreTest, writesAndReadsAnyBytes) {
    const std::string bytes("a\0b\nc\xFF", 6);
    ASSERT_TRUE(files.writeFileAtomically(path("f"), bytes));
    EXPECT_EQ(files.readFile(path("f")).value(), bytes);
    ASSERT_TRUE(files.writeFileAtomically(path("f"), ""));
    EXPECT_EQ(files.readFile(path("f")).value(), "");
    EXPECT_EQ(fileCount(), 1u);
}

TEST_F(FileStoreTest, largeFilesArriveWhole) {
    std::string bytes(20'000'000, 'x');
    bytes[12345678] = 'y';
    ASSERT_TRUE(files.writeFileAtomically(path("f"), bytes));
    EXPECT_TRUE(files.readFile(path("f")).value() == bytes);
}

TEST_F(FileStoreTest, theBeginningOfAFileIsReadAlone) {
    std::ofstream(path("huge")) << "beginning";
    std::filesystem::resize_file(path("huge"), std::uintmax_t{1} << 40);
    EXPECT_EQ(files.readBeginning(path("huge"), 9).value(), "beginning");
    std::ofstream(path("f")) << "short";
    EXPECT_EQ(files.readBeginning(path("f"), 9).value(), "short");
    EXPECT_EQ(files.readBeginning(path("missing"), 9).error().code, ENOENT);
    EXPECT_EQ(files.readBeginning(path(""), 9).error().code, EISDIR);
}

TEST_F(FileStoreTest, newFilesFollowTheMaskAndOldOnesKeepTheirMode) {
    const mode_t before = ::umask(027);
    ASSERT_TRUE(files.writeFileAtomically(path("new"), "x"));
    ::umask(before);
    EXPECT_EQ(mode(path("new")), 0640u);
    ASSERT_EQ(::chmod(path("new").c_str(), 0604), 0);
    ASSERT_TRUE(files.writeFileAtomically(path("new"), "y"));
    EXPECT_EQ(mode(path("new")), 0604u);
}

TEST_F(FileStoreTest, symbolicLinksAreFollowed) {
    fs::create_directory(folder / "elsewhere");
    ASSERT_TRUE(files.writeFileAtomically(path("elsewhere/target"), "old"));
    fs::create_symlink("elsewhere/target", folder / "link");
    ASSERT_TRUE(files.writeFileAtomically(path("link"), "new"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(files.readFile(path("elsewhere/target")).value(), "new");
}

TEST_F(FileStoreTest, aLinkWhoseTargetIsGoneStaysALinkAndItsTargetIsMadeAnew) {
    fs::create_directory(folder / "elsewhere");
    fs::create_symlink("elsewhere/second", folder / "first");
    fs::create_symlink("target", folder / "elsewhere/second");
    ASSERT_TRUE(files.writeFileAtomically(path("first"), "new"));
    EXPECT_TRUE(fs::is_symlink(folder / "first"));
    EXPECT_TRUE(fs::is_symlink(folder / "elsewhere/second"));
    EXPECT_EQ(files.readFile(path("elsewhere/target")).value(), "new");
    fs::create_symlink("/no/such/disk/file", folder / "pulled");
    const auto written = files.writeFileAtomically(path("pulled"), "new");
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().code, ENOENT) << "a failure of the disk is reported";
    EXPECT_TRUE(fs::is_symlink(folder / "pulled"));
    fs::create_symlink("circle", folder / "circle");
    EXPECT_TRUE(files.writeFileAtomically(path("circle"), "new")) << "what leads nowhere is replaced";
    EXPECT_EQ(files.readFile(path("circle")).value(), "new");
}

TEST_F(FileStoreTest, ownerAndGroupStayWhereTheSystemAllowsIt) {
    constexpr uid_t kOwner = 12345;
    constexpr gid_t kOtherGroup = 23456;
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can make files of others";
    ASSERT_TRUE(files.writeFileAtomically(path("f"), "old"));
    ASSERT_EQ(::chown(path("f").c_str(), kOwner, kOtherGroup), 0);
    ASSERT_EQ(::chmod(path("f").c_str(), 0660), 0);
    ASSERT_EQ(::chmod(folder.c_str(), 0777), 0);
    ASSERT_TRUE(files.writeFileAtomically(path("f"), "root's"));
    struct stat status = {};
    ASSERT_EQ(::stat(path("f").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, kOwner);
    EXPECT_EQ(status.st_gid, kOtherGroup);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        // This process is in the group. It may write the file, but may not change its owner.
        constexpr uid_t kNoUser = 65534;
        if (::setgroups(1, &kOtherGroup) != 0 || ::setgid(kNoUser) != 0 || ::setuid(kNoUser) != 0)
            ::_exit(2);
        ::_exit(files.writeFileAtomically(path("f"), "a member's") ? 0 : 1);
    }
    int childStatus = 0;
    ASSERT_EQ(::waitpid(child, &childStatus, 0), child);
    EXPECT_EQ(childStatus, 0);
    ASSERT_EQ(::stat(path("f").c_str(), &status), 0);
    EXPECT_EQ(status.st_gid, kOtherGroup) << "the others of the group keep their access";
    EXPECT_EQ(status.st_mode & 0777, 0660u);
}

TEST_F(FileStoreTest, aCopyIsAsPrivateAsTheOriginal) {
    ASSERT_TRUE(files.writeFileAtomically(path("f"), "x"));
    ASSERT_EQ(::chmod(path("f").c_str(), 0600), 0);
    ASSERT_TRUE(files.copyFile(path("f"), path("copy")));
    EXPECT_EQ(mode(path("copy")), 0600u);
}

TEST_F(FileStoreTest, failuresNameTheFileAndKeepTheOldOne) {
    const auto missing = files.readFile(path("missing"));
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().domain, ErrorDomain::Posix);
    EXPECT_EQ(missing.error().code, ENOENT);
    EXPECT_NE(missing.error().message.find("missing"), std::string::npos);
    EXPECT_FALSE(files.writeFileAtomically(path("no/such/folder/f"), "x"));
    fs::create_directory(folder / "directory");
    EXPECT_FALSE(files.writeFileAtomically(path("directory"), "x"));
    EXPECT_FALSE(files.readFile(path("directory")));
    EXPECT_EQ(fileCount(), 1u);
}

TEST_F(FileStoreTest, devicesAreWrittenInto) {
    EXPECT_TRUE(toolsFiles.writeFileAtomically("/dev/null", "x"));
    const auto full = toolsFiles.writeFileAtomically("/dev/full", "x");
    ASSERT_FALSE(full);
    EXPECT_EQ(full.error().code, ENOSPC);
}

TEST_F(FileStoreTest, aDeviceThatHasNoEndIsRefusedSoon) {
    const auto endless = toolsFiles.readFile("/dev/zero");
    ASSERT_FALSE(endless);
    EXPECT_EQ(endless.error().code, EFBIG);
    EXPECT_EQ(endless.error().message, "Cannot read “/dev/zero”: File too large.");
    EXPECT_EQ(toolsFiles.readFile("/dev/null").value(), "");
}

TEST_F(FileStoreTest, aFileOfManyGigabytesIsRefusedUnread) {
    std::ofstream(path("huge")) << "x";
    std::filesystem::resize_file(path("huge"), std::uintmax_t{1} << 40);
    const auto huge = files.readFile(path("huge"));
    ASSERT_FALSE(huge);
    EXPECT_EQ(huge.error().code, EFBIG);
}

TEST_F(FileStoreTest, aPipeIsReadToItsEnd) {
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    const std::string bytes(3'000'000, 'x');
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0)
        ::_exit(toolsFiles.writeFileAtomically(path("pipe"), bytes) ? 0 : 1);
    const auto read = toolsFiles.readFile(path("pipe"));
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    ASSERT_TRUE(read);
    EXPECT_TRUE(*read == bytes);
}

// The writer's next write fails with EPIPE, as after any reader that closes its end of the pipe.
TEST_F(FileStoreTest, aPipeThatHasNoEndIsRefused) {
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        std::signal(SIGPIPE, SIG_IGN);
        std::ofstream pipe(path("pipe"));
        while (pipe << "more and more\n") {
        }
        ::_exit(0);
    }
    const auto read = PosixFileStore(SpecialFiles::Used, ReadLimits{.pipe = 1 << 20}).readFile(path("pipe"));
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_FALSE(read);
    EXPECT_EQ(read.error().code, EFBIG);
}

// Another program may replace the file of an open document with a pipe at any time.
TEST_F(FileStoreTest, theDesktopProgramNeitherWaitsForAPipeNorUsesADevice) {
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    for (const std::string& special : {path("pipe"), std::string("/dev/zero"), std::string("/dev/null")}) {
        const auto read = files.readFile(special);
        ASSERT_FALSE(read) << special;
        EXPECT_NE(read.error().message.find("It is a device or a pipe, not a file."), std::string::npos);
        const auto written = files.writeFileAtomically(special, "x");
        ASSERT_FALSE(written) << special;
        EXPECT_NE(written.error().message.find("It is a device or a pipe, not a file."), std::string::npos);
    }
    EXPECT_EQ(files.kindOf(path("pipe")), PathKind::Other) << "it was not replaced";
}

TEST_F(FileStoreTest, aFileWithoutASizeIsReadToALimit) {
    EXPECT_NE(files.readFile("/proc/self/status").value().find("Name:"), std::string::npos);
    const auto read =
        PosixFileStore(SpecialFiles::Refused, ReadLimits{.pipe = 16}).readFile("/proc/kallsyms");
    ASSERT_FALSE(read);
    EXPECT_EQ(read.error().code, EFBIG);
}

TEST_F(FileStoreTest, standardOutputIsWrittenIntoWhateverItIs) {
    const std::string bytes(200'000, 'x');
    for (const char* name : {"/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"}) {
        int ends[2];
        ASSERT_EQ(::pipe(ends), 0);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            ::dup2(ends[1], STDOUT_FILENO);
            ::close(ends[1]);
            ::_exit(toolsFiles.writeFileAtomically(name, bytes) ? 0 : 1);
        }
        ::close(ends[1]);
        std::string got(bytes.size() + 1, '\0');
        std::size_t filled = 0;
        for (ssize_t some = 1; some > 0; filled += static_cast<std::size_t>(some > 0 ? some : 0))
            some = ::read(ends[0], got.data() + filled, got.size() - filled);
        ::close(ends[0]);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0) << name;
        EXPECT_EQ(filled, bytes.size()) << name;
    }
}

// As with ">>" in a shell.
TEST_F(FileStoreTest, standardOutputThatIsAFileIsContinued) {
    std::ofstream(path("log")) << "before\n";
    EXPECT_EQ(statusOfChild([&] {
                  const int log = ::open(path("log").c_str(), O_WRONLY | O_APPEND);
                  ::dup2(log, STDOUT_FILENO);
                  return toolsFiles.writeFileAtomically("/dev/stdout", "after\n") ? 0 : 1;
              }),
              0);
    EXPECT_EQ(files.readFile(path("log")).value(), "before\nafter\n");
}

TEST_F(FileStoreTest, fullDiskKeepsTheOldFileAndLeavesNothingBehind) {
    ASSERT_TRUE(files.writeFileAtomically(path("f"), "old"));
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        // A limit on the size of files replaces a full disk: the write is incomplete.
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{10000, 10000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const auto written = files.writeFileAtomically(path("f"), std::string(1000000, 'n'));
        ::_exit(!written && written.error().code == EFBIG ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(files.readFile(path("f")).value(), "old");
    EXPECT_EQ(fileCount(), 1u);
}

TEST_F(FileStoreTest, readOnlyFolderKeepsTheOldFile) {
    ASSERT_TRUE(files.writeFileAtomically(path("f"), "old"));
    ASSERT_EQ(::chmod(folder.c_str(), 0555), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        // Root may write everywhere, so the test uses another user.
        constexpr uid_t kNoUser = 65534;
        if (::geteuid() == 0 && ::setuid(kNoUser) != 0)
            ::_exit(2);
        const auto written = files.writeFileAtomically(path("f"), "new");
        ::_exit(!written && written.error().code == EACCES ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(files.readFile(path("f")).value(), "old");
    EXPECT_EQ(fileCount(), 1u);
}

TEST_F(FileStoreTest, identityDiffersBetweenStates) {
    EXPECT_EQ(files.identityOf(path("f")), std::nullopt);
    ASSERT_TRUE(files.writeFileAtomically(path("f"), "one"));
    const auto first = files.identityOf(path("f"));
    ASSERT_TRUE(first);
    EXPECT_EQ(first->size, 3u);
    EXPECT_EQ(files.identityOf(path("f")), first);
    ASSERT_TRUE(files.writeFileAtomically(path("f"), "two"));
    EXPECT_NE(files.identityOf(path("f")), first);
    const auto second = files.identityOf(path("f"));
    std::ofstream(path("f"), std::ios::app) << "more";
    EXPECT_NE(files.identityOf(path("f")), second);
}

TEST_F(FileStoreTest, aFileIsNoFolder) {
    ASSERT_TRUE(files.writeFileAtomically(path("f"), "x"));
    const Result<void> made = files.makeFolder(path("f"));
    ASSERT_FALSE(made);
    EXPECT_EQ(made.error().code, ENOTDIR);
    EXPECT_NE(made.error().message.find(path("f")), std::string::npos) << made.error().message;
    EXPECT_EQ(files.readFile(path("f")).value(), "x");
    ASSERT_TRUE(files.makeFolder(path("a")));
    fs::create_symlink(path("a"), path("link"));
    EXPECT_TRUE(files.makeFolder(path("link"))) << "a link to a folder is one";
}

TEST_F(FileStoreTest, foldersAndCopies) {
    ASSERT_TRUE(files.makeFolder(path("a/b/c")));
    ASSERT_TRUE(files.makeFolder(path("a/b/c")));
    EXPECT_EQ(mode(path("a/b")), 0700u);
    ASSERT_TRUE(files.writeFileAtomically(path("f"), "x"));
    ASSERT_TRUE(files.copyFile(path("f"), path("a/b/c/g")));
    EXPECT_EQ(files.readFile(path("a/b/c/g")).value(), "x");
    EXPECT_FALSE(files.copyFile(path("missing"), path("h")));
    EXPECT_FALSE(files.makeFolder(path("f/inside")));
    EXPECT_EQ(files.namesInFolder(folder.string()), (std::vector<std::string>{"a", "f"}));
    EXPECT_TRUE(files.namesInFolder(path("missing")).empty());
    EXPECT_TRUE(files.removeFile(path("f")));
    EXPECT_TRUE(files.removeFile(path("f")));
    EXPECT_FALSE(files.fileExists(path("f")));
}

TEST_F(FileStoreTest, kindsFollowLinks) {
    ASSERT_TRUE(files.writeFileAtomically(path("f"), "x"));
    fs::create_symlink("f", path("link"));
    fs::create_symlink(folder, path("folder"));
    fs::create_symlink("nowhere", path("dangling"));
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(files.kindOf(path("f")), PathKind::File);
    EXPECT_EQ(files.kindOf(path("link")), PathKind::File);
    EXPECT_EQ(files.kindOf(path("folder")), PathKind::Folder);
    EXPECT_EQ(files.kindOf(path("dangling")), PathKind::Nothing);
    EXPECT_EQ(files.kindOf(path("pipe")), PathKind::Other);
    EXPECT_EQ(files.kindOf("/dev/null"), PathKind::Other);
    EXPECT_EQ(files.kindOf(path("f/below")), PathKind::Nothing);
}

TEST_F(FileStoreTest, sameFileWhateverThePathLooksLike) {
    ASSERT_TRUE(files.makeFolder(path("a/b")));
    ASSERT_TRUE(files.writeFileAtomically(path("a/f"), "x"));
    ASSERT_TRUE(files.writeFileAtomically(path("a/g"), "x"));
    fs::create_symlink("a/f", path("link"));
    fs::create_symlink("a/b", path("inner"));
    fs::create_hard_link(path("a/f"), path("hard"));
    for (const char* spelling : {"link", "a/./f", "a//f", "a/b/../f", "inner/../f", "hard"})
        EXPECT_TRUE(isSameFile(files, path("a/f"), path(spelling))) << spelling;
    EXPECT_FALSE(isSameFile(files, path("a/f"), path("a/g"))) << "the same content is not the same file";
    EXPECT_FALSE(isSameFile(files, path("a/f"), path("missing")));
    EXPECT_FALSE(isSameFile(files, path("missing"), path("missing too")));
    EXPECT_TRUE(isSameFile(files, path("missing"), path("missing")));
}

} // namespace
} // namespace tabulon
