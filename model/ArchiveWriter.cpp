// One pass over the tree counts the objects, a second one writes them. The children of a folder have
// consecutive numbers, so that their list can be written before them.
#include "model/ArchiveWriter.h"

#include "model/ArchiveKeys.h"
#include "model/TreeWalk.h"
#include "plist/PlistWriter.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace tabulon {
namespace {

using archive::Key;

/// The size in bytes from which every text is written only once. Shorter texts are compared with recent ones
/// only.
constexpr std::size_t kLongText = 256;

constexpr std::size_t kVersionClass = 0;
constexpr std::size_t kBookmarkClass = 1;
constexpr std::size_t kBookmark2Class = 2;
constexpr std::size_t kArrayClass = 3;
constexpr std::size_t kMutableArrayClass = 4;
constexpr std::size_t kDateClass = 5;
/// Each class with its ancestors, by the numbers above.
constexpr std::array<std::array<std::string_view, 3>, 6> kClasses = {{
    {"FileVersion", "NSObject"},
    {"Bookmark", "NSObject"},
    {"Bookmark2", "Bookmark", "NSObject"},
    {"NSArray", "NSObject"},
    {"NSMutableArray", "NSArray", "NSObject"},
    {"NSDate", "NSObject"},
}};

struct Extent {
    std::uint64_t objects = 128; // keys, classes, the version record and the frame, and small numbers
    std::size_t bytes = 4096;

    void add(const Bookmark& node) {
        std::uint64_t fields = 0;
        for (const Text* text : {&node.itemName(), &node.itemURL(), &node.itemNote(), &node.itemTags()})
            fields += text->isNull() ? 0 : 1;
        for (const Date date :
             {node.itemDateAdded(), node.itemDateModified(), node.itemLastChecked(), node.itemLastOpened()})
            fields += date.isNull() ? 0 : 2;
        // The node and its reference, the objects of its fields, its list of children, five codes.
        objects += 2 + 2 * fields + 3 + 5;
        bytes += 300 + 40 * fields;
    }
};

Extent extentOf(const Bookmark& root) {
    Extent extent;
    extent.add(root);
    walkBelow(root, [&](Bookmark& node) {
        extent.add(node);
        return true;
    });
    return extent;
}

class Writer {
public:
    explicit Writer(const Extent& extent) : plist_(extent.objects, extent.bytes) {
        objects_.reserve(extent.objects / 2); // each object has a reference, which is not in the vector
        for (std::size_t key = 0; key < archive::kKeyCount; ++key)
            keys_[key] = plist_.writeText(archive::kKeyNames[key]);
        objects_.push_back(plist_.writeText("$null"));
        nodeKeys_ = plist_.layOutKeys(keys_.data(), archive::kNodeKeyCount);
        dateKeys_ = plist_.layOutKeys({key(Key::Time), key(Key::Class)});
        arrayKeys_ = plist_.layOutKeys({key(Key::Objects), key(Key::Class)});
        null_ = plist_.writeUid(0);
        false_ = plist_.writeBoolean(false);
        true_ = plist_.writeBoolean(true);
    }

    std::string writeDocument(const Bookmark& master);
    std::string writeNode(const Bookmark& node);

private:
    struct Level {
        ChildList::iterator next;
        ChildList::iterator end;
        std::uint64_t uid; // of the next node
    };

    std::uint64_t key(Key name) const { return keys_[static_cast<std::size_t>(name)]; }
    std::uint64_t newUid() {
        objects_.push_back(0);
        return objects_.size() - 1;
    }
    std::uint64_t reserveUids(std::uint64_t count) {
        const std::uint64_t first = objects_.size();
        objects_.resize(first + count);
        return first;
    }

    void writeTree(const Bookmark& root, std::uint64_t uid);
    void writeOne(const Bookmark& node, std::uint64_t uid, std::vector<Level>& levels);
    std::uint64_t children(const Bookmark& node, std::vector<Level>& levels);
    std::uint64_t textReference(const Text& text);
    std::uint64_t longTextReference(const Text& text);
    std::uint64_t newText(std::string_view text);
    static std::size_t slotFor(std::string_view text);
    std::uint64_t dateReference(Date date);
    std::uint64_t arrayObject(std::uint64_t elements, std::size_t name);
    std::uint64_t integer(std::int64_t value);
    std::uint64_t boolean(bool value) const { return value ? true_ : false_; }
    std::uint64_t classReference(std::size_t name);
    void writeVersion(std::uint64_t uid);
    std::string finish();

