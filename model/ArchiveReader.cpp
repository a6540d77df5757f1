// The objects of the archive → nodes. What the archive is made of besides nodes is in ArchiveGraph.
#include "model/ArchiveReader.h"

#include "model/ArchiveGraph.h"
#include "model/XmlPlist.h"

namespace tabulon {
namespace {

using archive::Class;
using archive::Graph;
using archive::Key;
using Kind = BinaryPlist::Kind;
using Object = BinaryPlist::Object;

class Reader {
public:
    explicit Reader(Graph& graph) : graph_(graph), isNode_(graph.objectCount(), 0) {}

    /// The node with this number and everything below it.
    Result<Ref<Bookmark>> readTree(std::uint64_t rootUid);

private:
    static constexpr std::uint64_t kNoId = ~std::uint64_t{0};

    struct Pending {
        Bookmark* node;
        std::uint64_t uid;
    };

    const std::vector<Key>& keysOf(const Object& dictionary);
    const Object& valueAt(const Object& dictionary, std::uint64_t index);
    bool readNode(Bookmark& node, std::uint64_t uid);
    bool readValue(Bookmark& node, Key key, const Object& value);
    bool readReference(Bookmark& node, Key key, std::uint64_t uid);
    void readCode(Bookmark& node, Key key, std::uint64_t value);
    bool readChildren(Bookmark& node, std::uint64_t uid);
    bool addChild(Bookmark& node, const Object& reference);

