// Tests damage to single bits, bytes and sectors of a sound document: reading fails, or every node is read.
// Files that are refused for other reasons are in ArchiveDamageTest.cpp.
#include "model/ArchiveReader.h"
#include "model/ArchiveWriter.h"
#include "model/TreeWalk.h"
#include "tests/model/TreeShape.h"
#include "tests/plist/TestPlist.h"

#include <gtest/gtest.h>

#include <random>

namespace tabulon {
namespace {

using namespace test;

// Returns the texts and the added date of all nodes. A date is a text in the result.
std::vector<Text> fieldsOf(const Bookmark& root) {
    std::vector<Text> texts;
    const auto add = [&](const Bookmark& node) {
        for (const Text* text : {&node.itemName(), &node.itemURL(), &node.itemNote(), &node.itemTags()})
            texts.push_back(*text);
        texts.push_back(node.itemDateAdded().isNull()
                            ? Text()
                            : Text(std::to_string(node.itemDateAdded().referenceSeconds())));
        return true;
    };
    add(root);
    walkBelow(root, add);
    return texts;
}

// Returns a tree of `folders` folders with `links` links each. The links have names, URLs and added dates,
// and every second one a note.
Ref<Bookmark> tree(int folders, int links) {
    Ref<Bookmark> master = Bookmark::initEmpty();
    master->makeParent();
    master->setItemName("Master");
    for (int f = 0; f < folders; ++f) {
        Ref<Bookmark> folder = Bookmark::initEmpty();
        folder->makeParent();
        folder->setItemName("folder " + std::to_string(f));
        for (int l = 0; l < links; ++l) {
            Ref<Bookmark> link = Bookmark::initEmpty();
            link->setItemName("link " + std::to_string(f) + ' ' + std::to_string(l));
            link->setItemURL("https://example.org/" + std::to_string(f * links + l));
            link->setItemNote(l % 2 == 0 ? Text("note é " + std::to_string(100 * f + l)) : Text());
            link->setItemDateAdded(Date::fromReferenceSeconds(1000 * f + l));
            folder->addChild(std::move(link));
        }
        master->addChild(std::move(folder));
    }
    return master;
}

class ArchiveFlip : public testing::Test {
protected:
    // Expects that reading `bytes` fails with a message, or that the tree has the shape of the original and
    // at most `mostChanged` fields differ. Counts both results.
    void check(const std::string& bytes, const std::string& what) {
        const Result<Ref<Bookmark>> master = readDocumentArchive(bytes);
        if (!master) {
            ASSERT_FALSE(master.error().message.empty()) << what;
            ASSERT_TRUE(master.error().message.ends_with('.')) << what;
            ++refused;
            return;
        }
        ++read;
        ASSERT_EQ(shapeOf(**master), shape) << what;
        const std::vector<Text> fields = fieldsOf(**master);
        std::size_t changed = 0;
        for (std::size_t i = 0; i < fields.size(); ++i)
            changed += fields[i] == wholeFields[i] ? 0 : 1;
        ASSERT_LE(changed, mostChanged) << what;
    }

    void begin(const std::string& bytes) {
        const Result<Ref<Bookmark>> master = readDocumentArchive(bytes);
        ASSERT_TRUE(master) << master.error().message;
        shape = shapeOf(**master);
        wholeFields = fieldsOf(**master);
    }

    void flipEveryBit(const std::string& whole) {
        begin(whole);
        for (std::size_t bit = 0; bit < 8 * whole.size(); ++bit) {
            std::string bytes = whole;
            bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ 1 << bit % 8);
            check(bytes, "bit " + std::to_string(bit % 8) + " of byte " + std::to_string(bit / 8));
            if (HasFatalFailure())
                return;
        }
        EXPECT_GT(read, 0u);
        EXPECT_GT(refused, 0u);
    }

    std::vector<std::size_t> shape;
    std::vector<Text> wholeFields;
    // The largest number of fields that may differ after damage. Two, where a key of one record has become
    // another.
    std::size_t mostChanged = 2;
    std::size_t read = 0;
    std::size_t refused = 0;
};

TEST_F(ArchiveFlip, everyBitOfASmallDocument) {
    flipEveryBit(writeDocumentArchive(*tree(2, 3)));
}

// All links share one object for each value, so that damage to it would change all of them. A flipped bit may
// make a reference point to another text or to null: such a file is well-formed.
TEST_F(ArchiveFlip, sharedTextsAndDatesThatBecomeSomethingElse) {
    const Ref<Bookmark> master = tree(2, 20);
    walkBelow(*master, [](Bookmark& node) {
        if (!node.isFolder()) {
            node.setItemName("Untitled");
            node.setItemTags("tag");
            node.setItemDateAdded(Date::fromReferenceSeconds(5));
            node.setLabel(3);
        }
        return true;
    });
    const std::string whole = writeDocumentArchive(*master);
    begin(whole);
    std::vector<std::size_t> undetected;
    for (std::size_t bit = 0; bit < 8 * whole.size(); ++bit) {
        std::string bytes = whole;
        bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ 1 << bit % 8);
        const Result<Ref<Bookmark>> damaged = readDocumentArchive(bytes);
        if (!damaged)
            continue;
        ASSERT_EQ(shapeOf(**damaged), shape);
        const std::vector<Text> fields = fieldsOf(**damaged);
        std::size_t lost = 0;
        for (std::size_t i = 0; i < fields.size(); ++i)
            lost += fields[i].isNull() && !wholeFields[i].isNull() ? 1 : 0;
        if (lost > 2)
            undetected.push_back(bit);
    }
    for (const std::size_t bit : undetected)
        EXPECT_EQ(whole[bit / 8 - 1], '\x80') << "byte " << bit / 8 << " is not the number in a uid";
    EXPECT_LT(undetected.size(), 8u);
}

TEST_F(ArchiveFlip, everyBitOfADocumentOfAnotherWriter) {
    TestArchive archive;
    const std::int64_t kind = archive.addClass({"NSMutableString", "NSString", "NSObject"});
    const std::int64_t boxed =
        archive.add(dictionary({{"NS.string", ascii("boxed")}, {"$class", uid(kind)}}));
    const std::int64_t link = archive.addNode({{"Name", uid(boxed)},
                                               {"URL", uid(archive.add(utf16(u"http://m\u00FC.example/")))},
                                               {"DateAdded", uid(archive.addDate(77))}});
    flipEveryBit(
        archive.document(archive.addFolder("Master", {link, archive.addFolder("f", {archive.addNode({})})})));
}

TEST_F(ArchiveFlip, randomBytesOfALargeDocument) {
    const std::string whole = writeDocumentArchive(*tree(30, 100));
    begin(whole);
    std::mt19937 random(11);
    for (int i = 0; i < 3000 && !HasFatalFailure(); ++i) {
        std::string bytes = whole;
        const std::size_t place = random() % bytes.size();
        bytes[place] = static_cast<char>(random());
        check(bytes, "byte " + std::to_string(place));
    }
    EXPECT_GT(refused, 100u);
}

TEST_F(ArchiveFlip, zeroedSectorsOfALargeDocument) {
    const std::string whole = writeDocumentArchive(*tree(30, 100));
    begin(whole);
    mostChanged = 0;
    for (const std::size_t sector : {512, 4096})
        for (std::size_t place = 0; place < whole.size() && !HasFatalFailure(); place += sector) {
            std::string bytes = whole;
            const std::size_t size = std::min(sector, bytes.size() - place);
            check(bytes.replace(place, size, size, '\0'), "sector at " + std::to_string(place));
        }
    EXPECT_GT(refused, 100u);
}

} // namespace
} // namespace tabulon
