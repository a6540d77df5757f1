// The application with real files in a folder of its own, also in child processes that a test can kill.
#pragma once

#include "app/AppDelegate.h"
#include "base/Settings.h"
#include "model/ArchiveReader.h"
#include "model/ArchiveWriter.h"
#include "platform/fake/FakePlatform.h"
#include "platform/fake/FakeSingleInstance.h"
#include "platform/linux/FileStore.h"
#include "platform/linux/XdgRecoveryFolders.h"
#include "tests/app/FakeProgramHost.h"
#include "tests/window/MemoryWindow.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <charconv>
#include <csignal>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace tabulon {

/// Document windows without a display.
class MemoryWindows : public DocumentWindowMaker {
public:
    std::unique_ptr<DocumentWindow> makeWindow(ViewController& controller) override {
        return std::make_unique<MemoryWindow>(controller);
    }
    void presentVersions(std::shared_ptr<VersionsController> /*controller*/) override {}
};

/// One run of the application: real files, and alerts and panels with the answers that the test has set.
class ProgramRun {
public:
    // `recovery` needs the state folder, and `app` needs both: `app` is the last member.
    explicit ProgramRun(const std::string& folder)
        : recovery((fakes.folders.state = folder + "/state") + "/unsaved") {
        setValue(fakes.base.defaults, settings::kMakeBackups, true);
        fakes.folders.store(settings::kBackupFolderBookmark.key, folder + "/backups");
    }

    /// Opens the file at `path` and returns its document. Fails the test if the file cannot be opened.
    Document& open(const std::string& path) {
        EXPECT_TRUE(app.fileOpening().openFile(path));
        return *app.documentController().currentDocument();
    }
    /// Saves the document. Returns false if the save failed, was cancelled, or has not ended.
    bool save(Document& document) {
        bool saved = false;
        app.documentController().saveDocument(document, [&saved](bool done) { saved = done; });
        return saved;
    }

    FakePlatform fakes;
    PosixFileStore files;
    XdgRecoveryFolders recovery;
    MemoryWindows windows;
    FakeSingleInstance instance;
    FakeProgramHost host;
    AppDelegate app{Platform{fakes.base.services(), fakes.alerts, fakes.panels, fakes.progress, files,
                             fakes.folders, recovery, fakes.stores, fakes.timers, fakes.beeper,
                             fakes.keyboard, fakes.pasteboard, fakes.workspace, fakes.events,
                             fakes.permission, fakes.state},
                    windows, instance, host, "1"};
};

/// A temporary folder for each test, which contains a folder for backups.
class FaultTest : public testing::Test {
protected:
    FaultTest() {
        std::string name = (std::filesystem::temp_directory_path() / "tabulon-faults-XXXXXX").string();
        folder = ::mkdtemp(name.data());
        std::filesystem::create_directory(folder + "/backups");
        std::filesystem::permissions(folder, std::filesystem::perms::all);
    }
    ~FaultTest() override { std::filesystem::remove_all(folder); }

    std::string path(const char* name) const { return folder + "/" + name; }

    /// Returns a tree in which the names and URLs of all links contain the version number, so that a mixture
    /// of two versions is detected.
    static Ref<Bookmark> version(int number) {
        Ref<Bookmark> master = Bookmark::initEmpty();
        master->setItemName("Master");
        master->makeParent();
        master->setShowHier(true);
        const std::string text = std::to_string(number);
        for (int i = 0; i < 200 + 37 * (number % 50); ++i) {
            Ref<Bookmark> link = Bookmark::initEmpty();
            link->setItemName(text);
            link->setItemURL("https://example.org/" + text + "/" + std::to_string(i));
            master->addChild(std::move(link));
        }
        return master;
    }
    /// Replaces the contents of the document with that version and counts one change.
    static void change(Document& document, int number) {
        document.setMaster(version(number));
        document.updateUI();
        document.updateChangeCount(ChangeKind::Done);
    }
    /// Returns the version number if the file is one complete version. Otherwise returns -1, and fails the
    /// test unless the file is a document without items.
    int versionIn(const std::string& file) { return versionIn(file, files.readFile(file)); }
    /// Does the same for `bytes` that were read from the file.
    static int versionIn(const std::string& file, const Result<std::string>& bytes) {
        EXPECT_TRUE(bytes.has_value()) << file;
        const auto tree = readDocumentArchive(bytes.value_or(""));
        EXPECT_TRUE(tree.has_value()) << file << " is damaged";
        if (!tree || !(*tree)->getChild())
            return -1;
        const std::string name = (*tree)->getChild()->itemName().string();
        int number = -1;
        const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
        EXPECT_TRUE(error == std::errc() && end == name.data() + name.size())
            << file << " begins with “" << name << "”, which is no number";
        const bool whole = writeDocumentArchive(**tree) == writeDocumentArchive(*version(number));
        EXPECT_TRUE(whole) << file << " is no whole version";
        return whole ? number : -1;
    }
    /// Writes that version to `file` directly, as another program would.
    void write(const std::string& file, int number) {
        ASSERT_TRUE(files.writeFileAtomically(file, writeDocumentArchive(*version(number))));
    }

    /// Runs `work` in a child process and returns the identifier of that process. Its exit status is the
    /// result of `work`.
    static pid_t start(const std::function<int()>& work) {
        const pid_t child = ::fork();
        if (child == 0)
            ::_exit(work());
        return child;
    }
    /// Waits for the end of `child` and returns its status as `waitpid` reports it.
    static int statusOf(pid_t child) {
        int status = 0;
        ::waitpid(child, &status, 0);
        return status;
    }

    PosixFileStore files;
    std::string folder;
};

} // namespace tabulon
