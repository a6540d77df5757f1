// The choices that the program offers for a document that it refuses to open.
#include "app/DamagedDocument.h"

#include "model/TreeWalk.h"
#include "tests/app/AppFixture.h"

#include <gmock/gmock.h>

namespace tabulon {
namespace {

using testing::HasSubstr;

class DamagedDocumentTest : public AppTest {
protected:
    // Returns a document of links with one reference to a missing object.
    std::string damagedBytes(int links = 40) {
        const Ref<Bookmark> master = Bookmark::init(base.now());
        master->setItemName("Master");
        master->makeParent();
        for (int i = 0; i < links; ++i) {
            const Ref<Bookmark> link = Bookmark::init(base.now());
            link->setItemName("link " + std::to_string(i));
            link->setItemURL("https://example.org/" + std::to_string(i));
            master->addChild(link);
        }
        std::string bytes = writeDocumentArchive(*master);
        const std::size_t name = bytes.find("link " + std::to_string(links / 2));
        EXPECT_NE(name, std::string::npos);
        bytes[name - 1] = '\x0f'; // no object has this marker
        return bytes;
    }
    static std::size_t linksIn(const Document& document) {
        std::size_t links = 0;
        walkBelow(document.getMaster(), [&](const Bookmark& node) {
            links += node.isFolder() ? 0 : 1;
            return true;
        });
        return links;
    }
};

TEST_F(DamagedDocumentTest, whatIsLeftIsOfferedAndOpensUntitled) {
    const std::string damaged = damagedBytes();
    files.files[kPath] = damaged;
    alerts.answer("Open What Is Left");
    app.fileOpening().openFile(kPath);
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_THAT(alerts.shown[0].informative, HasSubstr("39 of 40 bookmarks could be read."));
    ASSERT_TRUE(onlyDocument());
    EXPECT_TRUE(onlyDocument()->fileName().empty());
    EXPECT_TRUE(onlyDocument()->isDocumentEdited());
    EXPECT_EQ(onlyDocument()->displayName(), "Links");
    EXPECT_GE(linksIn(*onlyDocument()), 39u);
    EXPECT_EQ(files.files[kPath], damaged) << "the file stays as it is";
}

TEST_F(DamagedDocumentTest, ofOneBookmarkTheSentenceIsInTheSingular) {
    files.files[kPath] = damagedBytes(1);
    alerts.answer("Cancel");
    app.fileOpening().openFile(kPath);
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_THAT(alerts.shown[0].informative, HasSubstr(" of 1 bookmark could be read. It opens as "));
}

TEST_F(DamagedDocumentTest, whoDeclinesGetsNothing) {
    files.files[kPath] = damagedBytes();
    alerts.answer("Cancel");
    app.fileOpening().openFile(kPath);
    EXPECT_TRUE(documents().documents().empty());
}

TEST_F(DamagedDocumentTest, aFileInWhichNothingIsLeftIsOnlyRefused) {
    files.files[kPath] = damagedBytes().substr(0, 60);
    app.fileOpening().openFile(kPath);
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].buttons.size(), 1u);
    EXPECT_TRUE(documents().documents().empty());
}

TEST_F(DamagedDocumentTest, whatIsLeftOfADamagedCopyOfACrashIsOffered) {
    const std::string copy = "/state/unsaved/run-0/1 My links.tbln";
    const std::string damaged = damagedBytes();
    files.files[copy] = damaged;
    recovery.abandoned = {"/state/unsaved/run-0"};
    alerts.answer("Open What Is Left");
    app.applicationDidFinishLaunching({});
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "The unsaved changes of “My links” could not be recovered");
    EXPECT_THAT(alerts.shown[0].informative, HasSubstr(" It is kept as “" + copy + ".damaged”. "));
    EXPECT_THAT(alerts.shown[0].informative, HasSubstr("39 of 40 bookmarks could be read."));
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(onlyDocument()->displayName(), "My links");
    EXPECT_TRUE(onlyDocument()->isDocumentEdited());
    EXPECT_GE(linksIn(*onlyDocument()), 39u);
    EXPECT_EQ(files.files[copy + ".damaged"], damaged) << "the copy stays as it is";
}

TEST_F(DamagedDocumentTest, ofSeveralFilesOneAlertOpensWhatIsLeftOfAll) {
    std::vector<std::string> paths;
    paths.reserve(10);
    for (int i = 0; i < 10; ++i) // more than the alert lists
        paths.push_back("/home/Links " + std::to_string(i) + ".tbln");
    for (const std::string& path : paths)
        files.files[path] = damagedBytes();
    files.files[paths[3]] = damagedBytes().substr(0, 60);
    alerts.answer("Open What Is Left");
    openFiles(paths);
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "10 files could not be opened");
    EXPECT_THAT(alerts.shown[0].informative, HasSubstr("\n9 of them can be read in part."));
    const std::vector<Document*> opened = documents().documents();
    ASSERT_EQ(opened.size(), 9u);
    for (const Document* document : opened) {
        EXPECT_GE(linksIn(*document), 39u);
        EXPECT_TRUE(document->fileName().empty());
    }
    EXPECT_EQ(opened[8]->displayName(), "Links 9");
}

TEST_F(DamagedDocumentTest, ofSeveralFilesOneMayHaveSomethingLeft) {
    files.files[kPath] = damagedBytes();
    files.files["/home/Other.tbln"] = damagedBytes().substr(0, 60);
    alerts.answer("Cancel");
    openFiles({kPath, "/home/Other.tbln"});
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_THAT(alerts.shown[0].informative,
                HasSubstr("1 of them can be read in part. The bookmarks that can be read open as an "));
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(onlyDocument()->displayName(), "Untitled") << "the one of every start without a file";
    EXPECT_FALSE(onlyDocument()->isDocumentEdited());
}

TEST_F(DamagedDocumentTest, ofSeveralFilesInWhichNothingIsLeftOneAlertOffersNothing) {
    files.files[kPath] = damagedBytes().substr(0, 60);
    files.files["/home/Other.tbln"] = damagedBytes().substr(0, 60);
    openFiles({kPath, "/home/Other.tbln"});
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].buttons.size(), 1u);
}

} // namespace
} // namespace tabulon
