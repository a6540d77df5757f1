// Tests the files of the document writer. The system tests read such files with independent programs.
#include "model/ArchiveWriter.h"

#include "model/ArchiveKeys.h"
#include "model/ArchiveReader.h"
#include "model/TreeWalk.h"
#include "platform/fake/FakeBaseServices.h"
#include "plist/BinaryPlist.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace tabulon {
namespace {

using Kind = BinaryPlist::Kind;
using Object = BinaryPlist::Object;

// Access to the objects of a file by key, through `BinaryPlist` only.
class Written {
public:
    explicit Written(const std::string& bytes) : bytes_(bytes), plist_(*BinaryPlist::open(bytes_)) {}

    std::vector<std::pair<std::string, Object>> pairs(const Object& dictionary) const {
        std::vector<std::pair<std::string, Object>> result;
        for (std::uint64_t i = 0; i < dictionary.count(); ++i)
            result.emplace_back(BinaryPlist::text(plist_.object(plist_.reference(dictionary, i))).string(),
                                plist_.object(plist_.reference(dictionary, dictionary.count() + i)));
        return result;
    }
    Object value(const Object& dictionary, const std::string& key) const {
        for (const auto& [name, object] : pairs(dictionary))
            if (name == key)
                return object;
        return {};
    }
    Object element(const Object& array, std::uint64_t i) const {
        return plist_.object(plist_.reference(array, i));
    }
    Object top() const { return plist_.object(plist_.topObject()); }
    Object archived(const Object& reference) const {
        EXPECT_EQ(reference.kind(), Kind::Uid);
        return element(value(top(), "$objects"), reference.value());
    }
    std::string className(const Object& dictionary) const {
        return BinaryPlist::text(value(archived(value(dictionary, "$class")), "$classname")).string();
    }
    Object root() const { return archived(value(value(top(), "$top"), "root")); }

private:
    std::string bytes_;
    BinaryPlist plist_;
};

TEST(ArchiveWriter, frameOfTheArchive) {
    const Written written(writeDocumentArchive(*Bookmark::initEmpty()));
    EXPECT_EQ(written.value(written.top(), "$version").value(), 100000u);
    EXPECT_EQ(BinaryPlist::text(written.value(written.top(), "$archiver")), Text("NSKeyedArchiver"));
    const Object objects = written.value(written.top(), "$objects");
    EXPECT_EQ(BinaryPlist::text(written.element(objects, 0)), Text("$null"));
    EXPECT_EQ(written.className(written.root()), "NSArray");
    EXPECT_EQ(written.value(written.root(), "NS.objects").count(), 2u);
}

TEST(ArchiveWriter, versionRecord) {
    const Written written(writeDocumentArchive(*Bookmark::initEmpty()));
    const Object record = written.archived(written.element(written.value(written.root(), "NS.objects"), 0));
    EXPECT_EQ(written.className(record), "FileVersion");
    EXPECT_EQ(written.value(record, "Version").value(), 1u);
    EXPECT_EQ(written.value(record, "SortOrder").value(), 0u);
    EXPECT_EQ(written.value(record, "FileType").value(), 1415736430u);
}

TEST(ArchiveWriter, nodeHasAllKeysInOrder) {
    Ref<Bookmark> master = Bookmark::initEmpty();
    master->setItemName("Master");
    const Written written(writeDocumentArchive(*master));
    const Object node = written.archived(written.element(written.value(written.root(), "NS.objects"), 1));
    std::vector<std::string> keys;
    for (const auto& [name, object] : written.pairs(node))
        keys.push_back(name);
    EXPECT_EQ(keys,
              (std::vector<std::string>{"Name", "URL", "Note", "Tags", "DateAdded", "DateModified",
                                        "LastChecked", "LastOpened", "Type", "Label", "Flags", "Status",
                                        "Browser", "Folder", "OpenFolder", "AutoTab", "Children", "$class"}));
    EXPECT_EQ(written.className(node), "Bookmark");
    EXPECT_EQ(BinaryPlist::text(written.archived(written.value(node, "Name"))), Text("Master"));
}

TEST(ArchiveWriter, absentTextsDatesAndChildrenAreTheArchiversNull) {
    const Written written(writeDocumentArchive(*Bookmark::initEmpty()));
    const Object node = written.archived(written.element(written.value(written.root(), "NS.objects"), 1));
    for (const char* key : {"Name", "URL", "Note", "Tags", "DateAdded", "DateModified", "LastChecked",
                            "LastOpened", "Children"}) {
        EXPECT_EQ(written.value(node, key).kind(), Kind::Uid) << key;
        EXPECT_EQ(written.value(node, key).value(), 0u) << key;
    }
    EXPECT_EQ(written.value(node, "Folder").kind(), Kind::Boolean);
    EXPECT_EQ(written.value(node, "Type").kind(), Kind::Integer);
}

TEST(ArchiveWriter, childrenAreAMutableArrayInOrder) {
    Ref<Bookmark> master = Bookmark::initEmpty();
    for (const char* name : {"a", "b", "c"}) {
        Ref<Bookmark> child = Bookmark::initEmpty();
        child->setItemName(name);
        master->addChild(child);
    }
    const Written written(writeDocumentArchive(*master));
    const Object node = written.archived(written.element(written.value(written.root(), "NS.objects"), 1));
    const Object list = written.archived(written.value(node, "Children"));
    EXPECT_EQ(written.className(list), "NSMutableArray");
    const Object items = written.value(list, "NS.objects");
    ASSERT_EQ(items.count(), 3u);
    std::string names;
    for (std::uint64_t i = 0; i < 3; ++i)
        names += BinaryPlist::text(
                     written.archived(written.value(written.archived(written.element(items, i)), "Name")))
                     .view();
    EXPECT_EQ(names, "abc");
}

TEST(ArchiveWriter, searchResultKeepsItsOwnClassName) {
    FakeBaseServices fake;
    const Written written(writeNodeArchive(*Bookmark2::init(fake.now())));
    EXPECT_EQ(written.className(written.root()), "Bookmark2");
}

TEST(ArchiveWriter, oneNodeAloneReadsBack) {
    FakeBaseServices fake;
    Ref<Bookmark> folder = Bookmark::init(fake.now());
    folder->makeParent();
    folder->setItemName("f");
    folder->addChild(Bookmark::init(fake.now()));
    const auto again = readNodeArchive(writeNodeArchive(*folder));
    ASSERT_TRUE(again) << again.error().message;
    EXPECT_EQ((*again)->itemName(), Text("f"));
    EXPECT_EQ((*again)->getChildren()->size(), 1u);
    EXPECT_FALSE(readDocumentArchive(writeNodeArchive(*folder)));
}

// Returns a random tree that uses every field.
Ref<Bookmark> randomTree(std::mt19937& random, int nodes) {
    const auto text = [&]() -> Text {
        static const std::vector<std::string> kTexts = {
            "",          "plain", "ünïcödé", "日本語", "😀😀", std::string("a\0b", 3), std::string(70000, 'z'),
            "\"<&>'\n\t"};
        return random() % 4 == 0 ? Text() : Text(kTexts[random() % (random() % 50 == 0 ? 8 : 6)]);
    };
    const auto date = [&] { return random() % 2 ? Date() : Date::fromReferenceSeconds(random() / 7.0); };
    Ref<Bookmark> root = Bookmark::initEmpty();
    root->makeParent();
    std::vector<Bookmark*> all{root.get()};
    for (int i = 0; i < nodes; ++i) {
        Ref<Bookmark> node = Bookmark::initEmpty();
        node->setItemName(text());
        node->setItemURL(text());
        node->setItemNote(text());
        node->setItemTags(text());
        node->setItemDateAdded(date());
        node->setItemDateModified(date());
        node->setItemLastChecked(date());
        node->setItemLastOpened(date());
        node->setType(static_cast<std::uint8_t>(random() % 256));
        node->setLabel(static_cast<std::uint8_t>(random()));
        node->setFlags(static_cast<std::uint8_t>(random()));
        node->setStatus(static_cast<std::uint8_t>(random()));
        node->setItemBrowser(static_cast<std::int64_t>(random()) * (random() % 2 ? 1 : -2000000000));
        node->setItemFolder(random() % 2);
        node->setShowHier(random() % 2);
        node->setAutoTab(random() % 2);
        if (random() % 3 == 0)
            node->makeChildList();
        Bookmark* parent = all[random() % all.size()];
        all.push_back(node.get());
        parent->addChild(std::move(node));
    }
    return root;
}

void expectSame(const Bookmark& a, const Bookmark& b) {
    EXPECT_EQ(a.itemName(), b.itemName());
    EXPECT_EQ(a.itemURL(), b.itemURL());
    EXPECT_EQ(a.itemNote(), b.itemNote());
    EXPECT_EQ(a.itemTags(), b.itemTags());
    EXPECT_EQ(a.itemDateAdded(), b.itemDateAdded());
    EXPECT_EQ(a.itemDateModified(), b.itemDateModified());
    EXPECT_EQ(a.itemLastChecked(), b.itemLastChecked());
    EXPECT_EQ(a.itemLastOpened(), b.itemLastOpened());
    EXPECT_EQ(a.getType(), b.getType());
    EXPECT_EQ(a.getLabel(), b.getLabel());
    EXPECT_EQ(a.getFlags(), b.getFlags());
    EXPECT_EQ(a.getStatus(), b.getStatus());
    EXPECT_EQ(a.itemBrowser(), b.itemBrowser());
    EXPECT_EQ(a.isFolder(), b.isFolder());
    EXPECT_EQ(a.showHier(), b.showHier());
    EXPECT_EQ(a.getAutoTab(), b.getAutoTab());
    ASSERT_EQ(a.getChildren() == nullptr, b.getChildren() == nullptr);
    if (const ChildList* list = a.getChildren()) {
        ASSERT_EQ(list->size(), b.getChildren()->size());
    }
}

TEST(ArchiveWriter, roundTripKeepsEverything) {
    std::mt19937 random(3);
    for (const int nodes : {0, 1, 5, 40, 300, 5000}) {
        const Ref<Bookmark> tree = randomTree(random, nodes);
        const std::string bytes = writeDocumentArchive(*tree);
        const auto again = readDocumentArchive(bytes);
        ASSERT_TRUE(again) << again.error().message;
        std::vector<const Bookmark*> before{tree.get()};
        std::vector<const Bookmark*> after{again->get()};
        walkBelow(*tree, [&](Bookmark& node) { return before.push_back(&node), true; });
        walkBelow(**again, [&](Bookmark& node) { return after.push_back(&node), true; });
        ASSERT_EQ(before.size(), after.size());
        for (std::size_t i = 0; i < before.size(); ++i)
            expectSame(*before[i], *after[i]);
        EXPECT_EQ(writeDocumentArchive(**again), bytes);
    }
}

TEST(ArchiveWriter, aLongTextOfManyNodesIsWrittenOnce) {
    const std::string text(5'000'000, 'x');
    Ref<Bookmark> master = Bookmark::initEmpty();
    for (int i = 0; i < 1000; ++i) {
        Ref<Bookmark> link = Bookmark::initEmpty();
        if (i == 0)
            link->setItemURL(text);
        else
            link->setItemURL(i % 2 == 0 ? master->getChild()->itemURL() : Text(text.substr(0, 2000)));
        master->addChild(std::move(link));
    }
    const std::string bytes = writeDocumentArchive(*master);
    EXPECT_LT(bytes.size(), 6'000'000u);
    const auto again = readDocumentArchive(bytes);
    ASSERT_TRUE(again);
    EXPECT_EQ((*again)->getLast()->itemURL().view(), text.substr(0, 2000));
    EXPECT_EQ(writeDocumentArchive(**again), bytes) << "reading does not share what writing does not";
}

// The length of the text does not matter. Otherwise a small file whose nodes share a text would grow with
// each save.
TEST(ArchiveWriter, aTextThatManyNodesHaveIsWrittenOnce) {
    constexpr std::size_t kNodes = 2000;
    const auto sizeWith = [](std::size_t length) {
        Ref<Bookmark> master = Bookmark::initEmpty();
        master->makeParent();
        for (std::size_t i = 0; i < kNodes; ++i) {
            Ref<Bookmark> node = Bookmark::initEmpty();
            node->setItemURL(std::string(length, 'x'));
            master->addChild(std::move(node));
        }
        const std::string bytes = writeDocumentArchive(*master);
        const auto again = readDocumentArchive(bytes);
        EXPECT_TRUE(again && writeDocumentArchive(**again) == bytes);
        return bytes.size();
    };
    const std::size_t least = sizeWith(1);
    for (const std::size_t length : {2, 20, 64, 65, 255, 256, 1023, 1024, 5000})
        EXPECT_LE(sizeWith(length), least + length + 16) << length;
}

// Returns a document in which node `i` has the URL `urlOf(i)`.
template <class URLOf>
std::string documentOfURLs(int nodes, const URLOf& urlOf) {
    const Ref<Bookmark> master = Bookmark::initEmpty();
    master->makeParent();
    for (int i = 0; i < nodes; ++i) {
        Ref<Bookmark> node = Bookmark::initEmpty();
        node->setItemURL(urlOf(i));
        master->addChild(std::move(node));
    }
    return writeDocumentArchive(*master);
}

std::size_t occurrences(const std::string& bytes, const std::string& text) {
    std::size_t count = 0;
    for (std::size_t at = bytes.find(text); at != std::string::npos; at = bytes.find(text, at + 1))
        ++count;
    return count;
}

TEST(ArchiveWriter, alternatingTextsOfOnePatternAreWrittenOnce) {
    const auto url = [](int i) { return std::string("https://example.org/") + "ab"[i % 2] + "/index.html"; };
    const std::string bytes = documentOfURLs(20'000, url);
    EXPECT_EQ(occurrences(bytes, url(0)), 1u);
    EXPECT_EQ(occurrences(bytes, url(1)), 1u);
}

// Some of the 10,000 other texts fall into the same slot of the writer as the text of every second node.
TEST(ArchiveWriter, aTextIsWrittenOnceWhateverStandsBetween) {
    const std::string often = "https://example.org/often";
    const std::string bytes = documentOfURLs(
        20'000, [&](int i) { return i % 2 == 0 ? often : "https://example.org/" + std::to_string(i); });
    EXPECT_EQ(occurrences(bytes, often), 1u);
}

} // namespace
} // namespace tabulon
