// All objects of the property list are tested, even if nothing refers to them. A record is recognised by its
// class or, if the class is lost, by its keys.
#include "model/ArchiveSalvage.h"

#include "model/ArchiveGraph.h"
#include "model/ArchiveNodes.h"
#include "model/Document.h"
#include "plist/PropertyList.h"

#include <vector>

namespace tabulon {
namespace {

using archive::Graph;
using archive::Key;
using archive::NodeReader;
using Kind = BinaryPlist::Kind;
using Object = BinaryPlist::Object;

class Salvager {
public:
    Salvager(Graph& graph, const BinaryPlist& plist, const BaseServices& services)
        : graph_(graph), plist_(plist), services_(services), nodes_(graph, NodeReader::Care::Salvage),
          recordOf_(plist.objectCount(), kNone), isTaken_(graph.size(), false) {}

    Result<Salvage> run();

private:
    static constexpr std::uint32_t kNone = ~std::uint32_t{0};
    /// A record without a class is a bookmark if it has so many keys of one.
    static constexpr std::size_t kEnoughKeys = 4;

    struct Record {
        Ref<Bookmark> node;
        Object children; // an Array, or Damaged if there is none
        bool isWhole = false;
        bool isPlaced = false;
        bool isListed = false; // by another folder that is not placed
    };

    void readRecords();
    bool isRecord(Object object);
    Record* listed(const Record& folder, std::uint64_t index);
    Record* masterRecord();
    Record* firstCalledMaster();
    void placeBelow(Record& top);
    void noteListed();
    void placeTheRest(Bookmark& master);
    void placeTop(Record& top, Bookmark& recovered);

    Graph& graph_;
    const BinaryPlist& plist_;
    const BaseServices services_;
    NodeReader nodes_;
    std::vector<std::uint32_t> recordOf_; // by object number of the property list: record index, or kNone
    std::vector<bool> isTaken_;           // by position in the file
    std::vector<Record> records_;
    std::uint64_t rootUid_ = 0;
    std::uint64_t lost_ = 0; // the number of children without a record
    std::uint64_t tops_ = 0; // the number of records placed in the folder of recovered bookmarks
};

bool Salvager::isRecord(Object object) {
    if (object.kind() != Kind::Dictionary || object.count() == 0 || isTaken_[graph_.positionOf(object)])
        return false;
    std::size_t keys = 0;
    const bool isBookmark = graph_.classOf(object) == archive::Class::Bookmark;
    if (!isBookmark && graph_.chargeReferences(object))
        for (std::uint64_t i = 0; i < object.count() && keys < kEnoughKeys; ++i)
            keys += graph_.keyAt(object, i) < Key::Class ? 1 : 0;
    graph_.forgetDamage();
    return isBookmark || keys >= kEnoughKeys;
}

void Salvager::readRecords() {
    for (std::uint64_t id = 0; id < plist_.objectCount() && records_.size() < kNone; ++id) {
        const Object object = plist_.object(id);
        if (!isRecord(object))
            continue;
        isTaken_[graph_.positionOf(object)] = true;
        Record record{Bookmark::initEmpty(), {}};
        record.isWhole = nodes_.read(*record.node, object);
        record.children = nodes_.children();
        recordOf_[id] = static_cast<std::uint32_t>(records_.size());
        records_.push_back(std::move(record));
    }
}

// Returns the record of child `index` of a folder, or nullptr if it is lost.
Salvager::Record* Salvager::listed(const Record& folder, std::uint64_t index) {
    const Object reference = plist_.object(plist_.reference(folder.children, index));
    const std::uint64_t id =
        reference.kind() == Kind::Uid ? graph_.idOfArchived(reference.value()) : plist_.objectCount();
    return id < recordOf_.size() && recordOf_[id] != kNone ? &records_[recordOf_[id]] : nullptr;
}

// Adds to `top` and every folder below it the children in its list that are not placed yet.
void Salvager::placeBelow(Record& top) {
    top.isPlaced = true;
    std::vector<Record*> folders{&top};
    while (!folders.empty()) {
        const Record& folder = *folders.back();
        folders.pop_back();
        if (folder.children.kind() != Kind::Array)
            continue;
        folder.node->makeChildList();
        for (std::uint64_t i = 0; i < folder.children.count(); ++i) {
            Record* const child = listed(folder, i);
            lost_ += child ? 0 : 1;
            if (!child || child->isPlaced)
                continue;
            child->isPlaced = true;
            folder.node->addChild(child->node);
            folders.push_back(child);
        }
    }
}

void Salvager::noteListed() {
    for (const Record& folder : records_)
        if (!folder.isPlaced && folder.children.kind() == Kind::Array)
            for (std::uint64_t i = 0; i < folder.children.count(); ++i)
                if (Record* const child = listed(folder, i); child && child != &folder)
                    child->isListed = true;
}

// Returns the record of the root folder by the root of the archive, or nullptr.
Salvager::Record* Salvager::masterRecord() {
    Record root;
    root.children = graph_.arrayBehind(rootUid_);
    const bool isPair = root.children.kind() == Kind::Array && root.children.count() == 2;
    graph_.forgetDamage();
    return isPair ? listed(root, 1) : nullptr;
}

// Returns the first folder named "Master" that is in no other folder's list, or nullptr. Used if the root is
// lost.
Salvager::Record* Salvager::firstCalledMaster() {
    noteListed();
    for (Record& record : records_)
        if (!record.isListed && record.node->isFolder() && record.node->itemName() == Text("Master"))
            return &record;
    return nullptr;
}

void Salvager::placeTop(Record& top, Bookmark& recovered) {
    ++tops_;
    recovered.addChild(top.node);
    placeBelow(top);
}

// Places the records that are in no list of a folder, and then those of folders whose lists form a cycle. The
// first record of a cycle becomes its top.
void Salvager::placeTheRest(Bookmark& master) {
    Ref<Bookmark> recovered = Bookmark::init(Date::now(services_.clock));
    recovered->setItemName(services_.texts.text("RecoveredBookmarks"));
    recovered->makeParent();
    for (Record& record : records_)
        record.isListed = false;
    noteListed();
    for (const bool inCircles : {false, true})
        for (Record& record : records_)
            if (!record.isPlaced && (inCircles || !record.isListed))
                placeTop(record, *recovered);
    if (recovered->hasChildren())
        master.addChild(std::move(recovered));
}

Result<Salvage> Salvager::run() {
    rootUid_ = graph_.openWhatIsLeft();
    readRecords();
    Record* root = masterRecord();
    if (!root)
        root = firstCalledMaster();
    if (records_.size() == (root ? 1 : 0))
        return failure("No bookmark in the file can be read.");
    Salvage salvage;
    salvage.master = root ? root->node : Bookmark::init(Date::now(services_.clock));
    if (root)
        placeBelow(*root);
    Document::makeMaster(*salvage.master);
    placeTheRest(*salvage.master);
    for (const Record& record : records_)
        salvage.readable += &record != root && record.isWhole ? 1 : 0;
    // Records in no list are usually those that the damaged lists have lost, so they are not counted twice.
    salvage.records = records_.size() - (root ? 1 : 0) + (lost_ > tops_ ? lost_ - tops_ : 0);
    return salvage;
}

} // namespace

Result<Salvage> salvageDocumentArchive(std::string_view data, const BaseServices& services) {
    const Result<PropertyList> list = PropertyList::open(data);
    if (!list)
        return tl::unexpected(list.error());
    Graph graph(list->binary(), list->size());
    return Salvager(graph, list->binary(), services).run();
}

} // namespace tabulon
