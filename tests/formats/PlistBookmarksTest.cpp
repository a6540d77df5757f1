// Tests the import of Safari's and iCab's property lists, rule by rule. The tests write XML and convert it to
// the binary form.
#include "formats/import/PlistBookmarks.h"

#include "platform/fake/FakeBaseServices.h"
#include "plist/PlistWriter.h"
#include "plist/XmlPlist.h"
#include "tests/CountingProgress.h"
#include "tests/ProcessorTime.h"
#include "tests/model/TreeShape.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace tabulon {
namespace {

using Read = decltype(&readSafariBookmarks);

std::string key(const std::string& name, const std::string& text) {
    return "<key>" + name + "</key><string>" + text + "</string>";
}
std::string dictionary(const std::string& content) {
    return "<dict>" + content + "</dict>";
}
std::string folder(const std::string& content, const std::string& children = "") {
    return dictionary(content + "<key>Children</key><array>" + children + "</array>");
}
std::string list(const std::string& top) {
    return "<?xml version=\"1.0\"?><plist version=\"1.0\">" + top + "</plist>";
}

class PlistBookmarks : public testing::Test {
protected:
    Ref<Bookmark> read(Read reader, const std::string& entries) {
        const std::string xml = list(folder("", entries));
        const auto tree = reader(xml, {fakes.services()});
        const auto binary = reader(*binaryPlistFromXml(xml), {fakes.services()});
        EXPECT_TRUE(tree && binary) << xml;
        if (!tree || !binary)
            return Bookmark::initEmpty();
        EXPECT_EQ(count(**tree), count(**binary));
        return *tree;
    }
    Ref<Bookmark> safari(const std::string& entries) { return read(readSafariBookmarks, entries); }
    Ref<Bookmark> iCab(const std::string& entries) { return read(readICabBookmarks, entries); }
    static std::size_t count(const Bookmark& parent) {
        return parent.getChildren() ? parent.getChildren()->size() : 0;
    }

