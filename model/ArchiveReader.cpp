// The objects of the archive → nodes. What the archive is made of besides nodes is in ArchiveGraph.
#include "model/ArchiveReader.h"

#include "model/ArchiveGraph.h"
#include "model/PropertyList.h"

namespace tabulon {
namespace {

using archive::Class;
using archive::Graph;
using archive::Key;
using Kind = BinaryPlist::Kind;
using Object = BinaryPlist::Object;

/// The plain numbers of a node.
struct Codes {
    std::uint8_t type = 0;
    std::uint8_t label = 0;
    std::uint8_t flags = 0;
    std::uint8_t status = 0;
    std::int64_t browser = 0;
    bool folder = false;
    bool openFolder = false;
    bool autoTab = false;

    void set(Key key, std::uint64_t value);
    void give(Bookmark& node) const;
};

void Codes::set(Key key, std::uint64_t value) {
    const auto code = static_cast<std::uint8_t>(value);
    switch (key) {
    case Key::Type:
        type = code;
        break;
    case Key::Label:
        label = code;
        break;
    case Key::Flags:
        flags = code;
        break;
    case Key::Status:
        status = code;
        break;
    case Key::Browser:
        browser = static_cast<std::int64_t>(value);
        break;
    case Key::Folder:
        folder = value != 0;
        break;
    case Key::OpenFolder:
        openFolder = value != 0;
        break;
    case Key::AutoTab:
        autoTab = value != 0;
        break;
    default:
        break;
    }
}

void Codes::give(Bookmark& node) const {
    node.setType(type);
    node.setLabel(label);
    node.setFlags(flags);
    node.setStatus(status);
    node.setItemBrowser(browser);
    node.setItemFolder(folder);
    node.setShowHier(openFolder);
    node.setAutoTab(autoTab);
    node.linkIcon();
}

class Reader {
public:
    explicit Reader(Graph& graph) : graph_(graph), isNode_(graph.objectCount(), 0) {}

    /// The node with this number and everything below it.
    Result<Ref<Bookmark>> readTree(std::uint64_t rootUid);

private:
    static constexpr std::uint64_t kNoId = ~std::uint64_t{0};

    /// A node to be read, and the folder it goes into.
    struct Pending {
        Bookmark* parent;
        std::uint64_t uid;
    };

    /// A key of the nodes that are being read.
    struct Column {
        Key key;
        std::uint64_t place;     // of its value among a dictionary's references
        std::uint64_t settledId; // the value that needs no second look, or kNoId
    };

    bool readNode(Bookmark& node, std::uint64_t uid);
    bool lookUpKeys(Object dictionary);
    bool readValue(Bookmark& node, Column& column, std::uint64_t id);
    bool readReference(Bookmark& node, Key key, std::uint64_t uid);
    bool readChildren(Bookmark& node, std::uint64_t uid);
    bool expectChild(Bookmark& node, Object reference);

