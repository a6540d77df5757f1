#include "formats/import/ChromiumJSON.h"

#include "base/Utf8.h"
#include "formats/import/JsonSteps.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <vector>

namespace tabulon {
namespace {

using Step = JsonSteps::Step;

// The root folders of the files, in Opera's order.
enum Root : std::size_t { kBar, kUserRoot, kTrash, kOther, kSynced, kNoRoot };

// What an array or object of the file is.
enum class Role { PassedOver, Top, Roots, CustomRoot, Root, Children, Node, MetaInfo };

enum class NodeKind { PassedOver, Link, Folder };

// An open array or object.
struct Frame {
    Role role = Role::PassedOver;
    /// The root or node that this array or object is, or belongs to. Not owned.
    Bookmark* node = nullptr;
    NodeKind kind = NodeKind::PassedOver;
    /// A node that is not in the tree yet: its type may be the last of its keys.
    Ref<Bookmark> pending = {};
};

Root rootNamed(Role role, std::string_view key) {
    if (role == Role::Roots)
        return key == "bookmark_bar" ? kBar : key == "other" ? kOther : key == "synced" ? kSynced : kNoRoot;
    if (role == Role::CustomRoot)
        return key == "userRoot" ? kUserRoot : key == "trash" ? kTrash : kNoRoot;
    return kNoRoot;
}

// A date that is absent in the file is null, not the present one.
Ref<Bookmark> newNode() {
    return Bookmark::init({});
}

// Reads a file in one pass. Each value is stored in its node when it is read, so the last of equal keys
// counts. A node becomes a folder with its first list of children. Whether it is a link or a folder is
// decided at its end.
class TreeReader {
public:
    TreeReader(std::string_view bytes, const BaseServices& services, Progress* progress)
        : steps_(bytes), progress_(progress, bytes.size()), untitled_(services.texts.text("Untitled")) {}

    /// Reads the whole file. To be called once.
    Result<void> run() {
        while (progress_.goOn(steps_.position())) {
            switch (steps_.next()) {
            case Step::Object:
                frames_.push_back(objectFrame());
                break;
            case Step::Array:
                frames_.push_back(arrayFrame());
                break;
            case Step::End:
                finish(frames_.back());
                frames_.pop_back();
                break;
            case Step::String:
                take(frames_.back(), steps_.string());
                break;
            case Step::Other:
                take(frames_.back(), {});
                break;
            case Step::Finished:
                return {};
            case Step::Failed:
                return tl::unexpected(steps_.error());
            }
        }
        return cancelledByUser();
    }

    bool hasRoots() const { return hasRoots_; }
    bool has(Root root) const { return static_cast<bool>(roots_[root]); }

    /// Returns the folder for a root, with both dates; an empty one where the file has no such root.
    Ref<Bookmark> folder(Root root) const {
        Ref<Bookmark> folder = has(root) ? roots_[root] : newNode();
        if (!folder->isFolder())
            folder->makeParent();
        return folder;
    }

private:
    Frame objectFrame() {
        if (frames_.empty())
            return {Role::Top};
        Frame& outer = frames_.back();
        const std::string_view key = steps_.key();
        take(outer, {});
        if (outer.role == Role::Top && key == "roots") {
            hasRoots_ = true;
            return {Role::Roots};
        }
        if (outer.role == Role::Roots && key == "custom_root")
            return {Role::CustomRoot};
        if (const Root root = rootNamed(outer.role, key); root != kNoRoot) {
            roots_[root] = newNode();
            return {Role::Root, roots_[root].get()};
        }
        if (outer.role == Role::Node && key == "meta_info")
            return {Role::MetaInfo, outer.node};
        if (outer.role != Role::Children)
            return {};
        Ref<Bookmark> node = newNode();
        Bookmark* const pointer = node.get();
        return {Role::Node, pointer, NodeKind::PassedOver, std::move(node)};
    }

    Frame arrayFrame() {
        if (frames_.empty())
            return {};
        Frame& outer = frames_.back();
        take(outer, {});
        if ((outer.role != Role::Root && outer.role != Role::Node) || steps_.key() != "children")
            return {};
        outer.node->makeParent();
        return {Role::Children, outer.node};
    }

    // Takes a string, or `nullopt` for a value of another kind, which counts as absent. Either replaces the
    // value of an equal key before.
    void take(Frame& frame, std::optional<std::string_view> text) {
        const std::string_view key = steps_.key();
        switch (frame.role) {
        case Role::Top:
            if (key == "roots") {
                hasRoots_ = false;
                roots_ = {};
            }
            break;
        case Role::Roots:
            if (key == "custom_root")
                roots_[kUserRoot] = roots_[kTrash] = {};
            [[fallthrough]];
        case Role::CustomRoot:
            if (const Root root = rootNamed(frame.role, key); root != kNoRoot)
                roots_[root] = {};
            break;
        case Role::Root:
        case Role::Node:
            takeDetail(frame, key, text);
            break;
        case Role::MetaInfo:
            if (key == "Description")
                frame.node->setItemNote(textOrNull(text));
            break;
        case Role::Children:
        case Role::PassedOver:
            break;
        }
    }

    static void takeDetail(Frame& frame, std::string_view key, std::optional<std::string_view> text) {
        Bookmark& node = *frame.node;
        if (key == "name")
            node.setItemName(textOrNull(text));
        else if (key == "url")
            node.setItemURL(textOrNull(text));
        else if (key == "type")
            frame.kind = text == "url"      ? NodeKind::Link
                         : text == "folder" ? NodeKind::Folder
                                            : NodeKind::PassedOver;
        else if (key == "date_added")
            node.setItemDateAdded(dateOrNull(text));
        else if (key == "date_modified")
            node.setItemDateModified(dateOrNull(text));
        else if (key == "meta_info")
            node.setItemNote(nullptr);
        else if (key == "children" && node.isFolder())
            node.makeParent();
    }