    Graph& graph_;
    std::vector<std::uint8_t> isNode_; // by uid: 1 for the objects that stand in the tree
    std::vector<Pending> pending_;
    Object lastDictionary_; // whose keys `lastKeys_` are
    std::vector<Key> lastKeys_;
    std::vector<std::pair<std::uint64_t, Object>> lastValues_;
};

bool Reader::addChild(Bookmark& node, const Object& reference) {
    if (reference.kind != Kind::Uid || reference.value >= isNode_.size())
        return graph_.damaged("a folder lists an object that is not there.");
    if (isNode_[reference.value] != 0)
        return graph_.damaged("a bookmark stands in two places or inside itself.");
    isNode_[reference.value] = 1;
    Ref<Bookmark> child = Bookmark::initEmpty();
    pending_.push_back({child.get(), reference.value});
    node.addChild(std::move(child));
    return true;
}

bool Reader::readChildren(Bookmark& node, std::uint64_t uid) {
    const Object array = graph_.arrayBehind(uid);
    if (array.kind != Kind::Array)
        return !graph_.isDamaged();
    if (node.getChildren())
        return graph_.damaged("a folder has two lists of children.");
    node.makeChildList(array.value);
    for (std::uint64_t i = 0; i < array.value; ++i)
        if (!addChild(node, graph_.element(array, i)))
            return false;
    // The first child is to be filled first: texts then lie in memory as they lie in the file.
    std::reverse(pending_.end() - static_cast<std::ptrdiff_t>(array.value), pending_.end());
    return true;
}

bool Reader::readReference(Bookmark& node, Key key, std::uint64_t uid) {
    switch (key) {
    case Key::Name:
        node.setItemName(graph_.text(uid));
        break;
    case Key::URL:
        node.setItemURL(graph_.text(uid));
        break;
    case Key::Note:
        node.setItemNote(graph_.text(uid));
        break;
    case Key::Tags:
        node.setItemTags(graph_.text(uid));
        break;
    case Key::DateAdded:
        node.setItemDateAdded(graph_.date(uid));
        break;
    case Key::DateModified:
        node.setItemDateModified(graph_.date(uid));
        break;
    case Key::LastChecked:
        node.setItemLastChecked(graph_.date(uid));
        break;
    case Key::LastOpened:
        node.setItemLastOpened(graph_.date(uid));
        break;
    case Key::Children:
        return readChildren(node, uid);
    default:
        break;
    }
    return !graph_.isDamaged();
}

void Reader::readCode(Bookmark& node, Key key, std::uint64_t value) {
    const auto code = static_cast<std::uint8_t>(value);
    switch (key) {
    case Key::Type:
        node.setType(code);
        break;
    case Key::Label:
        node.setLabel(code);
        break;
    case Key::Flags:
        node.setFlags(code);
        break;
    case Key::Status:
        node.setStatus(code);
        break;
    case Key::Browser:
        node.setItemBrowser(static_cast<std::int64_t>(value));
        break;
    case Key::Folder:
        node.setItemFolder(value != 0);
        break;
    case Key::OpenFolder:
        node.setShowHier(value != 0);
        break;
    case Key::AutoTab:
        node.setAutoTab(value != 0);
        break;
    default:
        break;
    }
}

bool Reader::readValue(Bookmark& node, Key key, const Object& value) {
    switch (value.kind) {
    case Kind::Damaged:
        return graph_.damaged("a value of a bookmark is cut off or has an unknown kind.");
    case Kind::Uid:
        return readReference(node, key, value.value);
    case Kind::Integer:
    case Kind::Boolean:
        readCode(node, key, value.value);
        return true;
    default:
        return true; // a value of the wrong kind counts as missing
    }
}

// Value number `index` of a dictionary whose keys were just looked up. Most of a node's values (null, small
// codes, the class) are the very objects that the node before has in the same place.
const Object& Reader::valueAt(const Object& dictionary, std::uint64_t index) {
    const std::uint64_t id = graph_.idAt(dictionary, dictionary.value + index);
    auto& [lastId, value] = lastValues_[index];
    if (id != lastId) {
        lastId = id;
        value = graph_.object(id);
    }
    return value;
}

// The keys of a node's dictionary. Nodes of one writer have the same ones in the same order, so mostly these
// are those of the node before.
const std::vector<Key>& Reader::keysOf(const Object& dictionary) {
    if (dictionary.value != lastDictionary_.value || !graph_.sameKeys(dictionary, lastDictionary_)) {
        lastKeys_.clear();
        for (std::uint64_t i = 0; i < dictionary.value; ++i)
            lastKeys_.push_back(graph_.keyAt(dictionary, i));
        lastValues_.assign(dictionary.value, {kNoId, Object{}});
        lastDictionary_ = dictionary;
    }
    return lastKeys_;
}

bool Reader::readNode(Bookmark& node, std::uint64_t uid) {
    const Object dictionary = graph_.archived(uid);
    if (dictionary.kind != Kind::Dictionary || !graph_.chargeReferences(dictionary))
        return graph_.damaged("something that is no bookmark stands in its tree.");
    Class kind = Class::Unknown;
    const std::vector<Key>& keys = keysOf(dictionary);
    for (std::uint64_t i = 0; i < keys.size(); ++i) {
        const Key key = keys[i];
        if (key > Key::Class)
            continue;
        const Object& value = valueAt(dictionary, i);
        if (key != Key::Class) {
            if (!readValue(node, key, value))
                return false;
        } else if (value.kind == Kind::Uid) {
            kind = graph_.resolveClass(value.value);
        }
    }
    if (kind != Class::Bookmark)
        return graph_.damaged("something that is no bookmark stands in its tree.");
    node.linkIcon();
    return !graph_.isDamaged();
}

Result<Ref<Bookmark>> Reader::readTree(std::uint64_t rootUid) {
    if (rootUid >= isNode_.size())
        return failure("The file is damaged: its archive has no root folder.");
    Ref<Bookmark> root = Bookmark::initEmpty();
    isNode_[rootUid] = 1;
    pending_.push_back({root.get(), rootUid});
    while (!pending_.empty()) {
        const Pending next = pending_.back();
        pending_.pop_back();
        if (!readNode(*next.node, next.uid))
            return graph_.damage();
    }
    return root;
}

Result<void> readVersion(Graph& graph, std::uint64_t uid) {
    const Object record = graph.archived(uid);
    const bool isRecord = record.kind == Kind::Dictionary && graph.classOf(record) == Class::FileVersion;
    const Object fileType = isRecord ? graph.find(record, Key::FileType) : Object{};
    const Object version = isRecord ? graph.find(record, Key::Version) : Object{};
    if (graph.isDamaged())
        return graph.damage();
    const auto isNumber = [](const Object& object) {
        return object.kind == Kind::Integer || object.kind == Kind::Boolean;
    };
    if (!isNumber(fileType) || fileType.value != archive::kDocumentFileType)
        return failure("The file is an archive, but not a bookmark document.", ErrorDomain::Cocoa,
                       kUserCancelledError);
    if (!isNumber(version) || version.value != archive::kDocumentVersion)
        return failure("The document has a version that this program does not know; a newer one may open it.",
                       ErrorDomain::Cocoa, kUserCancelledError);
    return {};
}

Result<Ref<Bookmark>> readDocument(Graph& graph, std::uint64_t rootUid) {
    const Object pair = graph.arrayBehind(rootUid);
    if (graph.isDamaged())
        return graph.damage();
    if (pair.kind != Kind::Array || pair.value != 2)
        return failure("The file is an archive, but its root is not that of a bookmark document.");
    const Object version = graph.element(pair, 0);
    const Object master = graph.element(pair, 1);
    if (version.kind != Kind::Uid || master.kind != Kind::Uid)
        return failure("The file is damaged: the root of its archive is incomplete.");
    if (const Result<void> accepted = readVersion(graph, version.value); !accepted)
        return tl::unexpected(accepted.error());
    return Reader(graph).readTree(master.value);
}

Result<Ref<Bookmark>> readNode(Graph& graph, std::uint64_t rootUid) {
    return Reader(graph).readTree(rootUid);
}

bool looksLikeXml(std::string_view data) {
    for (const std::string_view mark : {"\xEF\xBB\xBF", "\xFE\xFF", "\xFF\xFE"})
        if (data.starts_with(mark))
            return true;
    const std::size_t first = data.find_first_not_of(" \t\r\n");
    return first != std::string_view::npos && data[first] == '<';
}

Result<Ref<Bookmark>> readBinary(std::string_view data,
                                 Result<Ref<Bookmark>> (*read)(Graph&, std::uint64_t)) {
    const Result<BinaryPlist> plist = BinaryPlist::open(data);
    if (!plist)
        return tl::unexpected(plist.error());
    Graph graph(*plist, data.size());
    const Result<std::uint64_t> root = graph.open();
    return root ? read(graph, *root) : Result<Ref<Bookmark>>(tl::unexpected(root.error()));
}

Result<Ref<Bookmark>> readArchive(std::string_view data,
                                  Result<Ref<Bookmark>> (*read)(Graph&, std::uint64_t)) {
    if (data.empty())
        return failure("The file is empty.");
    if (data.starts_with("bplist"))
        return readBinary(data, read);
    if (!looksLikeXml(data))
        return failure("The file is not a bookmark document.");
    const Result<std::string> binary = binaryPlistFromXml(data);
    return binary ? readBinary(*binary, read) : Result<Ref<Bookmark>>(tl::unexpected(binary.error()));
}

} // namespace

Result<Ref<Bookmark>> readDocumentArchive(std::string_view data) {
    return readArchive(data, readDocument);
}

Result<Ref<Bookmark>> readNodeArchive(std::string_view data) {
    return readArchive(data, readNode);
}

} // namespace tabulon
