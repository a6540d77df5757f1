// Settings in a real file: stored, shared with other programs, and preserved when the file is damaged or the
// disk is full.
#include "platform/linux/FileUserDefaults.h"

#include "base/Settings.h"
#include "platform/fake/MemoryFileStore.h"
#include "platform/linux/FileStore.h"
#include "platform/linux/FolderLock.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

namespace tabulon {
namespace {

namespace fs = std::filesystem;
using Kind = SettingsProblem::Kind;
using namespace std::string_literals;

class CountingWriter : public SettingsWriter {
public:
    void writeSoon(FileUserDefaults&) override { ++asked; }
    int asked = 0;
};

class FileUserDefaultsTest : public testing::Test, protected SettingsProblemObserver {
protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "tabulon-settings-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder = pattern;
        path = folder / "config" / "tabulon.ini";
    }
    void TearDown() override { fs::remove_all(folder); }

    void write(const std::string& bytes) {
        ASSERT_TRUE(files.makeFolder((folder / "config").string()));
        ASSERT_TRUE(files.writeFileAtomically(path, bytes));
    }
    std::string read() { return files.readFile(path).value_or("(none)"); }
    void settingsProblem(const SettingsProblem& problem) override { problems.push_back(problem); }

    PosixFileStore files;
    fs::path folder;
    std::string path;
    std::vector<SettingsProblem> problems;
};

TEST_F(FileUserDefaultsTest, valuesHoldAtOnceAndInTheNextRun) {
    {
        FileUserDefaults defaults(files, path);
        EXPECT_TRUE(valueOf(defaults, settings::kMakeBackups));
        setValue(defaults, settings::kMakeBackups, false);
        setValue(defaults, settings::kFontSize, 12.5);
        defaults.setStringForKey(settings::kBackupFolderBookmark.key, "/home/x/not utf-8 \xFF");
        EXPECT_FALSE(valueOf(defaults, settings::kMakeBackups));
        EXPECT_EQ(read(), "(none)") << "nothing is written yet";
    }
    FileUserDefaults next(files, path);
    EXPECT_FALSE(valueOf(next, settings::kMakeBackups));
    EXPECT_EQ(valueOf(next, settings::kFontSize), 12.5);
    EXPECT_EQ(next.stringForKey(settings::kBackupFolderBookmark.key), "/home/x/not utf-8 \xFF");
    next.removeKey(settings::kMakeBackups.key);
    EXPECT_TRUE(valueOf(next, settings::kMakeBackups));
    next.write();
    EXPECT_EQ(read().find("MakeBackups"), std::string::npos);
}

TEST_F(FileUserDefaultsTest, manyChangesAreOneWrite) {
    MemoryFileStore memory;
    CountingWriter writer;
    FileUserDefaults defaults(memory, "/settings", &writer);
    for (int i = 0; i < 1000; ++i)
        defaults.setIntegerForKey("WindowWidth", i);
    EXPECT_EQ(writer.asked, 1);
    EXPECT_EQ(memory.writes, 0);
    defaults.write();
    EXPECT_EQ(memory.writes, 1);
    EXPECT_EQ(memory.files["/settings"], "[General]\nWindowWidth=999\n");
    defaults.setIntegerForKey("WindowWidth", 999);
    EXPECT_EQ(writer.asked, 1) << "the same value is no change";
    defaults.write();
    EXPECT_EQ(memory.writes, 1);
    defaults.setIntegerForKey("WindowWidth", 5);
    EXPECT_EQ(writer.asked, 2);
}

TEST_F(FileUserDefaultsTest, whatPeopleAndOtherProgramsWriteStays) {
    write("# mine\nUnknown=x\nMakeBackups=NO\n[Other]\na=b\n");
    FileUserDefaults defaults(files, path);
    EXPECT_FALSE(valueOf(defaults, settings::kMakeBackups));
    write("# mine\nUnknown=y\nMakeBackups=NO\nLater=z\n[Other]\na=b\n");
    setValue(defaults, settings::kMakeBackups, true);
    defaults.write();
    EXPECT_EQ(read(), "# mine\nUnknown=y\nMakeBackups=YES\nLater=z\n[Other]\na=b\n");
    EXPECT_EQ(defaults.stringForKey("Later"), "z");
}

TEST_F(FileUserDefaultsTest, refreshTakesInWhatAnotherProgramStored) {
    FileUserDefaults one(files, path);
    FileUserDefaults other(files, path);
    other.setStringForKey("RecentDocuments", "/a");
    other.write();
    EXPECT_EQ(one.stringForKey("RecentDocuments"), std::nullopt);
    one.setStringForKey("Mine", "1");
    one.refresh();
    EXPECT_EQ(one.stringForKey("RecentDocuments"), "/a");
    EXPECT_EQ(one.stringForKey("Mine"), "1") << "what is not written yet stays";
    fs::remove(path);
    one.refresh();
    EXPECT_EQ(one.stringForKey("RecentDocuments"), std::nullopt);
}

TEST_F(FileUserDefaultsTest, programsThatWriteAtTheSameTimeLoseNothing) {
    constexpr int kKeys = 60;
    std::vector<pid_t> children;
    for (int process = 0; process < 3; ++process) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child != 0) {
            children.push_back(child);
            continue;
        }
        {
            FileUserDefaults defaults(files, path);
            for (int i = 0; i < kKeys; ++i) {
                defaults.setIntegerForKey("key" + std::to_string(process) + "-" + std::to_string(i), i);
                defaults.write();
            }
        }
        ::_exit(0);
    }
    for (const pid_t child : children) {
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(SettingsText(read()).values().size(), 3u * kKeys);
}

