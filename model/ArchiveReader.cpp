// Building of the tree from the objects of an archive. ArchiveGraph reads the objects, ArchiveNodes the
// records.
#include "model/ArchiveReader.h"

#include "model/ArchiveGraph.h"
#include "model/ArchiveNodes.h"
#include "plist/PropertyList.h"

namespace tabulon {
namespace {

using archive::Class;
using archive::Graph;
using archive::Key;
using Kind = BinaryPlist::Kind;
using Object = BinaryPlist::Object;

class Reader {
public:
    explicit Reader(Graph& graph)
        : graph_(graph), nodes_(graph), isNode_(graph.objectCount(), 0), isPlaceOfNode_(graph.size(), false) {
    }

    /// Returns the node with this number and everything below it.
    Result<Ref<Bookmark>> readTree(std::uint64_t rootUid);

private:
    /// A node to be read, and its folder.
    struct Pending {
        Bookmark* parent;
        std::uint64_t uid;
    };

    bool readNode(Bookmark& node, std::uint64_t uid);
    bool readChildren(Bookmark& node);
    bool expectChild(Bookmark& node, Object reference);
    bool everyNodeIsReached();

    Graph& graph_;
    archive::NodeReader nodes_;
    std::vector<std::uint8_t> isNode_; // by uid: 1 for the objects that are in the tree
    std::vector<bool> isPlaceOfNode_;  // by position in the file
    std::vector<Pending> pending_;
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

bool Reader::readChildren(Bookmark& node) {
    const Object array = nodes_.children();
    if (array.kind() != Kind::Array)
        return true;
    node.makeChildList(array.count());
    for (std::uint64_t i = 0; i < array.count(); ++i)
        if (!expectChild(node, graph_.element(array, i)))
            return false;
    // The last pending node is read next.
    std::reverse(pending_.end() - static_cast<std::ptrdiff_t>(array.count()), pending_.end());
    return true;
}

bool Reader::readNode(Bookmark& node, std::uint64_t uid) {
    const Object dictionary = graph_.archived(uid);
    if (!nodes_.read(node, dictionary))
        return false;
    auto isTaken = isPlaceOfNode_[graph_.positionOf(dictionary)];
    if (isTaken)
        return graph_.damaged("the records of two bookmarks overlap.");
    isTaken = true;
    return readChildren(node);
}

// Returns false if a record is in no list of children. Its list was damaged, and the next save would lose the
// record.
bool Reader::everyNodeIsReached() {
    for (std::uint64_t uid = 1; uid < isNode_.size(); ++uid)
        if (isNode_[uid] == 0 && graph_.isNode(uid))
            return graph_.damaged("there are bookmarks that no folder holds.");
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
    return everyNodeIsReached() ? Result<Ref<Bookmark>>(std::move(root)) : graph_.damage();
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
    if (graph.isDamaged() || version.kind() != Kind::Uid || master.kind() != Kind::Uid)
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
