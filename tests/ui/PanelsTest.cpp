// The panels for files: the folders in which they begin.
#include "platform/linux/QtPanels.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>

namespace tabulon {
namespace {

class PanelsTest : public testing::Test {
protected:
    void SetUp() override {
        for (const char* name : {"imported", "saved"})
            ASSERT_TRUE(QDir(folder.path()).mkdir(name));
        QFile file(pathOf("imported/Bookmarks"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    ~PanelsTest() override { delete dialog(); }

    static QFileDialog* dialog() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* panel = qobject_cast<QFileDialog*>(widget))
                return panel;
        return nullptr;
    }
    QString pathOf(const char* name) const { return folder.filePath(name); }
    void beginOpen(const std::string& directory = {}) {
        panels.beginOpenPanel({.message = "m", .prompt = "Open", .directory = directory},
                              [](const std::vector<std::string>&) {});
    }
    void beginSave(const std::string& directory = {}) {
        panels.beginSavePanel({.directory = directory, .proposedName = "Links", .kind = {"Links", {"tbln"}}},
                              [](const std::optional<std::string>&) {});
    }
    // Returns the folder that the panel shows.
    static QString folderThenCancel() {
        const QString shown = dialog()->directory().absolutePath();
        end("reject");
        return shown;
    }
    static void end(const char* how) {
        QMetaObject::invokeMethod(dialog(), how);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        EXPECT_EQ(dialog(), nullptr);
    }
    void importFile() {
        beginOpen(pathOf("imported").toStdString());
        dialog()->selectFile(pathOf("imported/Bookmarks"));
        end("accept");
    }
    void saveFile() {
        beginSave(pathOf("saved").toStdString());
        end("accept");
    }

    QTemporaryDir folder;
    QtPanels panels{[](const DocumentIdentity*) { return nullptr; }};
};

TEST_F(PanelsTest, theSavePanelRemembersItsFolderApartFromThatOfImports) {
    beginSave();
    const QString before = folderThenCancel();
    importFile();
    beginSave();
    EXPECT_EQ(folderThenCancel(), before) << "nobody saves among the files of a browser";
    beginOpen();
    EXPECT_EQ(folderThenCancel(), pathOf("imported"));
    saveFile();
    beginOpen();
    EXPECT_EQ(folderThenCancel(), pathOf("imported"));
    beginSave();
    EXPECT_EQ(folderThenCancel(), pathOf("saved"));
}

TEST_F(PanelsTest, aKindWithoutExtensionsAddsNoneToTheName) {
    std::optional<std::string> chosen;
    panels.beginSavePanel({.prompt = "Save",
                           .directory = folder.path().toStdString(),
                           .proposedName = "Any name",
                           .kind = {.label = "Files", .extensions = {}}},
                          [&](const std::optional<std::string>& path) { chosen = path; });
    end("accept");
    EXPECT_EQ(chosen, folder.path().toStdString() + "/Any name");
}

} // namespace
} // namespace tabulon
