// The sheet of a document's versions in its window.
#include "ui/versions/VersionsSheet.h"

#include "app/AppDelegate.h"
#include "model/ArchiveWriter.h"
#include "platform/fake/FakePlatform.h"
#include "platform/fake/FakeSingleInstance.h"
#include "tests/app/FakeProgramHost.h"
#include "ui/QtWindows.h"

#include <gtest/gtest.h>

#include <QPointer>
#include <QWidget>

namespace tabulon {
namespace {

class VersionsSheetTest : public testing::Test, protected FakePlatform {
protected:
    void SetUp() override {
        const Document empty(base.services());
        files.files["/home/a.tbln"] = writeDocumentArchive(empty.getMaster());
        app.fileOpening().openFile("/home/a.tbln");
    }

    const Platform services = platform();
    QtWindows windows{app, services};
    FakeSingleInstance instance;
    FakeProgramHost host;
    AppDelegate app{services, windows, instance, host, "1"};
};

TEST_F(VersionsSheetTest, itGoesWithItsDocumentBeforeItCountsAnyFurther) {
    DocumentController& documents = app.documentController();
    Document& document = *documents.currentDocument();
    document.getMaster().addChild(Bookmark::init(base.now()));
    documents.saveDocument(document, [](bool) {});
    documents.browseVersions(document);
    const QPointer<VersionsSheet> sheet = windows.windowFor(&document)->findChild<VersionsSheet*>();
    ASSERT_TRUE(sheet);
    EXPECT_GT(timers.running(), 0u);
    documents.openUntitledDocumentAndDisplay(); // whose window stays usable
    app.terminate();
    EXPECT_TRUE(documents.documents().empty());
    EXPECT_FALSE(sheet);
    EXPECT_EQ(timers.running(), 0u);
}

} // namespace
} // namespace tabulon