TEST_F(FileUserDefaultsTest, noDamagedFileReplacesAnEarlierOne) {
    for (int number = 1; number <= 102; ++number) {
        write("damage " + std::to_string(number) + "\n");
        const FileUserDefaults defaults(files, path);
    }
    EXPECT_EQ(files.readFile(path + ".damaged"), "damage 1\n");
    for (int number = 2; number <= 102; ++number)
        EXPECT_EQ(files.readFile(path + ".damaged-" + std::to_string(number)),
                  "damage " + std::to_string(number) + "\n");
}

TEST_F(FileUserDefaultsTest, aDamagedFileIsPutAsideAndWhatCanBeReadHolds) {
    const std::string damaged = "MakeBackups=NO\n\0\0\0\0garbage\nFontSize=14\n"s;
    write(damaged);
    FileUserDefaults defaults(files, path, nullptr, this);
    EXPECT_FALSE(valueOf(defaults, settings::kMakeBackups));
    EXPECT_EQ(valueOf(defaults, settings::kFontSize), 14);
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_EQ(problems[0].kind, Kind::Damaged);
    EXPECT_EQ(problems[0].path, path);
    EXPECT_EQ(problems[0].keptAs, path + ".damaged");
    EXPECT_EQ(files.readFile(problems[0].keptAs), damaged);
    EXPECT_EQ(read(), "MakeBackups=NO\nFontSize=14\n");

    write("no sense\n");
    defaults.refresh();
    ASSERT_EQ(problems.size(), 2u);
    EXPECT_EQ(problems[1].keptAs, path + ".damaged-2");
    EXPECT_EQ(files.readFile(path + ".damaged"), damaged);
    EXPECT_EQ(files.readFile(path + ".damaged-2"), "no sense\n");
    EXPECT_TRUE(valueOf(defaults, settings::kMakeBackups));
}

TEST_F(FileUserDefaultsTest, aFileDamagedDuringTheRunIsPutAsideBeforeTheNextWrite) {
    write("a=1\n");
    FileUserDefaults defaults(files, path, nullptr, this);
    write("a=1\nnonsense\n");
    defaults.setStringForKey("b", "2");
    defaults.write();
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_EQ(files.readFile(problems[0].keptAs), "a=1\nnonsense\n");
    EXPECT_EQ(read(), "a=1\nb=2\n");
}

TEST_F(FileUserDefaultsTest, aDamagedFileThatCannotBePutAsideStaysAsItIs) {
    MemoryFileStore memory;
    memory.files["/s/tabulon.ini"] = "a=1\nnonsense\n";
    memory.unwritable = "/s/";
    FileUserDefaults defaults(memory, "/s/tabulon.ini", nullptr, this);
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_EQ(problems[0].kind, Kind::Unreadable);
    EXPECT_EQ(defaults.stringForKey("a"), "1") << "what can be read holds all the same";
    defaults.setStringForKey("a", "2");
    defaults.write();
    EXPECT_EQ(defaults.stringForKey("a"), "2");
    EXPECT_EQ(memory.files.size(), 1u);
    EXPECT_EQ(memory.files["/s/tabulon.ini"], "a=1\nnonsense\n");
    EXPECT_EQ(problems.size(), 1u) << "reported once";
}

TEST_F(FileUserDefaultsTest, aFullDiskWhilePuttingAsideLeavesNoHalfWork) {
    // The disk has room for the copy, but not for the settings file.
    class OneWriteLeft : public MemoryFileStore {
    public:
        Result<void> writeFileAtomically(const std::string& where, std::string_view bytes) override {
            diskFull = writes >= 1;
            return MemoryFileStore::writeFileAtomically(where, bytes);
        }
    } memory;
    memory.files["/s/tabulon.ini"] = "nonsense\n";
    FileUserDefaults defaults(memory, "/s/tabulon.ini", nullptr, this);
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_EQ(problems[0].kind, Kind::Unreadable);
    EXPECT_EQ(memory.namesInFolder("/s"), std::vector<std::string>{"tabulon.ini"});
    EXPECT_EQ(memory.files["/s/tabulon.ini"], "nonsense\n");
}

