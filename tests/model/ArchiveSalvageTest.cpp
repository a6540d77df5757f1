// Tests the recovery of bookmarks from damaged documents.
#include "model/ArchiveSalvage.h"

#include "model/ArchiveReader.h"
#include "model/ArchiveWriter.h"
#include "model/TreeWalk.h"
#include "platform/fake/FakeBaseServices.h"
#include "tests/ProcessorTime.h"
#include "tests/plist/TestPlist.h"

#include <gtest/gtest.h>

#include <random>

namespace tabulon {
namespace {

using namespace test;

class ArchiveSalvage : public testing::Test {
protected:
    // Returns the recovered tree. Fails the test if the recovery fails.
    Salvage salvage(const std::string& bytes) {
        Result<Salvage> left = salvageDocumentArchive(bytes, fakes.services());
        EXPECT_TRUE(left) << left.error().message;
        return left ? *left : Salvage{Bookmark::initEmpty()};
    }
    // Returns the names of the nodes below `root`. The children of a folder are in parentheses.
    static std::string outline(const Bookmark& root) {
        std::string text;
        walkBelow(
            root,
            [&](const Bookmark& node) {
                text += node.itemName().string() + (node.getChildren() ? "(" : " ");
                return true;
            },
            [&](const Bookmark&) { text += ")"; });
        return text;
    }
    static std::int64_t link(TestArchive& archive, const std::string& name) {
        return archive.addNode({{"Name", uid(archive.add(ascii(name)))}});
    }

