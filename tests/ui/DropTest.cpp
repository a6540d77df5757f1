// Files dropped on a document's window: the drops that are accepted, and their actions.
#include "app/AppDelegate.h"
#include "model/ArchiveWriter.h"
#include "platform/fake/FakePlatform.h"
#include "platform/fake/FakeSingleInstance.h"
#include "tests/app/FakeProgramHost.h"
#include "ui/QtWindows.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

namespace tabulon {
namespace {

class DropTest : public testing::Test, protected FakePlatform {
protected:
    void SetUp() override {
        app.applicationDidFinishLaunching({});
        Document& untitled = *app.documentController().currentDocument();
        untitled.updateChangeCount(ChangeKind::Done); // so that it is not closed
        window = windows.windowFor(&untitled);
        files.files["/home/a.tbln"] = writeDocumentArchive(untitled.getMaster());
        files.files["/home/\xE9.tbln"] = files.files["/home/a.tbln"];
    }

    // Returns the action that the source of a drag over the window receives after its drop.
    Qt::DropAction drop(const char* uris, Qt::DropActions possible, Qt::DropAction proposed) {
        QMimeData data;
        data.setData("text/uri-list", uris);
        return drop(data, possible, proposed);
    }
    Qt::DropAction drop(const QMimeData& data, Qt::DropActions possible, Qt::DropAction proposed) {
        QDragEnterEvent enter(QPoint(20, 20), possible, &data, Qt::LeftButton, Qt::NoModifier);
        enter.setDropAction(proposed);
        QApplication::sendEvent(window, &enter);
        if (!enter.isAccepted())
            return Qt::IgnoreAction;
        QDragMoveEvent move(QPoint(30, 30), possible, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window, &move);
        EXPECT_TRUE(move.isAccepted());
        EXPECT_EQ(move.dropAction(), enter.dropAction());
        QDropEvent event(QPointF(30, 30), possible, &data, Qt::LeftButton, Qt::NoModifier);
        event.setDropAction(proposed);
        QApplication::sendEvent(window, &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    std::vector<std::string> openFiles() {
        QApplication::processEvents();
        timers.advance(0);
        std::vector<std::string> names;
        for (const Document* document : app.documentController().documents())
            names.push_back(document->fileName());
        return names;
    }

    const Platform services = platform();
    QtWindows windows{app, services};
    FakeSingleInstance instance;
    FakeProgramHost host;
    AppDelegate app{services, windows, instance, host, "1"};
    QWidget* window = nullptr;
};

using Names = std::vector<std::string>;

TEST_F(DropTest, filesOpenWhenTheDropIsOver) {
    EXPECT_EQ(drop("file:///home/a.tbln\r\nfile:///home/%E9.tbln\r\n", Qt::CopyAction, Qt::CopyAction),
              Qt::CopyAction);
    EXPECT_EQ(app.documentController().documents().size(), 1u) << "an alert must not hold up the source";
    EXPECT_EQ(openFiles(), (Names{"", "/home/a.tbln", "/home/\xE9.tbln"}));
}

TEST_F(DropTest, filesOfferedToBeMovedAreCopiedSoThatNobodyDeletesThem) {
    EXPECT_EQ(drop("file:///home/a.tbln", Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::MoveAction),
              Qt::CopyAction);
    EXPECT_EQ(drop("file:///home/a.tbln", Qt::MoveAction | Qt::LinkAction, Qt::MoveAction), Qt::LinkAction);
    EXPECT_EQ(drop("file:///home/a.tbln", Qt::MoveAction, Qt::MoveAction), Qt::IgnoreAction);
}

TEST_F(DropTest, linksGoIntoAnEmptyDocument) {
    const ViewController& controller =
        *app.documentController().getViewController(*app.documentController().currentDocument());
    EXPECT_EQ(drop("http://example.org/\r\n", Qt::CopyAction | Qt::MoveAction, Qt::MoveAction),
              Qt::CopyAction)
        << "nobody is to delete what was taken";
    ASSERT_EQ(controller.outline().numberOfRows(), 1u);
    EXPECT_EQ(controller.outline().itemAtRow(0).itemURL(), Text("http://example.org/"));
    EXPECT_EQ(openFiles(), Names{""});
}

TEST_F(DropTest, besideRowsLinksAreNotTaken) {
    drop("http://example.org/\r\n", Qt::CopyAction, Qt::CopyAction);
    EXPECT_EQ(drop("http://example.org/\r\n", Qt::CopyAction, Qt::CopyAction), Qt::IgnoreAction);
    EXPECT_EQ(drop("", Qt::CopyAction, Qt::CopyAction), Qt::IgnoreAction);
    EXPECT_EQ(openFiles(), Names{""});
}

TEST_F(DropTest, filesThatCannotBeOpenedBecomeBookmarksOfAnEmptyDocument) {
    files.files["/home/picture.png"] = "\x89PNG\r\n";
    files.files["/home/a.url"] = "[InternetShortcut]\nURL=https://in/\n";
    files.files["/home/a.webloc"] =
        "<?xml version=\"1.0\"?><plist><dict><key>URL</key><string>https://list/</string></dict></plist>";
    const ViewController& controller =
        *app.documentController().getViewController(*app.documentController().currentDocument());
    EXPECT_EQ(drop("file:///home/picture.png\r\nfile:///home/a.url\r\nfile:///home/a.tbln\r\nfile:///home/"
                   "a.webloc\r\n",
                   Qt::CopyAction, Qt::CopyAction),
              Qt::CopyAction);
    EXPECT_EQ(openFiles(), (Names{"", "/home/a.tbln"}));
    EXPECT_TRUE(alerts.shown.empty());
    ASSERT_EQ(controller.outline().numberOfRows(), 3u);
    EXPECT_EQ(controller.outline().itemAtRow(0).itemURL(), Text("file:///home/picture.png"));
    EXPECT_EQ(controller.outline().itemAtRow(1).itemURL(), Text("https://in/"));
    EXPECT_EQ(controller.outline().itemAtRow(1).itemName(), Text("a"));
    EXPECT_EQ(controller.outline().itemAtRow(2).itemURL(), Text("https://list/"));
}

TEST_F(DropTest, aListOfLinksKeepsTheFilesAmongThem) {
    const ViewController& controller =
        *app.documentController().getViewController(*app.documentController().currentDocument());
    EXPECT_EQ(drop("https://a/\r\nfile:///home/a.tbln\r\nhttps://b/\r\n", Qt::CopyAction, Qt::CopyAction),
              Qt::CopyAction);
    EXPECT_EQ(openFiles(), Names{""});
    ASSERT_EQ(controller.outline().numberOfRows(), 3u);
    EXPECT_EQ(controller.outline().itemAtRow(0).itemURL(), Text("https://a/"));
    EXPECT_EQ(controller.outline().itemAtRow(1).itemURL(), Text("file:///home/a.tbln"));
    EXPECT_EQ(controller.outline().itemAtRow(2).itemURL(), Text("https://b/"));
    EXPECT_EQ(drop("https://a/\r\nfile:///home/a.tbln\r\n", Qt::CopyAction, Qt::CopyAction), Qt::IgnoreAction)
        << "beside rows links are not taken";
    EXPECT_EQ(openFiles(), Names{""});
}

TEST_F(DropTest, aBookmarkOfAFileStaysABookmark) {
    const ViewController& controller =
        *app.documentController().getViewController(*app.documentController().currentDocument());
    QMimeData data;
    data.setData("text/uri-list", "file:///home/a.tbln\r\n");
    data.setData("application/x-xbel",
                 "<?xml version=\"1.0\"?><xbel version=\"1.0\"><folder><title>F</title>"
                 "<bookmark href=\"file:///home/a.tbln\"><title>Own name</title></bookmark></folder></xbel>");
    EXPECT_EQ(drop(data, Qt::CopyAction, Qt::CopyAction), Qt::CopyAction);
    EXPECT_EQ(openFiles(), Names{""});
    ASSERT_EQ(controller.outline().numberOfRows(), 1u);
    const Bookmark& folder = controller.outline().itemAtRow(0);
    EXPECT_EQ(folder.itemName(), Text("F"));
    ASSERT_TRUE(folder.hasChildren());
    EXPECT_EQ(folder.getChild()->itemName(), Text("Own name"));
    EXPECT_EQ(folder.getChild()->itemURL(), Text("file:///home/a.tbln"));
}

TEST_F(DropTest, everyFormOfBookmarksIsNoDropOfFiles) {
    for (const char* type : {"application/x-tabulon-items", "application/x-xbel", "text/x-moz-place",
                             "text/x-moz-place-container", "chromium/x-bookmark-entries"}) {
        QMimeData data;
        data.setData("text/uri-list", "file:///home/a.tbln\r\n");
        data.setData(type, "?");
        drop(data, Qt::CopyAction, Qt::CopyAction);
        EXPECT_EQ(openFiles(), Names{""}) << type;
    }
}

TEST_F(DropTest, aDragThatIsOverIsNotAskedAgain) {
    const ViewController& controller =
        *app.documentController().getViewController(*app.documentController().currentDocument());
    files.files["/home/picture.png"] = "\x89PNG\r\n";
    EXPECT_EQ(drop("file:///home/picture.png\r\n", Qt::CopyAction, Qt::CopyAction), Qt::CopyAction);
    pasteboard.offered.set("text/x-moz-url", std::string("h\0:\0x\0", 6)); // the next drag has begun
    EXPECT_EQ(openFiles(), Names{""});
    ASSERT_EQ(controller.outline().numberOfRows(), 1u);
    EXPECT_EQ(controller.outline().itemAtRow(0).itemURL(), Text("file:///home/picture.png"));
}

TEST_F(DropTest, aDocumentThatCannotBeReadIsReported) {
    files.files["/home/damaged.tbln"] = files.files["/home/a.tbln"].substr(0, 60);
    files.unreadable = "/home/hidden";
    files.files["/home/hidden.tbln"] = files.files["/home/a.tbln"];
    const ViewController& controller =
        *app.documentController().getViewController(*app.documentController().currentDocument());
    drop("file:///home/hidden.tbln\r\nfile:///home/gone.tbln\r\nfile:///home/damaged.tbln\r\n",
         Qt::CopyAction, Qt::CopyAction);
    EXPECT_EQ(openFiles(), (Names{""}));
    EXPECT_EQ(controller.outline().numberOfRows(), 0u)
        << "no bookmark of a document that may still be mended";
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "3 files could not be opened");
}

TEST_F(DropTest, anOpenFileComesToTheFrontAndAFolderIsRefusedBesideRows) {
    files.folders.insert("/home/folder");
    drop("http://example.org/\r\n", Qt::CopyAction, Qt::CopyAction);
    drop("file:///home/a.tbln", Qt::CopyAction, Qt::CopyAction);
    drop("file:///home/a.tbln\r\nfile:///home/folder", Qt::CopyAction, Qt::CopyAction);
    EXPECT_EQ(openFiles(), (Names{"", "/home/a.tbln"}));
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "“folder” could not be opened");
}

} // namespace
} // namespace tabulon