    PlistWriter plist_;
    std::array<std::uint64_t, archive::kKeyCount> keys_{};
    std::vector<std::uint64_t> objects_; // by uid: the object's number in the property list
    PlistWriter::Keys nodeKeys_;
    PlistWriter::Keys dateKeys_;
    PlistWriter::Keys arrayKeys_;
    std::array<std::uint64_t, kClasses.size()> classes_{}; // the reference to each, or 0 if not written yet
    std::map<std::int64_t, std::uint64_t> integers_;
    std::array<std::uint64_t, 256> bytes_{};
    std::unordered_map<std::string_view, std::uint64_t> longTexts_; // the reference to each
    std::unordered_map<const char*, std::uint64_t> sharedTexts_; // the reference, by the address of the text
    static constexpr unsigned kSlotBits = 12;
    struct Recent {
        std::string_view text;
        std::uint64_t reference = 0; // 0 for no text

        bool isOf(std::string_view other) const { return reference != 0 && text == other; }
    };
    struct Slot {
        Recent latest;
        Recent other;
    };
    std::vector<Slot> recentTexts_{std::size_t{1} << kSlotBits}; // short texts, by their hash
    std::uint64_t null_ = 0;
    std::uint64_t false_ = 0;
    std::uint64_t true_ = 0;
};

std::uint64_t Writer::integer(std::int64_t value) {
    std::uint64_t& id =
        value >= 0 && value < 256 ? bytes_[static_cast<std::size_t>(value)] : integers_[value];
    if (id == 0)
        id = plist_.writeInteger(value);
    return id;
}

// Returns the reference to a class. The first call for a class writes its description.
std::uint64_t Writer::classReference(std::size_t name) {
    std::uint64_t& reference = classes_[name];
    if (reference != 0)
        return reference;
    std::vector<std::uint64_t> ancestry;
    for (const std::string_view ancestor : kClasses[name])
        if (!ancestor.empty())
            ancestry.push_back(plist_.writeText(ancestor));
    const std::uint64_t array = plist_.writeArray(ancestry);
    const auto keys = plist_.layOutKeys({key(Key::ClassName), key(Key::Classes)});
    const std::uint64_t uid = newUid();
    objects_[uid] = plist_.writeDictionary(keys, {ancestry.front(), array});
    return reference = plist_.writeUid(uid);
}

std::uint64_t Writer::textReference(const Text& text) {
    if (text.isNull())
        return null_;
    // A long text is written once, for all nodes that have it. Otherwise a small file whose nodes share a
    // long text would become very large when it is saved again. Equal texts are found by content and not by
    // shared memory, so that the same tree always has the same file.
    if (text.view().size() >= kLongText)
        return longTextReference(text);
    Slot& slot = recentTexts_[slotFor(text.view())];
    if (slot.latest.isOf(text.view()))
        return slot.latest.reference;
    std::swap(slot.latest, slot.other);
    if (!slot.latest.isOf(text.view()))
        slot.latest = {text.view(), newText(text.view())};
    return slot.latest.reference;
}

// Returns the reference to a long text. The content of a text that is shared in memory is hashed only once.
std::uint64_t Writer::longTextReference(const Text& text) {
    std::uint64_t* const shared = text.isShared() ? &sharedTexts_[text.view().data()] : nullptr;
    if (shared && *shared != 0)
        return *shared;
    std::uint64_t& reference = longTexts_[text.view()];
    if (reference == 0)
        reference = newText(text.view());
    if (shared)
        *shared = reference;
    return reference;
}

std::uint64_t Writer::newText(std::string_view text) {
    const std::uint64_t uid = newUid();
    objects_[uid] = plist_.writeText(text);
    return plist_.writeUid(uid);
}

// Returns the slot for a short text. A look-up among all short texts would take longer than writing the text
// again. The hash covers the whole text, because texts of one pattern may differ only in the middle.
std::size_t Writer::slotFor(std::string_view text) {
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15u;
    std::uint64_t hash = text.size();
    for (std::size_t place = 0; place < text.size(); place += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + place, std::min<std::size_t>(text.size() - place, 8));
        hash = (hash ^ word) * kFactor;
        hash ^= hash >> 32;
    }
    return hash * kFactor >> (64 - kSlotBits);
}

std::uint64_t Writer::dateReference(Date date) {
    if (date.isNull())
        return null_;
    const std::uint64_t time = plist_.writeReal(date.referenceSeconds());
    const std::uint64_t uid = newUid();
    objects_[uid] = plist_.writeDictionary(dateKeys_, {time, classReference(kDateClass)});
    return plist_.writeUid(uid);
}