    FakeBaseServices fakes;
};

TEST_F(ArchiveSalvage, aSoundDocumentIsLeftWhole) {
    TestArchive archive;
    const std::int64_t inner = archive.addFolder("f", {link(archive, "a"), link(archive, "b")});
    const std::string bytes = archive.document(archive.addFolder("x", {inner, link(archive, "c")}));
    const Salvage left = salvage(bytes);
    EXPECT_EQ(left.readable, 4u);
    EXPECT_EQ(left.records, 4u);
    EXPECT_EQ(outline(*left.master), "f(a b )c ");
    EXPECT_EQ(left.master->itemName(), Text("Master"));
    EXPECT_TRUE(left.master->showHier());
}

TEST_F(ArchiveSalvage, bookmarksThatNoFolderReachesComeIntoAFolderAtTheEnd) {
    TestArchive archive;
    link(archive, "lost");
    archive.addFolder("lost folder", {link(archive, "inside")});
    const std::string bytes = archive.document(archive.addFolder("Master", {link(archive, "kept")}));
    EXPECT_FALSE(readDocumentArchive(bytes));
    const Salvage left = salvage(bytes);
    EXPECT_EQ(outline(*left.master), "kept Recovered Bookmarks(lost lost folder(inside ))");
    EXPECT_EQ(left.readable, 4u);
    EXPECT_EQ(left.records, 4u);
}

TEST_F(ArchiveSalvage, aBookmarkThatIsLostCounts) {
    TestArchive archive;
    const std::int64_t broken = archive.add(raw("\x80"));
    const std::int64_t gone = 9999;
    const std::string bytes =
        archive.document(archive.addFolder("Master", {link(archive, "a"), broken, gone, link(archive, "b")}));
    const Salvage left = salvage(bytes);
    EXPECT_EQ(outline(*left.master), "a b ");
    EXPECT_EQ(left.readable, 2u);
    EXPECT_EQ(left.records, 4u);
}

TEST_F(ArchiveSalvage, whatOneRecordLacksIsMissingAloneAndItIsNotCountedAsRead) {
    TestArchive archive;
    const std::int64_t half =
        archive.addNode({{"Name", uid(12345)}, {"URL", uid(archive.add(ascii("http://a/")))}});
    const Salvage left = salvage(archive.document(archive.addFolder("Master", {half, link(archive, "b")})));
    EXPECT_EQ(outline(*left.master), " b ");
    EXPECT_EQ(left.master->getChild()->itemURL(), Text("http://a/"));
    EXPECT_EQ(left.readable, 1u);
    EXPECT_EQ(left.records, 2u);
}

TEST_F(ArchiveSalvage, damageToOneCodeDoesNotTakeTheOneOfTheRecordBefore) {
    TestArchive archive;
    const std::int64_t first = archive.addNode({{"Label", integer(3)}, {"Type", integer(4)}});
    const std::int64_t second = archive.addNode({{"Label", raw("\x70\x1F")}, {"Type", integer(4)}});
    const std::int64_t third = archive.addNode({{"Label", integer(3)}, {"Type", integer(4)}});
    const Salvage left = salvage(archive.document(archive.addFolder("Master", {first, second, third})));
    ASSERT_EQ(left.master->getChildren()->size(), 3u);
    EXPECT_EQ(left.master->getChildren()->at(1)->getLabel(), 0);
    EXPECT_EQ(left.master->getChildren()->at(1)->getType(), 4);
    EXPECT_EQ(left.master->getChildren()->at(2)->getLabel(), 3);
}

TEST_F(ArchiveSalvage, foldersInsideThemselvesAndNodesInTwoPlacesComeOnce) {
    TestArchive archive;
    const std::int64_t circle = archive.addNode({{"Folder", boolean(true)}, {"Children", uid(0)}});
    const std::int64_t twice = link(archive, "twice");
    archive.objects[static_cast<std::size_t>(circle)]->pairs[1].second =
        uid(archive.addArray({archive.addFolder("g", {circle})}));
    const Salvage left =
        salvage(archive.document(archive.addFolder("Master", {archive.addFolder("f", {twice}), twice})));
    EXPECT_EQ(outline(*left.master), "f()twice Recovered Bookmarks((g()))");
}

TEST_F(ArchiveSalvage, withoutItsClassesAndItsRootTheBookmarksAreKnownByTheirKeys) {
    Ref<Bookmark> master = Bookmark::initEmpty();
    master->makeParent();
    master->setItemName("Master");
    for (int i = 0; i < 20; ++i) {
        Ref<Bookmark> node = Bookmark::initEmpty();
        node->setItemName("link " + std::to_string(i));
        master->addChild(std::move(node));
    }
    std::string bytes = writeDocumentArchive(*master);
    for (const char* name : {"XBookmark", "$top", "root"})
        if (const std::size_t place = bytes.find(*name == 'X' ? name + 1 : name); place != std::string::npos)
            bytes[place + 1] = '#';
    EXPECT_FALSE(readDocumentArchive(bytes));
    const Salvage left = salvage(bytes);
    EXPECT_EQ(left.records, 20u);
    ASSERT_EQ(left.master->getChildren()->size(), 20u);
    EXPECT_EQ(left.master->getLast()->itemName(), Text("link 19"));
}

TEST_F(ArchiveSalvage, oneFlippedBitLosesAlmostNothing) {
    Ref<Bookmark> master = Bookmark::initEmpty();
    master->makeParent();
    master->setItemName("Master");
    for (int f = 0; f < 2; ++f) {
        Ref<Bookmark> folder = Bookmark::initEmpty();
        folder->makeParent();
        for (int i = 0; i < 155; ++i)
            folder->addChild(Bookmark::initEmpty());
        master->addChild(std::move(folder));
    }
    const std::string whole = writeDocumentArchive(*master);
    std::mt19937 random(3);
    int refused = 0;
    for (int i = 0; i < 2000; ++i) {
        // The flipped bit is after the keys and before the tables, because neither is stored twice.
        std::string bytes = whole;
        const std::size_t place = 400 + random() % (whole.size() * 6 / 10);
        bytes[place] = static_cast<char>(bytes[place] ^ 1 << random() % 8);
        if (readDocumentArchive(bytes))
            continue;
        ++refused;
        const Salvage left = salvage(bytes);
        ASSERT_GE(left.records, 311u) << place;
        ASSERT_LE(left.readable, left.records);
    }
    EXPECT_GT(refused, 100);
}

TEST_F(ArchiveSalvage, whatHoldsNoBookmarksFailsWithASentence) {
    TestArchive archive;
    for (const std::string& bytes :
         {std::string(), std::string("text"), std::string("bplist00"), Encoder({}).encode(dictionary({})),
          Encoder({}).encode(ascii("x")), archive.document(archive.addFolder("Master", {}))}) {
        const Result<Salvage> left = salvageDocumentArchive(bytes, fakes.services());
        ASSERT_FALSE(left);
        EXPECT_TRUE(left.error().message.ends_with('.'));
    }
}

TEST_F(ArchiveSalvage, deepAndLargeFilesTakeLinearTime) {
    Ref<Bookmark> master = Bookmark::initEmpty();
    master->makeParent();
    Bookmark* folder = master.get();
    for (int i = 0; i < 200000; ++i) {
        Ref<Bookmark> child = Bookmark::initEmpty();
        child->makeParent();
        folder->addChild(child);
        folder = child.get();
    }
    std::string bytes = writeDocumentArchive(*master);
    const ProcessorTime time;
    EXPECT_EQ(salvage(bytes).records, 200000u);
    EXPECT_LT(time.seconds(), 20);
}

} // namespace
} // namespace tabulon
