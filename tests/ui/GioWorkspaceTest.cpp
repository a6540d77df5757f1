// The desktop's default browser, as desktop entries and the user's choice name it. GIO reads the folders only
// once in a process, so each case runs in a process of its own.
#include "platform/linux/GioWorkspace.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace tabulon {
namespace {

namespace fs = std::filesystem;

class GioWorkspaceTest : public testing::Test {
protected:
    GioWorkspaceTest() {
        std::string name = (fs::temp_directory_path() / "tabulon-workspace-XXXXXX").string();
        folder_ = mkdtemp(name.data());
        fs::create_directories(folder_ / "data/applications");
        fs::create_directories(folder_ / "config");
    }
    ~GioWorkspaceTest() override { fs::remove_all(folder_); }

    void write(const std::string& name, const std::string& text) const {
        std::ofstream(folder_ / name) << text;
    }
    void installBrowser(const std::string& icon) const {
        write("data/applications/web.desktop",
              "[Desktop Entry]\nType=Application\nName=Wéb\nExec=true %u\nIcon=" + icon + "\n");
        write("data/applications/mimeinfo.cache", "[MIME Cache]\nx-scheme-handler/http=web.desktop;\n");
    }
    /// Prints the default browser to standard error and ends the process.
    [[noreturn]] void tell() const {
        setenv("XDG_DATA_HOME", (folder_ / "data").c_str(), 1);
        setenv("XDG_DATA_DIRS", (folder_ / "none").c_str(), 1);
        setenv("XDG_CONFIG_HOME", (folder_ / "config").c_str(), 1);
        setenv("XDG_CONFIG_DIRS", (folder_ / "none").c_str(), 1);
        BrowserLauncher launcher(nullptr);
        const std::optional<Application> browser = GioWorkspace(launcher).defaultBrowser();
        std::fprintf(stderr, "<%s>", browser ? (browser->name + "|" + browser->icon).c_str() : "none");
        std::_Exit(0);
    }

    fs::path folder_;
};

TEST_F(GioWorkspaceTest, thereMayBeNone) {
    EXPECT_EXIT(tell(), testing::ExitedWithCode(0), "<none>");
}

TEST_F(GioWorkspaceTest, itHasANameAndAnIcon) {
    installBrowser("web-browser");
    EXPECT_EXIT(tell(), testing::ExitedWithCode(0), "<Wéb\\|web-browser>");
    installBrowser("/opt/web/web.png");
    EXPECT_EXIT(tell(), testing::ExitedWithCode(0), "<Wéb\\|/opt/web/web.png>");
}

TEST_F(GioWorkspaceTest, theUserChoosesAmongMany) {
    installBrowser("web-browser");
    write("data/applications/other.desktop", "[Desktop Entry]\nType=Application\nName=Other\nExec=true %u\n");
    write("config/mimeapps.list", "[Default Applications]\nx-scheme-handler/http=other.desktop\n");
    EXPECT_EXIT(tell(), testing::ExitedWithCode(0), "<Other\\|>");
}

} // namespace
} // namespace tabulon
