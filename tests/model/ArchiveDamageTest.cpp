// Tests that the document reader refuses damaged files with a message, in bounded time and memory.
#include "model/ArchiveReader.h"
#include "model/ArchiveWriter.h"
#include "tests/ProcessorTime.h"
#include "tests/plist/TestPlist.h"

#include <gtest/gtest.h>

#include <random>

namespace tabulon {
namespace {

using namespace test;

// Expects that reading fails with a message that ends in a full stop. Returns the error.
Error refused(const std::string& bytes) {
    const Result<Ref<Bookmark>> master = readDocumentArchive(bytes);
    EXPECT_FALSE(master);
    if (master)
        return {};
    EXPECT_FALSE(master.error().message.empty());
    EXPECT_TRUE(master.error().message.ends_with('.'));
    return master.error();
}

std::string smallDocument() {
    TestArchive archive;
    const std::int64_t link = archive.addNode({{"Name", uid(archive.add(ascii("n")))}});
    return archive.document(archive.addFolder("Master", {link, archive.addFolder("f", {})}));
}

std::string withVersion(Value version, Value fileType) {
    TestArchive archive;
    const std::int64_t record = archive.addVersion(std::move(version), std::move(fileType));
    return archive.bytes(archive.addArray({record, archive.addFolder("Master", {})}));
}

TEST(ArchiveDamage, otherVersionOrTypeIsRefusedWithTheDescribedCode) {
    const std::int64_t type = 0x54626C6E;
    for (const std::string& bytes :
         {withVersion(integer(2), integer(type)), withVersion(integer(0), integer(type)),
          withVersion(integer((1LL << 32) + 1), integer(type)), withVersion(integer(1), integer(type + 1)),
          withVersion(integer(1), integer((1LL << 32) + type)), withVersion(real(1), integer(type)),
          withVersion(integer(-1), integer(type))}) {
        const Error error = refused(bytes);
        EXPECT_EQ(error.domain, ErrorDomain::Cocoa);
        EXPECT_EQ(error.code, 3072);
    }
    EXPECT_TRUE(readDocumentArchive(withVersion(integer(1), integer(type))));
}

TEST(ArchiveDamage, sixteenByteVersionsAreComparedWhole) {
    const auto wide = [](std::uint64_t high, std::uint64_t low) {
        std::string bytes = "\x14";
        Encoder::number(bytes, high, 8);
        Encoder::number(bytes, low, 8);
        return raw(bytes);
    };
    const std::uint64_t type = 0x54626C6E;
    EXPECT_TRUE(readDocumentArchive(withVersion(wide(0, 1), wide(0, type))));
    EXPECT_EQ(refused(withVersion(wide(1, 1), wide(0, type))).code, 3072);
    EXPECT_EQ(refused(withVersion(wide(~0ull, 1), wide(0, type))).code, 3072);
    EXPECT_EQ(refused(withVersion(wide(0, 1), wide(1, type))).code, 3072);
}

TEST(ArchiveDamage, referenceToTheCharacterZeroIsRefused) {
    refused("<plist><dict><key>a&#0;b</key><string/></dict></plist>");
    refused("<plist><string>&#x00;</string></plist>");
}

TEST(ArchiveDamage, recordOfAnotherClassIsNoVersion) {
    TestArchive archive;
    const std::int64_t master = archive.addFolder("Master", {});
    EXPECT_EQ(refused(archive.bytes(archive.addArray({archive.add(ascii("1")), master}))).code, 3072);
}

TEST(ArchiveDamage, whatIsNoArchiveIsRefusedWithoutACode) {
    for (const std::string& bytes :
         {std::string(), std::string("b"), std::string("bplist00"), std::string(100, 'x'),
          std::string(1000, '\0'), std::string("<html></html>"),
          std::string("<plist><string>a</string></plist>"), std::string("<plist>"),
          std::string("<plist><dict><key>a</key></dict></plist>"), Encoder({}).encode(dictionary({})),
          Encoder({}).encode(ascii("x")), Encoder({}).encode(array({}))}) {
        const Error error = refused(bytes);
        EXPECT_EQ(error.domain, ErrorDomain::None);
        EXPECT_EQ(error.code, 0);
    }
}

TEST(ArchiveDamage, anXMLListWithATextOnTopIsAPropertyList) {
    for (const char* top : {"<string>a</string>", "<integer>5</integer>", "<true/>", "<array/>"})
        EXPECT_EQ(refused(std::string("<plist version=\"1.0\">") + top + "</plist>").message,
                  "The file is a property list, but not a bookmark document.");
    EXPECT_EQ(refused("<plist><other/></plist>").message, "The file is XML, but not a property list.");
}

TEST(ArchiveDamage, anotherArchiverIsRefused) {
    const Value other = dictionary({{"$version", integer(100000)},
                                    {"$archiver", ascii("OtherArchiver")},
                                    {"$top", dictionary({{"root", uid(0)}})},
                                    {"$objects", array({ascii("$null")})}});
    EXPECT_EQ(refused(Encoder({}).encode(other)).domain, ErrorDomain::None);
}

TEST(ArchiveDamage, wrongRootIsRefused) {
    TestArchive archive;
    const std::int64_t version = archive.addVersion(integer(1), integer(0x54626C6E));
    const std::int64_t master = archive.addFolder("Master", {});
    refused(archive.bytes(archive.addArray({version})));
    refused(archive.bytes(archive.addArray({})));
    refused(archive.bytes(archive.addArray({version, master, master})));
    refused(archive.bytes(archive.addArray({version, 0})));
    refused(archive.bytes(archive.addArray({version, 12345})));
    refused(archive.bytes(master));
    refused(archive.bytes(0));
    refused(archive.bytes(99999));
    EXPECT_TRUE(readDocumentArchive(archive.bytes(archive.addArray({version, master}))));
}

TEST(ArchiveDamage, folderInsideItself) {
    TestArchive archive;
    const std::int64_t folder = archive.addNode({{"Folder", boolean(true)}, {"Children", uid(0)}});
    archive.objects[static_cast<std::size_t>(folder)]->pairs[1].second = uid(archive.addArray({folder}));
    EXPECT_NE(refused(archive.document(folder)).message.find("inside itself"), std::string::npos);
    EXPECT_NE(refused(archive.document(archive.addFolder("Master", {folder}))).message.find("inside itself"),
              std::string::npos);
}

TEST(ArchiveDamage, longCycleOfFolders) {
    TestArchive archive;
    const std::int64_t first = archive.addNode({{"Folder", boolean(true)}, {"Children", uid(0)}});
    std::int64_t inner = first;
    for (int i = 0; i < 100; ++i)
        inner = archive.addFolder("f", {inner});
    archive.objects[static_cast<std::size_t>(first)]->pairs[1].second = uid(archive.addArray({inner}));
    refused(archive.document(archive.addFolder("Master", {first})));
}

TEST(ArchiveDamage, oneNodeInTwoPlaces) {
    TestArchive archive;
    const std::int64_t link = archive.addNode({});
    refused(archive.document(archive.addFolder("Master", {link, link})));
    refused(archive.document(archive.addFolder("Master", {archive.addFolder("a", {link}), link})));
}

TEST(ArchiveDamage, oneListOfTwoFolders) {
    TestArchive archive;
    const std::int64_t list = archive.addArray({archive.addNode({})});
    std::vector<std::int64_t> folders;
    for (int i = 0; i < 2; ++i)
        folders.push_back(archive.addNode({{"Folder", boolean(true)}, {"Children", uid(list)}}));
    refused(archive.document(archive.addFolder("Master", folders)));
}

TEST(ArchiveDamage, folderWithTwoListsOfChildren) {
    TestArchive archive;
    const std::int64_t folder = archive.addNode({{"Children", uid(archive.addArray({archive.addNode({})}))},
                                                 {"Children", uid(archive.addArray({archive.addNode({})}))}});
    refused(archive.document(folder));
}

TEST(ArchiveDamage, childrenThatAreNoList) {
    for (const auto& children : {uid(1), uid(12345), integer(4), ascii("none"), array({})}) {
        TestArchive archive;
        archive.add(ascii("none"));
        refused(archive.document(archive.addNode({{"Folder", boolean(true)}, {"Children", children}})));
    }
}

TEST(ArchiveDamage, bookmarkThatNoFolderHolds) {
    TestArchive archive;
    archive.addNode({{"Name", uid(archive.add(ascii("lost")))}});
    EXPECT_NE(refused(archive.document(archive.addFolder("Master", {}))).message.find("no folder holds"),
              std::string::npos);
}

TEST(ArchiveDamage, damagedClassesOfDatesAndTexts) {
    TestArchive dated;
    const std::int64_t date =
        dated.add(dictionary({{"NS.time", real(5)}, {"$class", uid(dated.addClass({"NSDbte"}))}}));
    refused(dated.document(dated.addNode({{"DateAdded", uid(date)}})));
    TestArchive timeless;
    const std::int64_t when =
        timeless.add(dictionary({{"NS.tine", real(5)}, {"$class", uid(timeless.dateClass())}}));
    refused(timeless.document(timeless.addNode({{"DateAdded", uid(when)}})));
    TestArchive boxed;
    const std::int64_t text =
        boxed.add(dictionary({{"NS.string", ascii("t")}, {"$class", uid(boxed.addClass({"NSStrjng"}))}}));
    refused(boxed.document(boxed.addNode({{"Name", uid(text)}})));
}

// Returns the error message for a bookmark whose value under `key` is the object that `value` adds to the
// archive.
template <class AddValue>
std::string messageFor(const char* key, const AddValue& value) {
    TestArchive archive;
    const std::int64_t node = archive.addNode({{key, uid(value(archive))}});
    return refused(archive.document(archive.addFolder("Master", {node}))).message;
}

// A text that damage has turned into another kind of value must not be read as missing: the next save would
// remove it from the file.
TEST(ArchiveDamage, textThatIsSomethingElse) {
    for (const char* key : {"Name", "URL", "Note", "Tags"}) {
        for (const Value& value : {real(5), integer(4), data("text"), dictionary({})})
            EXPECT_NE(messageFor(key, [&](TestArchive& to) { return to.add(value); }).find("a text"),
                      std::string::npos);
        for (const Pairs& pairs : {Pairs{}, Pairs{{"NS.string", real(5)}}, Pairs{{"NS.bytes", ascii("t")}}}) {
            const auto addObject = [&](TestArchive& to) {
                Pairs all = pairs;
                all.emplace_back("$class", uid(to.addClass({"NSString", "NSObject"})));
                return to.add(dictionary(all));
            };
            EXPECT_NE(messageFor(key, addObject).find("a text"), std::string::npos);
        }
        EXPECT_NE(messageFor(key, [](TestArchive& to) { return to.addDate(5); }).find("a text"),
                  std::string::npos);
    }
}

TEST(ArchiveDamage, dateThatIsSomethingElse) {
    for (const char* key : {"DateAdded", "DateModified", "LastChecked", "LastOpened"}) {
        for (const Value& value : {ascii("yesterday"), real(5), dictionary({})})
            EXPECT_NE(messageFor(key, [&](TestArchive& to) { return to.add(value); }).find("a date"),
                      std::string::npos);
        for (const Pairs& pairs : {Pairs{}, Pairs{{"NS.time", ascii("noon")}}}) {
            const auto addObject = [&](TestArchive& to) {
                Pairs all = pairs;
                all.emplace_back("$class", uid(to.dateClass()));
                return to.add(dictionary(all));
            };
            EXPECT_NE(messageFor(key, addObject).find("a date"), std::string::npos);
        }
    }
}

TEST(ArchiveDamage, misspeltKey) {
    for (const char* key : {"Nbme", "Nam", "Name\x01", "URL2", "", "Chjldren"}) {
        TestArchive archive;
        refused(archive.document(archive.addNode({{key, uid(archive.add(ascii("n")))}})));
    }
}

TEST(ArchiveDamage, childThatIsNoBookmark) {
    TestArchive archive;
    refused(archive.document(archive.addFolder("Master", {archive.add(ascii("text"))})));
    refused(archive.document(archive.addFolder("Master", {0})));
    refused(archive.document(archive.addFolder("Master", {archive.addArray({})})));
}

TEST(ArchiveDamage, referencesOutOfRange) {
    for (const std::int64_t number : {1000LL, 0xFFFFFFFFLL}) {
        TestArchive archive;
        refused(archive.document(archive.addFolder("Master", {number})));
        TestArchive named;
        refused(named.document(named.addNode({{"Name", uid(number)}})));
        TestArchive dated;
        refused(dated.document(dated.addNode({{"LastOpened", uid(number)}})));
    }
}

TEST(ArchiveDamage, truncatedAnywhere) {
    const std::string whole = smallDocument();
    ASSERT_TRUE(readDocumentArchive(whole));
    for (std::size_t size = 0; size < whole.size(); ++size)
        refused(whole.substr(0, size));
}

TEST(ArchiveDamage, absurdCountsAndTables) {
    const std::string whole = smallDocument();
    const auto patched = [&](std::size_t fromEnd, std::uint64_t value, unsigned width) {
        std::string bytes = whole;
        std::string number;
        Encoder::number(number, value, width);
        return bytes.replace(bytes.size() - fromEnd, width, number);
    };
    for (const std::uint64_t absurd : {~0ULL, 1ULL << 63, 1ULL << 40, 100000ULL}) {
        refused(patched(24, absurd, 8)); // number of objects
        refused(patched(16, absurd, 8)); // top object
        refused(patched(8, absurd, 8));  // offset of the offset table
    }
    refused(patched(24, 0, 8));
    refused(patched(8, 0, 8));
    refused(patched(8, 7, 8));
    for (const std::uint64_t width : {0ULL, 9ULL, 255ULL}) {
        refused(patched(26, width, 1)); // size of an offset
        refused(patched(25, width, 1)); // size of a reference
    }
}

TEST(ArchiveDamage, objectsThatReachIntoTheTableAreRefused) {
    TestArchive archive;
    // A text of 2^62 characters, and a list whose count is larger than the file.
    const std::int64_t text = archive.add(raw(std::string("\x5F\x13\x40", 3) + std::string(7, '\0')));
    refused(archive.document(archive.addNode({{"Name", uid(text)}})));
    TestArchive listed;
    const std::int64_t list =
        listed.add(dictionary({{"NS.objects", raw(std::string("\xAF\x12\x7F\xFF\xFF\xFF", 6))},
                               {"$class", uid(listed.arrayClass())}}));
    const Result<Ref<Bookmark>> master =
        readDocumentArchive(listed.document(listed.addNode({{"Children", uid(list)}})));
    EXPECT_TRUE(!master || !(*master)->hasChildren());
}

TEST(ArchiveDamage, overlappingObjectsCannotMakeTheWorkGrow) {
    // 20,000 nodes that share the same bytes: a dictionary of 20,000 pairs.
    constexpr std::size_t kCount = 20000;
    Pairs pairs;
    const Value value = boolean(true);
    for (std::size_t i = 0; i < kCount; ++i)
        pairs.emplace_back("x", value);
    TestArchive archive;
    const std::int64_t first = archive.addNode(pairs);
    std::vector<std::int64_t> links{first};
    for (std::size_t i = 1; i < kCount; ++i)
        links.push_back(archive.add(boolean(false)));
    const std::int64_t master = archive.addFolder("Master", links);
    std::string bytes = archive.document(master, {4, 4, 3, 0});
    // Set the offset of each filler object to that of the first node.
    const auto at = [&](std::size_t position) {
        std::uint64_t result = 0;
        for (std::size_t i = 0; i < 4; ++i)
            result = result << 8 | static_cast<unsigned char>(bytes[position + i]);
        return result;
    };
    std::size_t table = 0;
    for (std::size_t i = 0; i < 8; ++i)
        table = table << 8 | static_cast<unsigned char>(bytes[bytes.size() - 8 + i]);
    std::size_t node = 0;
    const std::size_t objects = (bytes.size() - 32 - table) / 4;
    for (std::size_t i = 0; i < objects; ++i)
        if (bytes[at(table + 4 * i)] == '\xDF' && at(at(table + 4 * i) + 2) > 10000)
            node = i;
    ASSERT_NE(node, 0u);
    for (std::size_t i = 0; i < objects; ++i)
        if (bytes[at(table + 4 * i)] == '\x08')
            bytes.replace(table + 4 * i, 4, bytes.substr(table + 4 * node, 4));
    const ProcessorTime time;
    const Error error = refused(bytes);
    EXPECT_NE(error.message.find("overlap"), std::string::npos) << error.message;
    EXPECT_LT(time.seconds(), 5);
}

TEST(ArchiveDamage, randomDamageIsReadOrRefused) {
    const std::string whole = smallDocument();
    std::mt19937 random(7);
    int read = 0;
    for (int i = 0; i < 20000; ++i) {
        std::string bytes = whole;
        for (unsigned changes = 1 + random() % 3; changes > 0; --changes)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        if (const auto master = readDocumentArchive(bytes)) {
            ++read;
            const std::string written = writeDocumentArchive(**master);
            const auto again = readDocumentArchive(written);
            ASSERT_TRUE(again);
            ASSERT_EQ(writeDocumentArchive(**again), written);
        }
    }
    EXPECT_GT(read, 0);
    EXPECT_LT(read, 20000);
}

TEST(ArchiveDamage, deepXmlIsReadOrRefusedWithoutRecursion) {
    constexpr int kDepth = 200000;
    std::string xml = "<plist>";
    for (int i = 0; i < kDepth; ++i)
        xml += "<array>";
    for (int i = 0; i < kDepth; ++i)
        xml += "</array>";
    refused(xml + "</plist>");
}

TEST(ArchiveDamage, customEntitiesAreNotExpanded) {
    const Error error = refused("<!DOCTYPE plist [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;\">]>"
                                "<plist><dict><key>$archiver</key><string>&b;</string></dict></plist>");
    EXPECT_EQ(error.domain, ErrorDomain::None);
}

} // namespace
} // namespace tabulon
