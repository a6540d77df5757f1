// Tests the document: its tree, change count, reading and writing.
#include "model/Document.h"

#include "model/ArchiveWriter.h"
#include "model/ClassicReader.h"
#include "platform/fake/FakeBaseServices.h"
#include "tests/plist/TestPlist.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

class Presenter : public DocumentPresenter {
public:
    void setMaster(Bookmark& master) override { shown = &master; }
    void documentStateChanged() override { ++stateChanges; }
    Bookmark* shown = nullptr;
    int stateChanges = 0;
};

class DocumentTest : public testing::Test {
protected:
    FakeBaseServices fake;
    Document document{fake.services()};
};

TEST_F(DocumentTest, newDocumentHasAnEmptyExpandedMaster) {
    const Bookmark& master = document.getMaster();
    EXPECT_EQ(master.itemName(), Text("Master"));
    EXPECT_TRUE(master.isFolder());
    EXPECT_TRUE(master.showHier());
    EXPECT_FALSE(master.hasChildren());
    EXPECT_EQ(master.getDocument(), &document);
    EXPECT_FALSE(document.isDocumentEdited());
    EXPECT_EQ(document.displayName(), "Untitled");
}

TEST_F(DocumentTest, readingNamesTheRootMasterExpandsItAndSetsDocuments) {
    Ref<Bookmark> root = Bookmark::initEmpty();
    root->setItemName("Something else");
    root->makeParent();
    Ref<Bookmark> folder = Bookmark::initEmpty();
    folder->makeParent();
    folder->addChild(Bookmark::initEmpty());
    root->addChild(folder);
    ASSERT_TRUE(document.readFromDataOfType(writeDocumentArchive(*root), kDocumentType));
    const Bookmark& master = document.getMaster();
    EXPECT_EQ(master.itemName(), Text("Master"));
    EXPECT_TRUE(master.showHier());
    EXPECT_EQ(master.getChild()->getChild()->getDocument(), &document);
    EXPECT_EQ(master.getChild()->getChild()->getParent(), master.getChild());
}

TEST_F(DocumentTest, failedReadKeepsTheTree) {
    document.getMaster().addChild(Bookmark::init(fake.now()));
    const Bookmark* before = &document.getMaster();
    EXPECT_FALSE(document.readFromDataOfType("nonsense", kDocumentType));
    EXPECT_FALSE(document.readFromDataOfType("", kDocumentType));
    EXPECT_EQ(&document.getMaster(), before);
    EXPECT_TRUE(document.getMaster().hasChildren());
}

TEST_F(DocumentTest, newerVersionIsRefusedAsCancelled) {
    test::TestArchive archive;
    const auto version = archive.addVersion(test::integer(2), test::integer(0x54626C6E));
    const auto done = document.readFromDataOfType(
        archive.bytes(archive.addArray({version, archive.addFolder("Master", {})})), kDocumentType);
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().domain, ErrorDomain::Cocoa);
    EXPECT_EQ(done.error().code, kUserCancelledError);
}

TEST_F(DocumentTest, writingAndReadingKeepsTheDates) {
    document.getMaster().setItemDateAdded(Date::fromReferenceSeconds(0.1));
    Document other(fake.services());
    ASSERT_TRUE(other.readFromDataOfType(document.dataOfType(kDocumentType), kDocumentType));
    EXPECT_EQ(other.getMaster().itemDateAdded(), Date::fromReferenceSeconds(0.1));
}

TEST_F(DocumentTest, classicFilesAreRecognisedByTheirFirstTwoBytes) {
    EXPECT_TRUE(classicFile(std::string("\0\3", 2) + std::string(18, 'x')));
    EXPECT_TRUE(classicFile(std::string(20, '\0')));
    EXPECT_FALSE(classicFile(std::string("\0\4", 2) + std::string(18, 'x')));
    EXPECT_FALSE(classicFile("bplist00"));
    EXPECT_FALSE(classicFile(""));
    EXPECT_FALSE(classicFile(std::string("\0", 1)));
}

TEST_F(DocumentTest, shortDataThatBeginsBelowFourIsAClassicFileThatCannotBeRead) {
    for (std::size_t size = 2; size < 20; ++size) {
        const auto done = document.readFromDataOfType(std::string(size, '\0'), kDocumentType);
        ASSERT_FALSE(done);
        EXPECT_EQ(done.error().domain, ErrorDomain::OSStatus);
        EXPECT_EQ(done.error().code, 256);
    }
}

TEST_F(DocumentTest, changesAreCounted) {
    Presenter presenter;
    document.setPresenter(&presenter);
    document.updateChangeCount(ChangeKind::Done);
    document.updateChangeCount(ChangeKind::Done);
    EXPECT_EQ(document.changeCount(), 2);
    EXPECT_EQ(presenter.stateChanges, 1);
    document.updateChangeCount(ChangeKind::Undone);
    EXPECT_TRUE(document.isDocumentEdited());
    document.updateChangeCount(ChangeKind::Cleared);
    EXPECT_FALSE(document.isDocumentEdited());
    EXPECT_EQ(presenter.stateChanges, 2);
}

TEST_F(DocumentTest, namesComeFromTheFileUnlessSet) {
    document.setDisplayName("Imported");
    EXPECT_EQ(document.displayName(), "Imported");
    document.setFileName("/home/u/My Links.old.tbln");
    EXPECT_EQ(document.displayName(), "My Links.old");
}

TEST_F(DocumentTest, updateUIHandsTheTreeOver) {
    Presenter presenter;
    document.updateUI();
    document.setPresenter(&presenter);
    document.updateUI();
    EXPECT_EQ(presenter.shown, &document.getMaster());
}

TEST_F(DocumentTest, newMasterForgetsTheDropFolder) {
    Ref<Bookmark> basket = Bookmark::init(fake.now());
    basket->makeParent();
    document.getMaster().addChild(basket);
    document.setDropFolder(basket.get());
    EXPECT_EQ(document.getDropFolder(), basket.get());
    document.setMaster(Bookmark::init(fake.now()));
    EXPECT_EQ(document.getDropFolder(), nullptr);
}

TEST_F(DocumentTest, masterIsAFolderWhateverTheFileSays) {
    for (const bool hasList : {false, true}) {
        Ref<Bookmark> root = Bookmark::initEmpty();
        if (hasList)
            root->addChild(Bookmark::initEmpty());
        EXPECT_FALSE(root->isFolder());
        ASSERT_TRUE(document.readFromDataOfType(writeDocumentArchive(*root), kDocumentType));
        const Bookmark& master = document.getMaster();
        EXPECT_TRUE(master.isFolder());
        ASSERT_TRUE(master.getChildren());
        EXPECT_EQ(master.getChildren()->size(), hasList ? 1u : 0u);
        EXPECT_EQ(master.itemIcon(), ItemIcon::Folder);
    }
}

} // namespace
} // namespace tabulon