TEST_F(FileUserDefaultsTest, aFileThatCannotBeReadIsNeverWrittenOver) {
    MemoryFileStore memory;
    memory.files["/s/tabulon.ini"] = "MakeBackups=NO\n";
    memory.unreadable = "/s/";
    FileUserDefaults defaults(memory, "/s/tabulon.ini", nullptr, this);
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_EQ(problems[0].kind, Kind::Unreadable);
    EXPECT_NE(problems[0].reason.find("Permission denied"), std::string::npos);
    defaults.setStringForKey(settings::kFontName.key, "Serif");
    defaults.write();
    EXPECT_EQ(memory.files["/s/tabulon.ini"], "MakeBackups=NO\n");
    EXPECT_EQ(defaults.stringForKey(settings::kFontName.key), "Serif") << "it holds for this run";
    EXPECT_EQ(problems.size(), 1u);
    memory.unreadable.clear();
    defaults.write();
    EXPECT_EQ(memory.files["/s/tabulon.ini"], "MakeBackups=NO\nFontName=Serif\n") << "better late than never";
    EXPECT_FALSE(valueOf(defaults, settings::kMakeBackups));
}

TEST_F(FileUserDefaultsTest, changesThatCannotBeWrittenAreKeptAndTriedAgain) {
    MemoryFileStore memory;
    memory.diskFull = true;
    FileUserDefaults defaults(memory, "/s/tabulon.ini", nullptr, this);
    EXPECT_TRUE(problems.empty()) << "nothing was to be written";
    for (int i = 1; i <= 3; ++i) {
        defaults.setIntegerForKey("k", i);
        defaults.write();
    }
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_EQ(problems[0].kind, Kind::Unwritable);
    EXPECT_NE(problems[0].reason.find("disk is full"), std::string::npos);
    memory.diskFull = false;
    defaults.write();
    EXPECT_EQ(memory.files["/s/tabulon.ini"], "[General]\nk=3\n");
    memory.diskFull = true;
    defaults.setIntegerForKey("k", 4);
    defaults.write();
    EXPECT_EQ(problems.size(), 2u) << "a new problem after a success is reported again";
}

TEST_F(FileUserDefaultsTest, aFileWhereTheFolderShouldBeIsReported) {
    ASSERT_TRUE(files.writeFileAtomically(folder / "config", "not a folder"));
    FileUserDefaults defaults(files, path, nullptr, this);
    defaults.setStringForKey("k", "v");
    defaults.write();
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_EQ(files.readFile(folder / "config"), "not a folder");
    EXPECT_EQ(defaults.stringForKey("k"), "v");
}

TEST_F(FileUserDefaultsTest, whatIsNoFileOrTooLargeIsLeftAlone) {
    ASSERT_TRUE(files.makeFolder(path));
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const std::string large = folder / "large";
    ASSERT_TRUE(files.writeFileAtomically(large, ""));
    fs::resize_file(large, FileUserDefaults::kLargestFile + 1);
    for (const std::string& place : {path, pipe, large}) {
        problems.clear();
        FileUserDefaults defaults(files, place, nullptr, this);
        defaults.setStringForKey("k", "v");
        defaults.write();
        ASSERT_EQ(problems.size(), 1u) << place;
        EXPECT_EQ(problems[0].kind, Kind::Unreadable);
    }
    EXPECT_EQ(fs::file_size(large), FileUserDefaults::kLargestFile + 1);
}

TEST_F(FileUserDefaultsTest, aLinkToTheFileStaysALink) {
    ASSERT_TRUE(files.makeFolder((folder / "config").string()));
    ASSERT_TRUE(files.writeFileAtomically(folder / "dotfile", "a=1\nnonsense\n"));
    fs::create_symlink(folder / "dotfile", path);
    {
        FileUserDefaults defaults(files, path);
        defaults.setStringForKey("a", "2");
    }
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(files.readFile(folder / "dotfile"), "a=2\n");
    EXPECT_EQ(files.readFile(path + ".damaged"), "a=1\nnonsense\n");
}

TEST_F(FileUserDefaultsTest, whileAnotherProgramWritesForLongChangesWaitAndTheEndIsTheEnd) {
    write("a=1\n");
    const FolderLock hung((folder / "config").string());
    ASSERT_TRUE(hung.isHeld());
    CountingWriter writer;
    {
        FileUserDefaults defaults(files, path, &writer);
        defaults.setStringForKey("a", "2");
        const auto begin = std::chrono::steady_clock::now();
        defaults.write();
        EXPECT_LT(std::chrono::steady_clock::now() - begin, 10 * FolderLock::kPatience);
        EXPECT_EQ(writer.asked, 2);
        EXPECT_EQ(read(), "a=1\n");
    }
    EXPECT_EQ(read(), "a=2\n");
}

TEST_F(FileUserDefaultsTest, aFolderIsLockedForOneAtATime) {
    const std::string place = folder.string();
    {
        const FolderLock first(place);
        EXPECT_TRUE(first.isHeld());
        const FolderLock second(place, std::chrono::milliseconds(20));
        EXPECT_FALSE(second.isHeld());
        EXPECT_TRUE(second.isBusy());
    }
    EXPECT_TRUE(FolderLock(place, std::chrono::milliseconds(20)).isHeld());
    const FolderLock none(folder / "missing");
    EXPECT_FALSE(none.isHeld());
    EXPECT_FALSE(none.isBusy());
}

} // namespace
} // namespace tabulon