    FakeBaseServices fakes;
};

std::string safariLink(const std::string& title, const std::string& rest) {
    return dictionary("<key>URIDictionary</key>" + dictionary(key("title", title)) + rest);
}

TEST_F(PlistBookmarks, safariLinkHasNameURLAndNoteAndNoDates) {
    const Ref<Bookmark> root =
        safari(safariLink("Name", key("URLString", "HTTP://Example.org") + key("Description", "second") +
                                      key("previewText", "first")));
    ASSERT_EQ(count(*root), 1u);
    const Bookmark& link = *root->getChild();
    EXPECT_EQ(root->itemName().view(), "Master");
    EXPECT_EQ(link.itemName().view(), "Name");
    EXPECT_EQ(link.itemURL().view(), "HTTP://Example.org") << "as given";
    EXPECT_EQ(link.itemNote().view(), "first");
    EXPECT_TRUE(link.itemDateAdded().isNull());
    EXPECT_TRUE(link.itemDateModified().isNull());
}

TEST_F(PlistBookmarks, safariDescriptionIsTheSecondChoiceForTheNote) {
    EXPECT_EQ(safari(safariLink("n", key("Description", "d")))->getChild()->itemNote().view(), "d");
    EXPECT_EQ(
        safari(safariLink("n", key("Description", "d") + key("previewText", "")))->getChild()->itemNote(),
        Text(""));
}

TEST_F(PlistBookmarks, linksAreClassifiedByTheirScheme) {
    EXPECT_EQ(safari(dictionary(key("URLString", "ftp://x/")))->getChild()->getType(), 1);
    EXPECT_EQ(iCab(dictionary(key("URL", "mailto:a@b")))->getChild()->getType(), 3);
    EXPECT_EQ(iCab(dictionary(key("URL", "https://x/")))->getChild()->getType(), 0);
}

TEST_F(PlistBookmarks, safariURLWithoutATitleIsUntitled) {
    EXPECT_EQ(safari(dictionary(key("URLString", "u")))->getChild()->itemName().view(), "Untitled");
    EXPECT_EQ(safari(safariLink("", key("URLString", "u")))->getChild()->itemName().view(), "Untitled");
}

TEST_F(PlistBookmarks, safariTitleWithoutAURLIsALinkWithoutOne) {
    EXPECT_TRUE(safari(safariLink("t", ""))->getChild()->itemURL().isNull());
}

TEST_F(PlistBookmarks, safariEntryWithNeitherIsDropped) {
    EXPECT_EQ(count(*safari(dictionary(key("Title", "History") + key("WebBookmarkType", "x")))), 0u);
}

TEST_F(PlistBookmarks, safariBarHasAnotherNameAndALabelAtAnyDepth) {
    const Ref<Bookmark> root = safari(
        folder(key("Title", "BookmarksBar"), folder(key("Title", "BookmarksBar"))) +
        folder(key("Title", "BookmarksMenu")) + folder(key("Title", "com.apple.ReadingList")) + folder(""));
    ASSERT_EQ(count(*root), 4u);
    const Bookmark& bar = *root->getChild();
    EXPECT_EQ(bar.itemName().view(), "Favourites");
    EXPECT_EQ(bar.getLabel(), 1);
    EXPECT_EQ(bar.getChild()->itemName().view(), "Favourites");
    EXPECT_EQ(root->getChildren()->at(1)->itemName().view(), "BookmarksMenu");
    EXPECT_EQ(root->getChildren()->at(1)->getLabel(), 0);
    EXPECT_TRUE(root->getLast()->itemName().isNull());
}

TEST_F(PlistBookmarks, emptyChildrenMakeAnEmptyFolder) {
    const Ref<Bookmark> root = safari(folder(key("Title", "E") + key("URLString", "u")));
    EXPECT_TRUE(root->getChild()->isFolder());
    EXPECT_EQ(count(*root->getChild()), 0u);
    EXPECT_TRUE(root->getChild()->itemURL().isNull());
}

TEST_F(PlistBookmarks, withoutChildrenAtTheTopTheTreeIsEmpty) {
    for (const char* top : {"<dict/>", "<array/>", "<dict><key>Title</key><string>x</string></dict>"})
        for (const Read reader : {readSafariBookmarks, readICabBookmarks}) {
            const auto tree = reader(list(top), {fakes.services()});
            ASSERT_TRUE(tree) << top;
            EXPECT_EQ(count(**tree), 0u);
        }
}

TEST_F(PlistBookmarks, valuesOfAnotherKindCountAsAbsent) {
    const std::string link =
        dictionary(key("URLString", "u") + "<key>URIDictionary</key><array/><key>previewText</key><true/>");
    const Ref<Bookmark> root = safari(link);
    ASSERT_EQ(count(*root), 1u);
    EXPECT_FALSE(root->getChild()->isFolder());
    EXPECT_EQ(root->getChild()->itemName().view(), "Untitled");
    EXPECT_TRUE(root->getChild()->itemNote().isNull());
    const auto xml =
        readSafariBookmarks(list(folder("", "<string>no entry</string>" + link +
                                                dictionary("<key>URLString</key><integer>5</integer>"))),
                            {fakes.services()});
    ASSERT_TRUE(xml) << xml.error().message;
    EXPECT_EQ(count(**xml), 1u);
}

TEST_F(PlistBookmarks, childrenThatAreNoListAreRefused) {
    for (const std::string& top :
         {dictionary("<key>Children</key><string>x</string>"),
          folder("", dictionary("<key>Children</key><string>x</string>" + key("URLString", "u")))})
        for (const Read reader : {readSafariBookmarks, readICabBookmarks}) {
            const auto tree = reader(list(top), {fakes.services()});
            EXPECT_FALSE(tree) << top;
            EXPECT_TRUE(tree || tree.error().message.ends_with('.'));
        }
}

// Programs may keep other data beside the bookmarks, under any keys.
TEST_F(PlistBookmarks, otherDataOfTheProgramIsPassedOver) {
    const std::string link = dictionary(key("Title", "t") + key("URLString", "u") + key("URL", "u"));
    const std::string top = dictionary("<key>Children</key><array>" + link + "</array><key>Elsewhere</key>" +
                                       link + "<key>Proxies</key><array>" + link + "</array>");
    for (const std::string& xml :
         {list(top), list(dictionary("<key>TabGroups</key>" + folder("", link) + "<key>Recent</key>" + link +
                                     "<key>Children</key><array>" + link + "</array>"))})
        for (const std::string& file : {xml, *binaryPlistFromXml(xml)})
            for (const Read reader : {readSafariBookmarks, readICabBookmarks}) {
                const auto tree = reader(file, {fakes.services()});
                ASSERT_TRUE(tree) << tree.error().message;
                EXPECT_EQ(count(**tree), 1u);
            }
}

TEST_F(PlistBookmarks, entriesWithNeitherNameNorAddressAreDroppedWhateverElseTheyHave) {
    const std::string link = dictionary(key("Title", "t") + key("URLString", "u") + key("URL", "u"));
    for (const std::string& content :
         {std::string(), "<key>Items</key><array>" + link + "</array>", "<key>Sync</key>" + link,
          "<key>Options</key><array/><key>State</key><dict/>" + key("Identifier", "History")}) {
        EXPECT_EQ(count(*safari(dictionary(content) + link)), 1u) << content;
        EXPECT_EQ(count(*iCab(link + dictionary(content))), 1u) << content;
    }
}

TEST_F(PlistBookmarks, aBinaryListWithoutChildrenAtTheTopIsEmpty) {
    const std::string link = dictionary(key("Title", "t") + key("URLString", "u") + key("URL", "u"));
    for (const std::string& top : {dictionary(""), dictionary("<key>Elsewhere</key>" + folder("", link)),
                                   dictionary("<key>Elsewhere</key>" + link)})
        for (const Read reader : {readSafariBookmarks, readICabBookmarks}) {
            const auto tree = reader(*binaryPlistFromXml(list(top)), {fakes.services()});
            ASSERT_TRUE(tree) << tree.error().message;
            EXPECT_EQ(count(**tree), 0u);
        }
}

TEST_F(PlistBookmarks, inABinaryListWhatWouldDropBookmarksIsRefused) {
    const std::string link = dictionary(key("Title", "t") + key("URLString", "u") + key("URL", "u"));
    const std::vector<std::string> tops = {
        folder("", "<string>no entry</string>"),
        dictionary("<key>Children</key><array/><key>Childsen</key><array>" + link + "</array>"),
        folder("", dictionary(key("Title", "t") + "<key>Childsen</key><array>" + link + "</array>")),
    };
    const auto isRefused = [&](Read reader, const std::string& top) {
        return !reader(*binaryPlistFromXml(list(top)), {fakes.services()});
    };
    for (const Read reader : {readSafariBookmarks, readICabBookmarks})
        for (const std::string& top : tops)
            EXPECT_TRUE(isRefused(reader, top)) << top;
    for (const char* entry :
         {"<key>URLString</key><integer>5</integer>", "<key>URMString</key><string>u</string>",
          "<key>URIDictionary</key><dict><key>titlf</key><string>t</string></dict>"})
        EXPECT_TRUE(isRefused(readSafariBookmarks, folder("", dictionary(entry)))) << entry;
    for (const char* entry : {"<key>URL</key><integer>5</integer>", "<key>UQL</key><string>u</string>"})
        EXPECT_TRUE(isRefused(readICabBookmarks, folder("", dictionary(entry)))) << entry;
}

// Returns true if the list is refused with a message, or read as a tree of the same shape. A tree with more
// nodes also counts, because damage may turn other data into an entry.
bool isRefusedOrWhole(Read reader, const std::string& bytes, const std::vector<std::size_t>& shape) {
    FakeBaseServices fakes;
    const auto tree = reader(bytes, {fakes.services()});
    if (!tree)
        return tree.error().message.ends_with('.');
    const std::vector<std::size_t> left = test::shapeOf(**tree);
    return left == shape || left.size() > shape.size();
}

TEST_F(PlistBookmarks, aLinkWithoutTitleMayHaveItsAddressUnderAnEmptyKey) {
    const std::string link =
        dictionary(key("URLString", "u") + "<key>URIDictionary</key>" + dictionary(key("", "u")));
    EXPECT_EQ(safari(link)->getChild()->itemName().view(), "Untitled");
}

// All entries share one object for each key. With a damaged key they would be titles without addresses, or
// the reverse.
TEST_F(PlistBookmarks, damageToAKeyThatAllEntriesShareIsRefused) {
    std::string links;
    for (int i = 0; i < 4; ++i)
        links += dictionary(key("Title", "t" + std::to_string(i)) + key("URL", "u") + key("URLString", "u") +
                            "<key>URIDictionary</key>" + dictionary(key("title", "t")));
    const std::string bytes = *binaryPlistFromXml(list(folder("", links)));
    const auto requireRefused = [&](Read reader, std::string_view name) {
        const std::string stored = static_cast<char>(0x50 | name.size()) + std::string(name);
        const std::size_t place = bytes.find(stored);
        ASSERT_NE(place, std::string::npos) << name;
        for (std::size_t bit = 8; bit < 8 * stored.size(); ++bit) {
            std::string damaged = bytes;
            damaged[place + bit / 8] = static_cast<char>(damaged[place + bit / 8] ^ 1 << bit % 8);
            EXPECT_FALSE(reader(damaged, {fakes.services()})) << name << ", bit " << bit;
        }
    };
    for (const char* name : {"URLString", "URIDictionary", "title", "Children"})
        requireRefused(readSafariBookmarks, name);
    for (const char* name : {"URL", "Title", "Children"})
        requireRefused(readICabBookmarks, name);
}

// Requires that a list with one flipped bit, or one zeroed sector, is refused or read whole. Some damage to a
// list cannot be detected: a folder's reference to "Children" may lead to another text, or an entry of the
// offset table to another object. The list is then valid, with its children elsewhere or without any. Fewer
// than one in a hundred bits may have this effect. Damage to the text "Children" itself must always be
// refused, because it would remove the children of all folders.
void flipEveryBit(Read reader, const std::string& whole) {
    FakeBaseServices fakes;
    const auto tree = reader(whole, {fakes.services()});
    ASSERT_TRUE(tree) << tree.error().message;
    const std::vector<std::size_t> shape = test::shapeOf(**tree);
    const std::size_t childrenKey = whole.find("Children");
    std::size_t undetected = 0;
    for (std::size_t bit = 0; bit < 8 * whole.size(); ++bit) {
        std::string bytes = whole;
        bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ 1 << bit % 8);
        if (isRefusedOrWhole(reader, bytes, shape))
            continue;
        ++undetected;
        EXPECT_TRUE(bit / 8 + 1 < childrenKey || bit / 8 >= childrenKey + 8) << "at byte " << bit / 8;
    }
    EXPECT_LT(undetected, 8 * whole.size() / 100);
    for (std::size_t place = 0; place < whole.size(); place += 64) {
        std::string bytes = whole;
        const std::size_t size = std::min<std::size_t>(64, whole.size() - place);
        EXPECT_TRUE(isRefusedOrWhole(reader, bytes.replace(place, size, size, '\0'), shape))
            << "sector at " << place;
    }
}