    static Text textOrNull(std::optional<std::string_view> text) { return text ? Text(*text) : Text(); }
    static Date dateOrNull(std::optional<std::string_view> text) {
        return text ? dateOfChromium(*text) : Date();
    }

    void finish(Frame& frame) {
        if (frame.role == Role::Root)
            frame.node->setItemURL(nullptr);
        if (frame.role != Role::Node || frame.kind == NodeKind::PassedOver)
            return;
        Ref<Bookmark> node = frame.kind == NodeKind::Link ? asLink(std::move(frame.pending))
                                                          : asFolder(std::move(frame.pending));
        if (node->itemName().isEmpty())
            node->setItemName(untitled_);
        frames_[frames_.size() - 2].node->addChild(std::move(node));
    }

    static Ref<Bookmark> asLink(Ref<Bookmark> node) {
        if (node->isFolder()) {
            Ref<Bookmark> link = newNode();
            link->setWithBookmark(*node);
            link->setItemDateAdded(node->itemDateAdded());
            node = std::move(link);
        }
        node->determineType();
        return node;
    }

    static Ref<Bookmark> asFolder(Ref<Bookmark> node) {
        if (!node->isFolder())
            node->makeParent();
        node->setItemURL(nullptr);
        node->setItemNote(nullptr);
        node->setItemDateModified({});
        return node;
    }

    JsonSteps steps_;
    ProgressSteps progress_;
    const Text untitled_;
    std::vector<Frame> frames_;
    std::array<Ref<Bookmark>, kNoRoot> roots_;
    bool hasRoots_ = false;
};

// Returns the new "Master", to which `fill` adds the roots. Requires: `reader` has run.
template <class Fill>
Result<Ref<Bookmark>> makeTree(const TreeReader& reader, const BaseServices& services, Fill fill) {
    if (!reader.hasRoots())
        return failure("There are no bookmarks in the file: it has no \"roots\".", ErrorDomain::Cocoa,
                       kUserCancelledError);
    Ref<Bookmark> master = Bookmark::init(Date::now(services.clock));
    master->makeParent();
    master->setItemName("Master");
    fill(*master);
    return master;
}

Ref<Bookmark> barOf(const TreeReader& reader, const BaseServices& services) {
    Ref<Bookmark> bar = reader.folder(kBar);
    bar->setItemName(services.texts.text("Favourites"));
    bar->setLabel(1);
    return bar;
}

// The line is cut at one kilobyte, so that the log does not contain all bookmarks of the user.
std::string logLine(std::string_view bytes) {
    constexpr std::size_t kMostLogged = 1024;
    std::string line = "dictionary : " + minifiedJson(bytes);
    line.resize(utf8::prefix(line, kMostLogged).size());
    return line;
}

} // namespace

Result<Ref<Bookmark>> readChromiumBookmarks(std::string_view bytes, const ReadOptions& options) {
    const BaseServices& services = options.services;
    TreeReader reader(bytes, services, options.progress);
    if (const Result<void> done = reader.run(); !done)
        return tl::unexpected(done.error());
    return makeTree(reader, services, [&](Bookmark& master) {
        master.addChild(barOf(reader, services));
        Ref<Bookmark> other = reader.folder(kOther);
        other->setItemName("Other Bookmarks");
        other->setItemDateModified({});
        master.addChild(std::move(other));
    });
}

Result<Ref<Bookmark>> readOperaBookmarks(std::string_view bytes, const ReadOptions& options) {
    const BaseServices& services = options.services;
    TreeReader reader(bytes, services, options.progress);
    if (const Result<void> done = reader.run(); !done) {
        if (!isCancelledByUser(done.error()))
            services.log.log("dictionary : (null)");
        return tl::unexpected(done.error());
    }
    services.log.log(logLine(bytes));
    return makeTree(reader, services, [&](Bookmark& master) {
        for (const Root root : {kBar, kUserRoot, kTrash, kOther, kSynced}) {
            Ref<Bookmark> folder = root == kBar ? barOf(reader, services) : reader.folder(root);
            folder->setItemDateModified({});
            // A quirk that is kept: without "other" the "synced" root is empty.
            if (root == kSynced && !reader.has(kOther))
                folder->makeParent();
            master.addChild(std::move(folder));
        }
    });
}

Date dateOfChromium(std::string_view timestamp) {
    if (timestamp.empty() || timestamp == "0")
        return {};
    constexpr std::uint64_t kSecondsFrom1601To1970 = 11'644'473'600;
    const std::size_t start = std::min(timestamp.find_first_not_of(" \t\n\v\f\r"), timestamp.size());
    timestamp.remove_prefix(start);
    const bool negative = timestamp.starts_with('-');
    if (negative || timestamp.starts_with('+'))
        timestamp.remove_prefix(1);
    const std::uint64_t limit =
        static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()) + negative;
    std::uint64_t number = 0;
    for (const char c : timestamp) {
        if (c < '0' || c > '9')
            break;
        const auto digit = static_cast<std::uint64_t>(c - '0');
        number = number > (limit - digit) / 10 ? limit : number * 10 + digit;
    }
    const std::uint64_t seconds = (negative ? 0 - number : number) / 1'000'000 - kSecondsFrom1601To1970;
    return Date::fromUnixSeconds(static_cast<double>(seconds));
}

} // namespace tabulon