    Graph& graph_;
    std::vector<std::uint8_t> isNode_; // by uid: 1 for the objects that stand in the tree
    std::vector<Pending> pending_;
    Object like_; // the dictionary whose keys stand in `columns_`
    std::vector<Column> columns_;
    Codes codes_; // of the node that is being read, and of the one before where nothing else is said
    Class class_ = Class::Unknown;
};

bool Reader::expectChild(Bookmark& node, Object reference) {
    if (reference.kind() != Kind::Uid || reference.value() >= isNode_.size())
        return graph_.damaged("a folder lists an object that is not there.");
    if (isNode_[reference.value()] != 0)
        return graph_.damaged("a bookmark stands in two places or inside itself.");
    isNode_[reference.value()] = 1;
    pending_.push_back({&node, reference.value()});
    return true;
}

bool Reader::readChildren(Bookmark& node, std::uint64_t uid) {
    const Object array = graph_.arrayBehind(uid);
    if (array.kind() != Kind::Array)
        return !graph_.isDamaged();
    node.makeChildList(array.count());
    for (std::uint64_t i = 0; i < array.count(); ++i)
        if (!expectChild(node, graph_.element(array, i)))
            return false;
    // The last one pending is read next.
    std::reverse(pending_.end() - static_cast<std::ptrdiff_t>(array.count()), pending_.end());
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

// Value `id` in this column. Most of a node's values (null, small codes, the class) are the very objects that
// the node before has in the same place; those that say nothing new then are settled.
bool Reader::readValue(Bookmark& node, Column& column, std::uint64_t id) {
    const Object value = graph_.object(id);
    const bool isReference =
        value.kind() == Kind::Uid && (column.key <= Key::LastOpened || column.key == Key::Children);
    if (value.kind() == Kind::Damaged)
        return graph_.damaged("a value of a bookmark is cut off or has an unknown kind.");
    if (isReference && value.value() != 0) {
        column.settledId = kNoId;
        return readReference(node, column.key, value.value());
    }
    column.settledId = id;
    if (column.key == Key::Class)
        class_ = value.kind() == Kind::Uid ? graph_.resolveClass(value.value()) : Class::Unknown;
    else if (!isReference) // a value of the wrong kind counts as missing
        codes_.set(column.key,
                   value.kind() == Kind::Integer || value.kind() == Kind::Boolean ? value.value() : 0);
    return true;
}

// Gives `columns_` the keys of a node's dictionary. Nodes of one writer have the same ones in the same order,
// so mostly these are those of the node before.
bool Reader::lookUpKeys(Object dictionary) {
    if (dictionary.count() == like_.count() && graph_.sameKeys(dictionary, like_))
        return true;
    like_ = dictionary;
    codes_ = {};
    class_ = Class::Unknown;
    columns_.clear();
    for (std::uint64_t i = 0; i < dictionary.count(); ++i) {
        const Key key = graph_.keyAt(dictionary, i);
        if (key > Key::Class)
            continue;
        // Of a key given twice the last value counts; of two lists of children none is to be lost.
        const auto again = std::erase_if(columns_, [key](const Column& column) { return column.key == key; });
        if (again > 0 && key == Key::Children)
            return graph_.damaged("a folder has two lists of children.");
        columns_.push_back({key, dictionary.count() + i, kNoId});
    }
    return true;
}

bool Reader::readNode(Bookmark& node, std::uint64_t uid) {
    const Object dictionary = graph_.archived(uid);
    if (dictionary.kind() != Kind::Dictionary || !graph_.chargeReferences(dictionary))
        return graph_.damaged("something that is no bookmark stands in its tree.");
    if (!lookUpKeys(dictionary))
        return false;
    for (Column& column : columns_) {
        const std::uint64_t id = graph_.idAt(dictionary, column.place);
        if (id != column.settledId && !readValue(node, column, id))
            return false;
    }
    if (class_ != Class::Bookmark)
        return graph_.damaged("something that is no bookmark stands in its tree.");
    codes_.give(node);
    return !graph_.isDamaged();
}

Result<Ref<Bookmark>> Reader::readTree(std::uint64_t rootUid) {
    if (rootUid >= isNode_.size())
        return failure("The file is damaged: its archive has no root folder.");
    Ref<Bookmark> root = Bookmark::initEmpty();
    isNode_[rootUid] = 1;
    if (!readNode(*root, rootUid))
        return graph_.damage();
    while (!pending_.empty()) {
        const Pending next = pending_.back();
        pending_.pop_back();
        Ref<Bookmark> node = Bookmark::initEmpty();
        if (!readNode(*node, next.uid))
            return graph_.damage();
        next.parent->addChild(std::move(node));
    }
    return root;
}

Result<void> readVersion(Graph& graph, std::uint64_t uid) {
    const Object record = graph.archived(uid);
    const bool isRecord = record.kind() == Kind::Dictionary && graph.classOf(record) == Class::FileVersion;
    const Object fileType = isRecord ? graph.find(record, Key::FileType) : Object();
    const Object version = isRecord ? graph.find(record, Key::Version) : Object();
    if (graph.isDamaged())
        return graph.damage();
    const auto isNumber = [](Object object) {
        return object.kind() == Kind::Integer || object.kind() == Kind::Boolean;
    };
    if (!isNumber(fileType) || fileType.value() != archive::kDocumentFileType)
        return failure("The file is an archive, but not a bookmark document.", ErrorDomain::Cocoa,
                       kUserCancelledError);
    if (!isNumber(version) || version.value() != archive::kDocumentVersion)
        return failure("The document has a version that this program does not know; a newer one may open it.",
                       ErrorDomain::Cocoa, kUserCancelledError);
    return {};
}

Result<Ref<Bookmark>> readDocument(Graph& graph, std::uint64_t rootUid) {
    const Object pair = graph.arrayBehind(rootUid);
    if (graph.isDamaged())
        return graph.damage();
    if (pair.kind() != Kind::Array || pair.count() != 2)
        return failure("The file is an archive, but its root is not that of a bookmark document.");
    const Object version = graph.element(pair, 0);
    const Object master = graph.element(pair, 1);
    if (version.kind() != Kind::Uid || master.kind() != Kind::Uid)
        return failure("The file is damaged: the root of its archive is incomplete.");
    if (const Result<void> accepted = readVersion(graph, version.value()); !accepted)
        return tl::unexpected(accepted.error());
    return Reader(graph).readTree(master.value());
}

Result<Ref<Bookmark>> readNode(Graph& graph, std::uint64_t rootUid) {
    return Reader(graph).readTree(rootUid);
}

Result<Ref<Bookmark>> readArchive(std::string_view data,
                                  Result<Ref<Bookmark>> (*read)(Graph&, std::uint64_t)) {
    if (!data.empty() && !data.starts_with("bplist") && !looksLikeXml(data))
        return failure("The file is not a bookmark document.");
    const Result<PropertyList> list = PropertyList::open(data);
    if (!list)
        return tl::unexpected(list.error());
    Graph graph(list->binary(), list->size());
    const Result<std::uint64_t> root = graph.open();
    return root ? read(graph, *root) : Result<Ref<Bookmark>>(tl::unexpected(root.error()));
}

} // namespace

Result<Ref<Bookmark>> readDocumentArchive(std::string_view data) {
    return readArchive(data, readDocument);
}

Result<Ref<Bookmark>> readNodeArchive(std::string_view data) {
    return readArchive(data, readNode);
}

} // namespace tabulon
