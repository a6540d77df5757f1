// One pass over the tree counts, a second one writes. Objects are numbered as they are met: the children of a
// folder get consecutive numbers, so that their list can be written before they are.
#include "model/ArchiveWriter.h"

#include "model/ArchiveKeys.h"
#include "model/PlistWriter.h"
#include "model/TreeWalk.h"

#include <array>
#include <map>

namespace tabulon {
namespace {

using archive::Key;

struct Extent {
    std::uint64_t objects = 128; // keys, classes, the version record and the frame, and small numbers
    std::size_t bytes = 4096;

    void add(const Bookmark& node) {
        std::uint64_t fields = 0;
        for (const Text* text : {&node.itemName(), &node.itemURL(), &node.itemNote(), &node.itemTags()})
            if (!text->isNull()) {
                ++fields;
                bytes += text->view().size() + 24;
            }
        for (const Date date :
             {node.itemDateAdded(), node.itemDateModified(), node.itemLastChecked(), node.itemLastOpened()})
            if (!date.isNull()) {
                fields += 2;
                bytes += 60;
            }
        // The node and its reference, what its fields refer to, its list of children, five codes.
        objects += 2 + 2 * fields + 3 + 5;
        bytes += 200;
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
        for (std::size_t key = 0; key < archive::kKeyCount; ++key)
            keys_[key] = plist_.writeText(archive::kKeyNames[key]);
        objects_.push_back(plist_.writeText("$null"));
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
        std::uint64_t uid; // of the node that comes next
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
    std::uint64_t dateReference(Date date);
    std::uint64_t arrayObject(std::uint64_t elements, const std::string& className);
    std::uint64_t integer(std::int64_t value);
    std::uint64_t boolean(bool value) const { return value ? true_ : false_; }
    std::uint64_t classReference(const std::string& name);
    void writeVersion(std::uint64_t uid);
    std::string finish();

    PlistWriter plist_;
    std::array<std::uint64_t, archive::kKeyCount> keys_{};
    std::vector<std::uint64_t> objects_; // by uid: the object's number in the property list
    std::map<std::string, std::uint64_t> classes_;
    std::map<std::int64_t, std::uint64_t> integers_;
    std::array<std::uint64_t, 256> bytes_{};
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

// The reference to a class, whose description is written where it is first asked for.
std::uint64_t Writer::classReference(const std::string& name) {
    if (const auto known = classes_.find(name); known != classes_.end())
        return known->second;
    static const std::map<std::string, std::string> kParents = {{"Bookmark2", "Bookmark"},
                                                                {"NSMutableArray", "NSArray"}};
    std::vector<std::uint64_t> ancestry{plist_.writeText(name)};
    if (const auto parent = kParents.find(name); parent != kParents.end())
        ancestry.push_back(plist_.writeText(parent->second));
    ancestry.push_back(plist_.writeText("NSObject"));
    const std::array keys{key(Key::ClassName), key(Key::Classes)};
    const std::array values{ancestry.front(), plist_.writeArray(ancestry)};
    const std::uint64_t uid = newUid();
    objects_[uid] = plist_.writeDictionary(keys.data(), values.data(), 2);
    return classes_[name] = plist_.writeUid(uid);
}

std::uint64_t Writer::textReference(const Text& text) {
    if (text.isNull())
        return null_;
    const std::uint64_t uid = newUid();
    objects_[uid] = plist_.writeText(text.view());
    return plist_.writeUid(uid);
}

std::uint64_t Writer::dateReference(Date date) {
    if (date.isNull())
        return null_;
    const std::array keys{key(Key::Time), key(Key::Class)};
    const std::array values{plist_.writeReal(date.referenceSeconds()), classReference("NSDate")};
    const std::uint64_t uid = newUid();
    objects_[uid] = plist_.writeDictionary(keys.data(), values.data(), 2);
    return plist_.writeUid(uid);
}

std::uint64_t Writer::arrayObject(std::uint64_t elements, const std::string& className) {
    const std::array keys{key(Key::Objects), key(Key::Class)};
    const std::array values{elements, classReference(className)};
    return plist_.writeDictionary(keys.data(), values.data(), 2);
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
    objects_[uid] = arrayObject(elements, "NSMutableArray");
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
        classReference(node.isBookmark2() ? "Bookmark2" : "Bookmark"),
    };
    objects_[uid] = plist_.writeDictionary(keys_.data(), values.data(), values.size());
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
        writeOne(node, level.uid++, levels);
    }
}

void Writer::writeVersion(std::uint64_t uid) {
    const std::array keys{key(Key::Version), key(Key::SortOrder), key(Key::FileType), key(Key::Class)};
    const std::array values{integer(archive::kDocumentVersion), integer(0),
                            integer(archive::kDocumentFileType), classReference("FileVersion")};
    objects_[uid] = plist_.writeDictionary(keys.data(), values.data(), keys.size());
}

std::string Writer::finish() {
    const std::uint64_t objects = plist_.writeArray(objects_);
    const std::uint64_t rootKey = key(Key::Root);
    const std::uint64_t rootUid = plist_.writeUid(1);
    const std::array keys{key(Key::ArchiveVersion), key(Key::ArchiveArchiver), key(Key::ArchiveTop),
                          key(Key::ArchiveObjects)};
    const std::array values{plist_.writeInteger(archive::kArchiverVersion),
                            plist_.writeText(archive::kArchiverName),
                            plist_.writeDictionary(&rootKey, &rootUid, 1), objects};
    return plist_.finish(plist_.writeDictionary(keys.data(), values.data(), keys.size()));
}

std::string Writer::writeDocument(const Bookmark& master) {
    const std::uint64_t root = newUid();
    const std::uint64_t elements = reserveUids(2);
    const std::uint64_t firstReference = plist_.writeUid(elements);
    plist_.writeUid(elements + 1);
    objects_[root] = arrayObject(plist_.writeArrayOfConsecutive(firstReference, 2), "NSArray");
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
