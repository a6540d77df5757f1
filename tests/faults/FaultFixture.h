// The application over the real file system, in a folder of its own, and in processes that can be killed.
#pragma once

#include "app/AppDelegate.h"
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

#include <csignal>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace tabulon {

class MemoryWindows : public DocumentWindowMaker {
public:
    std::unique_ptr<DocumentWindow> makeWindow(ViewController& controller) override {
        return std::make_unique<MemoryWindow>(controller);
    }
    void presentVersions(std::shared_ptr<VersionsController> /*controller*/) override {}
};

/// A run of the program: real files, alerts and panels that answer what the test laid in.
class ProgramRun {
public:
    // The state folder is named before the application is made, which comes last.
    explicit ProgramRun(const std::string& folder)
        : recovery((fakes.folders.state = folder + "/state") + "/unsaved") {
        fakes.base.defaults.setBoolForKey("MakeBackups", true);
        fakes.folders.kept["BackupFolderBookmark"] = folder + "/backups";
    }

    Document& open(const std::string& path) {
        EXPECT_TRUE(app.fileOpening().openFile(path));
        return *app.documentController().currentDocument();
    }
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
                             fakes.keyboard, fakes.pasteboard, fakes.workspace, fakes.state},
                    windows, instance, host, "1"};
};

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

    /// A tree whose nodes all say which version it is, so that a mixture of two versions shows.
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
    /// Makes the document that version, as an edit would.
    static void change(Document& document, int number) {
        document.setMaster(version(number));
        document.updateUI();
        document.updateChangeCount(ChangeKind::Done);
    }
    /// The version that the file holds whole; -1 with a failed test when it is anything else.
    int versionIn(const std::string& file) { return versionIn(file, files.readFile(file)); }
    /// The same for bytes that were read from the file.
    static int versionIn(const std::string& file, const Result<std::string>& bytes) {
        EXPECT_TRUE(bytes.has_value()) << file;
        const auto tree = readDocumentArchive(bytes.value_or(""));
        EXPECT_TRUE(tree.has_value()) << file << " is damaged";
        if (!tree || !(*tree)->getChild())
            return -1;
        const int number = std::stoi((*tree)->getChild()->itemName().string());
        const bool whole = writeDocumentArchive(**tree) == writeDocumentArchive(*version(number));
        EXPECT_TRUE(whole) << file << " is no whole version";
        return whole ? number : -1;
    }
    void write(const std::string& file, int number) {
        ASSERT_TRUE(files.writeFileAtomically(file, writeDocumentArchive(*version(number))));
    }

    /// Runs `work` in a process of its own and gives its identifier; the process ends with what work returns.
    static pid_t start(const std::function<int()>& work) {
        const pid_t child = ::fork();
        if (child == 0)
            ::_exit(work());
        return child;
    }
    static int statusOf(pid_t child) {
        int status = 0;
        ::waitpid(child, &status, 0);
        return status;
    }

    PosixFileStore files;
    std::string folder;
};

} // namespace tabulon