TEST_F(PlistBookmarks, damageInABinaryListIsRefusedOrEveryBookmarkIsThereButForLostKeys) {
    std::string entries;
    for (int f = 0; f < 3; ++f) {
        std::string links;
        for (int i = 0; i < 4; ++i)
            links +=
                dictionary(key("Title", "t" + std::to_string(i)) + key("URL", "u") + key("URLString", "u") +
                           "<key>URIDictionary</key>" + dictionary(key("title", "t")));
        entries += folder(key("Title", "folder"), links + folder(key("Title", "empty")));
    }
    const std::string bytes = *binaryPlistFromXml(list(folder("", entries)));
    flipEveryBit(readSafariBookmarks, bytes);
    flipEveryBit(readICabBookmarks, bytes);
    for (const auto& [reader, name] : {std::pair<Read, const char*>{readSafariBookmarks, "safari-binary"},
                                       std::pair<Read, const char*>{readICabBookmarks, "icab"}}) {
        std::ifstream file(std::string(TABULON_CORPUS_DIR "/plist/") + name + "/input.plist",
                           std::ios::binary);
        const std::string whole((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        flipEveryBit(reader, whole.starts_with("bplist") ? whole : *binaryPlistFromXml(whole));
    }
}

TEST_F(PlistBookmarks, iCabLinkHasDatesAndTags) {
    const auto date = [](const char* name, const char* value) {
        return std::string("<key>") + name + "</key><date>" + value + "</date>";
    };
    const Ref<Bookmark> root = iCab(dictionary(
        key("Title", "T") + key("URL", "u") + key("Description", "d") + key("Tags", "a, b") +
        date("CreationDate", "2020-05-01T08:20:30Z") + date("LastModifiedDate", "2020-05-02T08:20:30Z") +
        date("LastCheckedDate", "2020-05-03T08:20:30Z")));
    const Bookmark& link = *root->getChild();
    EXPECT_EQ(link.itemName().view(), "T");
    EXPECT_EQ(link.itemURL().view(), "u");
    EXPECT_EQ(link.itemNote().view(), "d");
    EXPECT_EQ(link.itemTags().view(), "a, b");
    EXPECT_EQ(link.itemDateAdded().unixSeconds(), 1588321230);
    EXPECT_EQ(link.itemDateModified().unixSeconds(), 1588321230 + 86400);
    EXPECT_EQ(link.itemLastChecked().unixSeconds(), 1588321230 + 2 * 86400);
    EXPECT_TRUE(iCab(dictionary(key("URL", "u")))->getChild()->itemDateAdded().isNull());
}

TEST_F(PlistBookmarks, iCabTimesBeyondTheirDayGoOnIntoTheNextAndDaysThatNoMonthHasAreNone) {
    const auto added = [this](const std::string& value) {
        return iCab(dictionary(key("URL", "u") + "<key>CreationDate</key><date>" + value + "</date>"))
            ->getChild()
            ->itemDateAdded();
    };
    EXPECT_EQ(added("2020-05-01T25:61:61Z"), added("2020-05-02T02:02:01Z"));
    EXPECT_EQ(added("2016-12-31T23:59:60Z"), added("2017-01-01T00:00:00Z")) << "a leap second";
    for (const char* none : {"2020-13-01T00:00:00Z", "2020-00-01T00:00:00Z", "2021-02-29T00:00:00Z",
                             "2020-04-31T00:00:00Z", "2020-05-01", "2020-05-01T08:20:30", "yesterday", ""})
        EXPECT_TRUE(added(none).isNull()) << none;
}

TEST_F(PlistBookmarks, iCabFoldersAreExpandedUnlessClosed) {
    const auto shown = [this](const std::string& closed) {
        return iCab(folder(key("Title", "F") + closed))->getChild()->showHier();
    };
    EXPECT_TRUE(shown(""));
    EXPECT_FALSE(shown("<key>Closed</key><true/>"));
    EXPECT_TRUE(shown("<key>Closed</key><false/>"));
    EXPECT_FALSE(shown("<key>Closed</key><integer>1</integer>"));
    EXPECT_FALSE(shown("<key>Closed</key><string>YES</string>"));
    EXPECT_TRUE(shown("<key>Closed</key><string>no</string>"));
    EXPECT_TRUE(shown("<key>Closed</key><string>000</string>"));
    EXPECT_FALSE(shown("<key>Closed</key><string> -01</string>"));
}

TEST_F(PlistBookmarks, iCabFolderTypes) {
    const Ref<Bookmark> root = iCab(folder(key("Title", "Mine") + key("FolderType", "Favorites")) +
                                    folder(key("Title", "Tabs") + key("FolderType", "TabGroup")));
    EXPECT_EQ(root->getChild()->itemName().view(), "Favourites");
    EXPECT_EQ(root->getChild()->getLabel(), 1);
    EXPECT_EQ(root->getLast()->itemName().view(), "Tabs");
    EXPECT_TRUE(root->getLast()->getAutoTab());
}

TEST_F(PlistBookmarks, iCabSmartFoldersAreDroppedAndSeparatorsAreNothingSpecial) {
    const Ref<Bookmark> root =
        iCab(dictionary(key("Title", "S") + key("URL", "u") + key("BookmarkType", "SmartFolder")) +
             dictionary(key("BookmarkType", "Separator")) +
             dictionary(key("Title", "") + key("BookmarkType", "Separator")));
    ASSERT_EQ(count(*root), 1u);
    EXPECT_EQ(root->getChild()->itemName().view(), "Untitled");
    EXPECT_FALSE(root->getChild()->isSeparator());
}

TEST_F(PlistBookmarks, whatIsNoPropertyListIsRefused) {
    for (const char* bytes : {"", "text", "bplist00", "<plist><dict>", "<html/>"})
        EXPECT_FALSE(readSafariBookmarks(bytes, {fakes.services()})) << bytes;
}

TEST_F(PlistBookmarks, deepFoldersAreReadWithoutRecursion) {
    std::string xml;
    for (int i = 0; i < 100000; ++i)
        xml += "<dict><key>Children</key><array>";
    for (int i = 0; i < 100000; ++i)
        xml += "</array></dict>";
    EXPECT_TRUE(readICabBookmarks(list(xml), {fakes.services()}));
}

// A folder that contains itself, and a chain of folders in which each contains the next one twice: 2^60
// entries in a few hundred bytes.
TEST_F(PlistBookmarks, foldersThatContainEachOtherAreRefused) {
    for (const bool loop : {true, false}) {
        PlistWriter writer(1000, 1000);
        const std::uint64_t children = writer.writeText("Children");
        const auto keys = writer.layOutKeys({children});
        std::uint64_t inner = 0;
        if (loop) {
            const std::uint64_t array = writer.objectCount();
            writer.writeArray({array + 1});
            inner = writer.writeDictionary(keys, {array});
        } else {
            inner = writer.writeDictionary(keys, {writer.writeArray({})});
            for (int depth = 0; depth < 60; ++depth) {
                const std::uint64_t array = writer.writeArray({inner, inner});
                inner = writer.writeDictionary(keys, {array});
            }
        }
        const std::string bytes = writer.finish(inner);
        const ProcessorTime time;
        EXPECT_FALSE(readSafariBookmarks(bytes, {fakes.services()}));
        EXPECT_LT(time.seconds(), 20);
    }
}

// A list with one entry a thousand times. The text of that entry would take a gigabyte if each link had its
// own copy.
TEST_F(PlistBookmarks, aLongTextThatManyEntriesShareIsMadeOnce) {
    PlistWriter writer(100, 2'000'000);
    const std::uint64_t children = writer.writeText("Children");
    const std::uint64_t url = writer.writeText("URLString");
    const auto linkKeys = writer.layOutKeys({url});
    const std::uint64_t link =
        writer.writeDictionary(linkKeys, {writer.writeText(std::string(1'000'000, 'x'))});
    const std::uint64_t array = writer.writeArray(std::vector<std::uint64_t>(1000, link));
    const auto tree = readSafariBookmarks(
        writer.finish(writer.writeDictionary(writer.layOutKeys({children}), {array})), {fakes.services()});
    ASSERT_TRUE(tree);
    const auto* links = (*tree)->getChildren();
    ASSERT_EQ(links->size(), 1000u);
    EXPECT_EQ(links->at(0)->itemURL().view().data(), links->at(999)->itemURL().view().data());
}

TEST_F(PlistBookmarks, anXMLListMayBeInAnyEncoding) {
    const std::string xml =
        "<?xml version=\"1.0\" encoding=\"windows-1251\"?><plist><dict><key>Children</key><array>"
        "<dict><key>URLString</key><string>\xEF\xF0\xE8</string></dict></array></dict></plist>";
    const auto tree = readSafariBookmarks(xml, {fakes.services()});
    ASSERT_TRUE(tree);
    EXPECT_EQ((*tree)->getChild()->itemURL().view(), "при");
}

TEST_F(PlistBookmarks, whatIsNoPropertyListHasTheCodeOfOne) {
    for (const char* bytes : {"", "bplist00", "<plist><dict>", "text"}) {
        const auto tree = readSafariBookmarks(bytes, {fakes.services()});
        ASSERT_FALSE(tree);
        EXPECT_EQ(tree.error().domain, ErrorDomain::Cocoa);
        EXPECT_EQ(tree.error().code, kPropertyListReadCorruptError);
    }
}

TEST_F(PlistBookmarks, aLongFileOfEitherFormCanBeCancelledAtAnyTime) {
    std::string entries;
    for (int i = 0; i < 20'000; ++i)
        entries += safariLink("A link", key("URLString", "https://example.org/" + std::to_string(i)));
    const std::string xml = list(folder("", entries));
    for (const std::string& file : {xml, *binaryPlistFromXml(xml)}) {
        test::CountingProgress whole;
        ASSERT_TRUE(readSafariBookmarks(file, {fakes.services(), &whole}));
        EXPECT_TRUE(std::ranges::is_sorted(whole.fractions));
        EXPECT_LE(whole.fractions.back(), 1);
        for (std::size_t call = 1; call <= whole.fractions.size(); call += 11) {
            test::CountingProgress progress(call);
            const auto tree = readSafariBookmarks(file, {fakes.services(), &progress});
            ASSERT_FALSE(tree) << call;
            EXPECT_TRUE(isCancelledByUser(tree.error())) << call;
        }
    }
}

} // namespace
} // namespace tabulon
