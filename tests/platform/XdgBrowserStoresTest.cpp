// Bookmark files of browsers, in real folders.
#include "platform/linux/XdgBrowserStores.h"

#include "platform/linux/FileStore.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace tabulon {
namespace {

namespace fs = std::filesystem;

class XdgBrowserStoresTest : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "stores-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        home_ = pattern;
        ::setenv("HOME", home_.c_str(), 1);
        ::unsetenv("XDG_CONFIG_HOME");
    }
    void TearDown() override { fs::remove_all(home_); }

    /// Creates a file that was modified `hours` ago and returns its path.
    std::string put(const std::string& path, int hours) {
        const fs::path file = home_ / path;
        fs::create_directories(file.parent_path());
        std::ofstream(file) << "{}";
        fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(hours));
        return file.string();
    }

    fs::path home_;
    PosixFileStore files_;
    XdgBrowserStores stores_{files_};
};

TEST_F(XdgBrowserStoresTest, aBrowserThatIsNotThereHasNone) {
    EXPECT_TRUE(stores_.bookmarkFiles("com.google.Chrome").empty());
    EXPECT_TRUE(stores_.bookmarkFiles("com.apple.Safari").empty());
    EXPECT_TRUE(stores_.bookmarkFiles("").empty());
}

TEST_F(XdgBrowserStoresTest, theFileWrittenLastComesFirstInWhateverProfileOrPackaging) {
    const std::string stale = put(".config/chromium/Default/Bookmarks", 50);
    const std::string snap = put("snap/chromium/common/chromium/Profile 2/Bookmarks", 1);
    const std::string flatpak = put(".var/app/org.chromium.Chromium/config/chromium/Default/Bookmarks", 9);
    put(".config/chromium/Default/Bookmarks.bak", 0);
    put(".config/google-chrome/Default/Bookmarks", 0);
    EXPECT_EQ(stores_.bookmarkFiles("org.chromium.Chromium"),
              (std::vector<std::string>{snap, flatpak, stale}));
}

/// The folders in which each packaging of a browser stores its profiles, relative to the home folder.
struct Packagings {
    const char* browser;
    std::vector<std::string> folders;
};

const std::vector<Packagings> kBrowsers = {
    {"com.google.Chrome", {".config/google-chrome", ".var/app/com.google.Chrome/config/google-chrome"}},
    {"org.chromium.Chromium",
     {".config/chromium", "snap/chromium/common/chromium", ".var/app/org.chromium.Chromium/config/chromium"}},
    {"com.vivaldi.Vivaldi", {".config/vivaldi", ".var/app/com.vivaldi.Vivaldi/config/vivaldi"}},
    {"com.brave.Browser",
     {".config/BraveSoftware/Brave-Browser", "snap/brave/current/.config/BraveSoftware/Brave-Browser",
      ".var/app/com.brave.Browser/config/BraveSoftware/Brave-Browser"}},
    {"com.microsoft.edgemac",
     {".config/microsoft-edge", ".var/app/com.microsoft.Edge/config/microsoft-edge"}},
    {"com.operasoftware.Opera",
     {".config/opera", "snap/opera/current/.config/opera", ".var/app/com.opera.Opera/config/opera"}},
    {"org.mozilla.Firefox",
     {".mozilla/firefox", ".config/mozilla/firefox", "snap/firefox/common/.mozilla/firefox",
      ".var/app/org.mozilla.firefox/.mozilla/firefox"}},
};

// All packagings of a browser are installed. The file of the flatpak is the newest. Files of other browsers
// are not in the result.
TEST_F(XdgBrowserStoresTest, everyBrowserIsFoundInTheFolderOfEachOfItsPackagings) {
    std::map<std::string, std::vector<std::string>> expected;
    for (const auto& [browser, folders] : kBrowsers) {
        const bool isFirefox = std::string(browser) == "org.mozilla.Firefox";
        const std::string name = isFirefox ? "/ab12.default-esr/places.sqlite" : "/Profile 1/Bookmarks";
        int hours = 1;
        for (auto folder = folders.rbegin(); folder != folders.rend(); ++folder)
            expected[browser].push_back(put(*folder + name, hours++));
    }
    for (const auto& [browser, files] : expected)
        EXPECT_EQ(stores_.bookmarkFiles(browser), files) << browser;
}

TEST_F(XdgBrowserStoresTest, operaKeepsItsFileInTheFolderItselfToo) {
    const std::string file = put(".config/opera/Bookmarks", 1);
    EXPECT_EQ(stores_.bookmarkFiles("com.operasoftware.Opera"), std::vector<std::string>{file});
}

TEST_F(XdgBrowserStoresTest, theVariableForSettingsMovesNativeBrowsers) {
    ::setenv("XDG_CONFIG_HOME", (home_ / "settings").c_str(), 1);
    put(".config/vivaldi/Default/Bookmarks", 1);
    const std::string file = put("settings/vivaldi/Default/Bookmarks", 1);
    EXPECT_EQ(stores_.bookmarkFiles("com.vivaldi.Vivaldi"), std::vector<std::string>{file});
    ::unsetenv("XDG_CONFIG_HOME");
}

TEST_F(XdgBrowserStoresTest, filesFromElsewhereAreInTheDownloadsElseTheDocumentsElseHome) {
    EXPECT_EQ(stores_.folderOfForeignFiles(), home_.string());
    fs::create_directories(home_ / "Documents");
    EXPECT_EQ(stores_.folderOfForeignFiles(), (home_ / "Documents").string());
    fs::create_directories(home_ / "Downloads");
    EXPECT_EQ(stores_.folderOfForeignFiles(), (home_ / "Downloads").string());
    fs::create_directories(home_ / "in");
    fs::create_directories(home_ / ".config");
    std::ofstream(home_ / ".config/user-dirs.dirs") << "XDG_DOWNLOAD_DIR=\"$HOME/in\"\n";
    EXPECT_EQ(stores_.folderOfForeignFiles(), (home_ / "in").string());
}

} // namespace
} // namespace tabulon
