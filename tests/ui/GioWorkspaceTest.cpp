// The applications of the desktop as desktop entries and the user's choice name them, and what they are
// started with. GIO reads the folders only once in a process, so each case runs in a process of its own.
#include "platform/linux/GioWorkspace.h"

#include "opening/BrowserDelivery.h"
#include "platform/fake/FakePlatform.h"
#include "platform/linux/CommandLineEvents.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <thread>

namespace tabulon {
namespace {

namespace fs = std::filesystem;

// The services of one process.
struct Desktop {
    BrowserLauncher launcher{nullptr};
    GioWorkspace workspace{launcher};
    CommandLineEvents events{launcher};
    CommandLinePermission permission;
    FakePlatform fake;

    BrowserDelivery delivery() {
        return BrowserDelivery({workspace, events, permission, fake.alerts, fake.base.services()});
    }
};

class GioWorkspaceTest : public testing::Test {
protected:
    GioWorkspaceTest() {
        std::string name = (fs::temp_directory_path() / "tabulon-workspace-XXXXXX").string();
        folder_ = mkdtemp(name.data());
        fs::create_directories(folder_ / "data/applications");
        fs::create_directories(folder_ / "config");
        fs::create_directories(folder_ / "started");
        fs::create_directories(folder_ / "bin");
        for (const char* program : {"cat", "true"})
            fs::create_symlink(fs::path("/bin") / program, folder_ / "bin" / program);
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
    // Installs a program that writes its arguments, one on each line, to a file named after its entry. A
    // second start appends.
    void installProgram(const std::string& entry, const std::string& arguments,
                        const std::string& schemes = "") const {
        const fs::path program = folder_ / (entry + "-program");
        const fs::path file = folder_ / "started" / entry;
        write(entry + "-program", "#!/bin/sh\n{ echo start; for word in \"$@\"; do printf '%s\\n' \"$word\"; "
                                  "done; } > '" +
                                      file.string() + ".'$$\ncat '" + file.string() + ".'$$ >> '" +
                                      file.string() + "'\n");
        fs::permissions(program, fs::perms::owner_all);
        write("data/applications/" + entry + ".desktop", "[Desktop Entry]\nType=Application\nName=" + entry +
                                                             "\nExec=" + program.string() + " " + arguments +
                                                             "\n");
        std::ofstream cache(folder_ / "data/applications/mimeinfo.cache", std::ios::app);
        if (!fs::file_size(folder_ / "data/applications/mimeinfo.cache"))
            cache << "[MIME Cache]\n";
        std::istringstream list(schemes);
        for (std::string scheme; list >> scheme;)
            cache << "x-scheme-handler/" << scheme << "=" << entry << ".desktop;\n";
    }
    // Waits until the program was started `starts` times, and returns its arguments with a "/" between them.
    std::string argumentsOf(const std::string& entry, int starts = 1) const {
        std::string text;
        for (int attempt = 0; attempt < 500; ++attempt) {
            std::ifstream file(folder_ / "started" / entry);
            std::ostringstream bytes;
            bytes << file.rdbuf();
            text = bytes.str();
            if (countOf("start\n", text) >= starts)
                break;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(50)); // for the rest of the last start
        std::ifstream file(folder_ / "started" / entry);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        text = bytes.str();
        for (char& c : text)
            c = c == '\n' ? ' ' : c;
        return text;
    }
    static int countOf(const std::string& word, const std::string& text) {
        int count = 0;
        for (std::size_t at = text.find(word); at != text.npos; at = text.find(word, at + 1))
            ++count;
        return count;
    }
    // Prints what `action` returns to standard error, and ends the process.
    [[noreturn]] void printResultOf(const std::function<std::string(Desktop&)>& action) const {
        setenv("XDG_DATA_HOME", (folder_ / "data").c_str(), 1);
        setenv("XDG_DATA_DIRS", (folder_ / "none").c_str(), 1);
        setenv("XDG_CONFIG_HOME", (folder_ / "config").c_str(), 1);
        setenv("XDG_CONFIG_DIRS", (folder_ / "none").c_str(), 1);
        setenv("PATH", (folder_ / "bin").c_str(), 1); // no real browser
        Desktop desktop;
        std::fprintf(stderr, "<%s>", action(desktop).c_str());
        std::_Exit(0);
    }
    static std::string defaultBrowser(Desktop& desktop) {
        const std::optional<Application> browser = desktop.workspace.defaultBrowser();
        return (browser ? browser->name + "|" + browser->icon : "none") + "|" +
               desktop.workspace.defaultHandler();
    }

    fs::path folder_;
};

TEST_F(GioWorkspaceTest, thereMayBeNoDefaultBrowser) {
    EXPECT_EXIT(printResultOf(defaultBrowser), testing::ExitedWithCode(0), "<none\\|>");
}

TEST_F(GioWorkspaceTest, theDefaultBrowserHasANameAndAnIcon) {
    installBrowser("web-browser");
    EXPECT_EXIT(printResultOf(defaultBrowser), testing::ExitedWithCode(0), "<Wéb\\|web-browser\\|web>");
    installBrowser("/opt/web/web.png");
    EXPECT_EXIT(printResultOf(defaultBrowser), testing::ExitedWithCode(0), "<Wéb\\|/opt/web/web.png\\|web>");
}

TEST_F(GioWorkspaceTest, theUserChoosesAmongMany) {
    installBrowser("web-browser");
    write("data/applications/other.desktop", "[Desktop Entry]\nType=Application\nName=Other\nExec=true %u\n");
    write("config/mimeapps.list", "[Default Applications]\nx-scheme-handler/http=other.desktop\n");
    EXPECT_EXIT(printResultOf(defaultBrowser), testing::ExitedWithCode(0), "<Other\\|\\|other>");
}

TEST_F(GioWorkspaceTest, aKnownBrowserHasTheIdentifierOfTheTable) {
    for (const auto& [entry, identifier] :
         std::vector<std::pair<std::string, std::string>>{{"firefox-esr", "org.mozilla.firefox"},
                                                          {"chromium", "org.chromium.Chromium"},
                                                          {"com.brave.Browser", "com.brave.Browser"}}) {
        installProgram(entry, "%u");
        write("config/mimeapps.list",
              "[Default Applications]\nx-scheme-handler/http=" + entry + ".desktop\n");
        EXPECT_EXIT(printResultOf([](Desktop& desktop) { return desktop.workspace.defaultHandler(); }),
                    testing::ExitedWithCode(0), "<" + identifier + ">");
    }
}

TEST_F(GioWorkspaceTest, aBrowserIsInstalledIfItHasAnEntry) {
    installProgram("firefox-esr", "%u");
    const auto look = [](Desktop& desktop) {
        std::string found;
        for (const char* identifier : {"org.mozilla.firefox", "org.mozilla.Firefox", "com.google.Chrome"})
            found += desktop.workspace.application(identifier) ? "1" : "0";
        return found;
    };
    EXPECT_EXIT(printResultOf(look), testing::ExitedWithCode(0), "<110>");
}

TEST_F(GioWorkspaceTest, aBrowserIsStartedWithTheAddressAlone) {
    installProgram("chromium", "--profile=\"two words\" %U");
    const auto open = [](Desktop& desktop) {
        desktop.delivery().bringForward("org.chromium.Chromium");
        desktop.delivery().deliver("org.chromium.Chromium", "https://a/?x=1&y=$HOME;'");
        return std::string(desktop.launcher.startPending() ? "started" : "failed");
    };
    EXPECT_EXIT(printResultOf(open), testing::ExitedWithCode(0), "<started>");
    EXPECT_EQ(argumentsOf("chromium"), "start --profile=two words https://a/?x=1&y=$HOME;' ");
}

TEST_F(GioWorkspaceTest, aBrowserIsStartedWithoutAnAddressIfNoneFollows) {
    installProgram("firefox", "--name web %u");
    const auto open = [](Desktop& desktop) {
        desktop.delivery().bringForward("org.mozilla.firefox");
        desktop.delivery().deliver("org.mozilla.firefox", "-remote");
        desktop.delivery().deliver("org.mozilla.firefox", "https://a/\n-remote");
        return std::string(desktop.launcher.startPending() ? "started" : "failed");
    };
    EXPECT_EXIT(printResultOf(open), testing::ExitedWithCode(0), "<started>");
    EXPECT_EQ(argumentsOf("firefox"), "start --name web ");
}

TEST_F(GioWorkspaceTest, aNewWindowHasItsOption) {
    installProgram("chromium", "%U");
    installProgram("firefox", "%u");
    const auto open = [](Desktop& desktop) {
        desktop.delivery().deliverInNewWindow("org.chromium.Chromium", "https://a/");
        desktop.delivery().deliver("org.chromium.Chromium", "https://b/");
        desktop.delivery().deliverInNewWindow("org.mozilla.firefox", "https://c/");
        return std::string(desktop.launcher.startPending() ? "started" : "failed");
    };
    EXPECT_EXIT(printResultOf(open), testing::ExitedWithCode(0), "<started>");
    EXPECT_EQ(argumentsOf("firefox"), "start --new-window https://c/ ");
    const std::string chromium = argumentsOf("chromium", 2);
    EXPECT_EQ(countOf("start --new-window https://a/ ", chromium), 1) << chromium;
    EXPECT_EQ(countOf("start https://b/ ", chromium), 1) << chromium;
}

TEST_F(GioWorkspaceTest, severalTabsAreOneStart) {
    installProgram("firefox", "%u");
    const auto open = [](Desktop& desktop) {
        for (const char* url : {"https://a/", "https://b/", "https://c/"})
            desktop.delivery().deliverInNewTab(url, "org.mozilla.Firefox");
        return std::string(desktop.launcher.startPending() ? "started" : "failed");
    };
    EXPECT_EXIT(printResultOf(open), testing::ExitedWithCode(0), "<started>");
    EXPECT_EQ(argumentsOf("firefox"), "start https://a/ https://b/ https://c/ ");
}

TEST_F(GioWorkspaceTest, theSandboxOfABrowserKeepsItsMarks) {
    installProgram("org.mozilla.firefox", "run --file-forwarding org.mozilla.firefox @@u %u @@");
    const auto open = [](Desktop& desktop) {
        desktop.delivery().deliver("org.mozilla.firefox", "https://a/");
        return std::string(desktop.launcher.startPending() ? "started" : "failed");
    };
    EXPECT_EXIT(printResultOf(open), testing::ExitedWithCode(0), "<started>");
    EXPECT_EQ(argumentsOf("org.mozilla.firefox"),
              "start run --file-forwarding org.mozilla.firefox https://a/ ");
}

TEST_F(GioWorkspaceTest, theDesktopOpensAddressesByTheirSchemes) {
    installProgram("mailer", "--compose %u", "mailto");
    installProgram("web", "%u", "http https");
    const auto open = [](Desktop& desktop) {
        std::string done;
        for (const char* url :
             {"mailto:a@b", "MAILTO:c@d", "https://a/", "unknown:x", "no address", "", "-x:y", "https:\x01"})
            done += desktop.workspace.openURL(url) ? "1" : "0";
        return done + (desktop.launcher.startPending() ? " started" : " failed");
    };
    EXPECT_EXIT(printResultOf(open), testing::ExitedWithCode(0), "<11100000 started>");
    // An application that takes one address is started for each.
    EXPECT_EQ(countOf("start --compose ", argumentsOf("mailer", 2)), 2);
    EXPECT_EQ(argumentsOf("web"), "start https://a/ ");
}

TEST_F(GioWorkspaceTest, aFolderIsOneStartOfTheDefaultBrowser) {
    installProgram("chromium", "%U", "http");
    const auto open = [](Desktop& desktop) {
        const std::vector<std::string> urls = {"https://1/", "https://2/", "https://3/"};
        const bool accepted = desktop.workspace.openURLs(urls).has_value();
        return std::string(accepted && desktop.launcher.startPending() ? "started" : "failed");
    };
    EXPECT_EXIT(printResultOf(open), testing::ExitedWithCode(0), "<started>");
    EXPECT_EQ(argumentsOf("chromium"), "start https://1/ https://2/ https://3/ ");
}

TEST_F(GioWorkspaceTest, aProgramThatIsGoneIsAFailure) {
    write("data/applications/chromium.desktop",
          "[Desktop Entry]\nType=Application\nName=C\nExec=" + (folder_ / "gone").string() + " %U\n");
    const auto open = [](Desktop& desktop) {
        const bool hasEntry = desktop.workspace.launch("org.chromium.Chromium").has_value();
        const bool isKnown = desktop.workspace.launch("com.google.Chrome").has_value();
        const InstalledApplication gone{.identifier = "gone", .shown = {}, .command = {"/gone/program"}};
        desktop.launcher.startSoon(gone);
        const Result<void> started = desktop.launcher.startPending();
        return std::string(hasEntry ? "1" : "0") + (isKnown ? "1" : "0") + (started ? "1" : "0");
    };
    EXPECT_EXIT(printResultOf(open), testing::ExitedWithCode(0), "<000>");
}

} // namespace
} // namespace tabulon