std::uint64_t Writer::arrayObject(std::uint64_t elements, std::size_t name) {
    const std::uint64_t reference = classReference(name);
    return plist_.writeDictionary(arrayKeys_, {elements, reference});
}

std::uint64_t Writer::children(const Bookmark& node, std::vector<Level>& levels) {
    const ChildList* list = node.getChildren();
    if (!list)
        return null_;
    const std::uint64_t firstUid = reserveUids(list->size());
    const std::uint64_t firstReference = plist_.objectCount();
    for (std::uint64_t i = 0; i < list->size(); ++i)
        plist_.writeUid(firstUid + i);
    const std::uint64_t elements = plist_.writeArrayOfConsecutive(firstReference, list->size());
    const std::uint64_t uid = newUid();
    objects_[uid] = arrayObject(elements, kMutableArrayClass);
    levels.push_back({list->begin(), list->end(), firstUid});
    return plist_.writeUid(uid);
}

void Writer::writeOne(const Bookmark& node, std::uint64_t uid, std::vector<Level>& levels) {
    const std::array<std::uint64_t, archive::kNodeKeyCount> values{
        textReference(node.itemName()),
        textReference(node.itemURL()),
        textReference(node.itemNote()),
        textReference(node.itemTags()),
        dateReference(node.itemDateAdded()),
        dateReference(node.itemDateModified()),
        dateReference(node.itemLastChecked()),
        dateReference(node.itemLastOpened()),
        integer(node.getType()),
        integer(node.getLabel()),
        integer(node.getFlags()),
        integer(node.getStatus()),
        integer(node.itemBrowser()),
        boolean(node.isFolder()),
        boolean(node.showHier()),
        boolean(node.getAutoTab()),
        children(node, levels),
        classReference(node.isBookmark2() ? kBookmark2Class : kBookmarkClass),
    };
    objects_[uid] = plist_.writeDictionary(nodeKeys_, values.data());
}

void Writer::writeTree(const Bookmark& root, std::uint64_t uid) {
    std::vector<Level> levels;
    writeOne(root, uid, levels);
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next == level.end) {
            levels.pop_back();
            continue;
        }
        const Bookmark& node = **level.next;
        ++level.next;
        if (level.next != level.end)
            prefetchTexts(**level.next);
        writeOne(node, level.uid++, levels);
    }
}

void Writer::writeVersion(std::uint64_t uid) {
    const auto keys =
        plist_.layOutKeys({key(Key::Version), key(Key::SortOrder), key(Key::FileType), key(Key::Class)});
    objects_[uid] =
        plist_.writeDictionary(keys, {integer(archive::kDocumentVersion), integer(0),
                                      integer(archive::kDocumentFileType), classReference(kVersionClass)});
}

std::string Writer::finish() {
    const std::uint64_t objects = plist_.writeArray(objects_);
    const std::uint64_t top =
        plist_.writeDictionary(plist_.layOutKeys({key(Key::Root)}), {plist_.writeUid(1)});
    const std::uint64_t version = plist_.writeInteger(archive::kArchiverVersion);
    const std::uint64_t archiver = plist_.writeText(archive::kArchiverName);
    const auto keys = plist_.layOutKeys({key(Key::ArchiveVersion), key(Key::ArchiveArchiver),
                                         key(Key::ArchiveTop), key(Key::ArchiveObjects)});
    return plist_.finish(plist_.writeDictionary(keys, {version, archiver, top, objects}));
}

std::string Writer::writeDocument(const Bookmark& master) {
    const std::uint64_t root = newUid();
    const std::uint64_t elements = reserveUids(2);
    const std::uint64_t firstReference = plist_.writeUid(elements);
    plist_.writeUid(elements + 1);
    objects_[root] = arrayObject(plist_.writeArrayOfConsecutive(firstReference, 2), kArrayClass);
    writeVersion(elements);
    writeTree(master, elements + 1);
    return finish();
}

std::string Writer::writeNode(const Bookmark& node) {
    const std::uint64_t root = newUid();
    writeTree(node, root);
    return finish();
}

} // namespace

std::string writeDocumentArchive(const Bookmark& master) {
    return Writer(extentOf(master)).writeDocument(master);
}

std::string writeNodeArchive(const Bookmark& node) {
    return Writer(extentOf(node)).writeNode(node);
}

} // namespace tabulon
