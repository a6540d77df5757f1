// The user's folders, and folders that the user chose before and that may be deleted.
#include "platform/linux/XdgFolders.h"

#include "base/Settings.h"
#include "platform/fake/FakeBaseServices.h"
#include "platform/fake/MemoryFileStore.h"
#include "platform/linux/XdgFolderReferences.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>

namespace tabulon {
namespace {

class XdgFoldersTest : public testing::Test {
protected:
    void SetUp() override {
        ::setenv("HOME", "/home/ada", 1);
        for (const char* variable : {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
            ::unsetenv(variable);
    }

    MemoryFileStore files;
    MemoryUserDefaults defaults;
    XdgFolderReferences folders{defaults, files};
};

TEST_F(XdgFoldersTest, variablesNameTheFoldersUnlessTheyAreRelative) {
    EXPECT_EQ(settingsFolder(), "/home/ada/.config/tabulon");
    EXPECT_EQ(stateFolder(), "/home/ada/.local/state/tabulon");
    ::setenv("XDG_CONFIG_HOME", "/elsewhere", 1);
    ::setenv("XDG_STATE_HOME", "relative", 1);
    EXPECT_EQ(settingsFolder(), "/elsewhere/tabulon");
    EXPECT_EQ(stateFolder(), "/home/ada/.local/state/tabulon");
    ::unsetenv("HOME");
    EXPECT_TRUE(stateFolder().starts_with('/')) << "the home folder of the user's account";
}

TEST_F(XdgFoldersTest, theDesktopsListNamesTheDocumentsFolder) {
    EXPECT_EQ(documentsFolder(files), "/home/ada/Documents");
    std::string& list = files.files["/home/ada/.config/user-dirs.dirs"];
    list = "# XDG_DOCUMENTS_DIR=\"/no\"\nXDG_MUSIC_DIR=\"$HOME/Musik\"\nXDG_DOCUMENTS_DIR=\"$HOME/Meine "
           "\\\"Dokumente\\\"\"\n";
    EXPECT_EQ(documentsFolder(files), "/home/ada/Meine \"Dokumente\"");
    list = "XDG_DOCUMENTS_DIR=\"/data/papers/\"";
    EXPECT_EQ(documentsFolder(files), "/data/papers");
    list = "XDG_DOCUMENTS_DIR=\"$HOME/\"\n";
    EXPECT_EQ(documentsFolder(files), "/home/ada");
    list = "XDG_DOCUMENTS_DIR=\"papers\"\n";
    EXPECT_EQ(documentsFolder(files), "/home/ada/Documents");
}

TEST_F(XdgFoldersTest, aDocumentsFolderThatIsNotThereIsNone) {
    EXPECT_EQ(folders.documentsFolder(), std::nullopt);
    files.folders.insert("/home/ada/Documents");
    EXPECT_EQ(folders.documentsFolder(), "/home/ada/Documents");
}

TEST_F(XdgFoldersTest, aChosenFolderIsKeptAsAPlainPathAndResolvedWhileItIsThere) {
    EXPECT_EQ(folders.resolve(settings::kBackupFolderBookmark.key), std::nullopt);
    files.folders.insert("/media/stick/backups");
    folders.store(settings::kBackupFolderBookmark.key, "/media/stick/backups");
    EXPECT_EQ(defaults.stringForKey(settings::kBackupFolderBookmark.key), "/media/stick/backups");
    EXPECT_EQ(folders.resolve(settings::kBackupFolderBookmark.key), "/media/stick/backups");
    files.folders.clear();
    EXPECT_EQ(folders.resolve(settings::kBackupFolderBookmark.key), std::nullopt) << "gone";
    EXPECT_EQ(defaults.stringForKey(settings::kBackupFolderBookmark.key), "/media/stick/backups")
        << "but not forgotten";
    files.folders.insert("/media/stick/backups");
    EXPECT_EQ(folders.resolve(settings::kBackupFolderBookmark.key), "/media/stick/backups")
        << "and back again";
}

TEST_F(XdgFoldersTest, aPathThatIsNotAbsoluteResolvesToNothing) {
    for (const char* path : {"", "backups", "./backups"}) {
        files.folders.insert(path);
        defaults.setStringForKey("StartupItemsBookmark", path);
        EXPECT_EQ(folders.resolve("StartupItemsBookmark"), std::nullopt) << path;
    }
}

TEST_F(XdgFoldersTest, anHTMLCopyIsAFile) {
    files.files["/home/ada/public/links.html"] = "";
    folders.store(settings::kExportHTMLBookmark.key, "/home/ada/public/links.html");
    EXPECT_EQ(folders.resolve(settings::kExportHTMLBookmark.key), "/home/ada/public/links.html");
}

TEST_F(XdgFoldersTest, filesOfTheSessionHaveAFolder) {
    ::setenv("XDG_RUNTIME_DIR", "/run/somewhere", 1);
    EXPECT_EQ(runtimeFolder(), "/run/somewhere");
    ::setenv("XDG_RUNTIME_DIR", "relative", 1);
    EXPECT_EQ(runtimeFolder(), "/run/user/" + std::to_string(::getuid()));
}

} // namespace
} // namespace tabulon
