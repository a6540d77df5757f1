#include "formats/import/PlacesItems.h"

#include "formats/import/JsonSteps.h"
#include "formats/import/NestedLinks.h"

#include <algorithm>
#include <string>
#include <vector>

namespace tabulon {
namespace {

using Step = JsonSteps::Step;

constexpr std::string_view kContainer = "text/x-moz-place-container";
constexpr std::string_view kSeparator = "text/x-moz-place-separator";

// A string in JSON contains no line feed, so every line feed is between two values.
std::string arrayOf(std::string_view places) {
    std::string array = "[";
    while (!places.empty()) {
        std::string_view line = places.substr(0, places.find('\n'));
        places.remove_prefix(std::min(line.size() + 1, places.size()));
        while (!line.empty() && std::string_view(" \t\r,").find(line.back()) != std::string_view::npos)
            line.remove_suffix(1);
        if (line.empty())
            continue;
        array += array.size() > 1 ? "," : "";
        array += line;
    }
    return array + "]";
}

class PlacesReader {
public:
    PlacesReader(const std::string& array, Date now) : steps_(array), now_(now), root_(newNode()) {
        root_->makeParent();
    }

    Result<Ref<Bookmark>> run() {
        while (true) {
            switch (steps_.next()) {
            case Step::Object:
                beginObject();
                break;
            case Step::Array:
                beginArray();
                break;
            case Step::End:
                finish();
                break;
            case Step::String:
                take(steps_.key(), steps_.string());
                break;
            case Step::Other:
                break;
            case Step::Finished:
                return root_;
            case Step::Failed:
                return tl::unexpected(steps_.error());
            }
        }
    }

private:
    enum class Role { PassedOver, List, Item };
    struct Frame {
        Role role = Role::PassedOver;
        /// The item, or the folder to which the list belongs.
        Ref<Bookmark> node = {};
        std::string type = {};
    };

    Ref<Bookmark> newNode() const { return Bookmark::init(now_); }

    void beginObject() {
        if (!frames_.empty() && frames_.back().role == Role::List)
            frames_.push_back({Role::Item, newNode()});
        else
            frames_.emplace_back();
    }

    void beginArray() {
        if (frames_.empty())
            return frames_.push_back({Role::List, root_});
        const Frame& outer = frames_.back();
        if (outer.role != Role::Item || steps_.key() != "children")
            return static_cast<void>(frames_.emplace_back());
        Ref<Bookmark> folder = outer.node;
        folder->makeParent();
        frames_.push_back({Role::List, std::move(folder)});
    }

    void take(std::string_view key, std::string_view text) {
        if (frames_.empty() || frames_.back().role != Role::Item)
            return;
        Frame& item = frames_.back();
        if (key == "type")
            item.type = text;
        else if (key == "title")
            item.node->setItemName(Text::fromBytes(text));
        else if (key == "uri")
            item.node->setItemURL(Text::fromBytes(text));
        else if (key == "tags")
            item.node->setItemTags(Text::fromBytes(text));
    }

    void finish() {
        Frame done = std::move(frames_.back());
        frames_.pop_back();
        if (done.role != Role::Item)
            return;
        Bookmark& node = *done.node;
        if (done.type == kContainer && !node.isFolder())
            node.makeParent();
        if (node.isFolder())
            node.setItemURL(nullptr); // the address of a folder that is a search
        else if (done.type == kSeparator)
            node.setType(kSeparatorType);
        else if (node.itemURL().isEmpty())
            return;
        else
            node.determineType();
        frames_.back().node->addChild(std::move(done.node));
    }

    JsonSteps steps_;
    const Date now_;
    const Ref<Bookmark> root_;
    std::vector<Frame> frames_;
};

bool isOfKind(const Bookmark& one, const Bookmark& other) {
    return one.isFolder() == other.isFolder() && one.isSeparator() == other.isSeparator();
}

bool isEmptyFolder(const Bookmark& node) {
    return node.isFolder() && !node.hasChildren();
}

bool haveSameKinds(const ChildList& some, const ChildList& others) {
    return some.size() == others.size() &&
           std::equal(some.begin(), some.end(), others.begin(),
                      [](const Bookmark* one, const Bookmark* other) { return isOfKind(*one, *other); });
}

std::vector<Ref<Bookmark>> takeChildren(const Bookmark& folder) {
    std::vector<Ref<Bookmark>> children;
    if (const ChildList* list = folder.getChildren())
        for (Bookmark* child : *list)
            children.emplace_back(child);
    return children;
}

// Returns the items of `places`, with the contents of `nested` in those folders that are empty.
Ref<Bookmark> merged(const Bookmark& places, const Bookmark& nested, Date now) {
    const std::vector<Ref<Bookmark>> items = takeChildren(places);
    const std::vector<Ref<Bookmark>> lists = takeChildren(nested);
    Ref<Bookmark> root = Bookmark::init(now);
    root->makeParent();
    for (std::size_t i = 0; i < items.size(); ++i) {
        Ref<Bookmark> child = deepCopy(isEmptyFolder(*items[i]) ? *lists[i] : *items[i]);
        child->setItemName(items[i]->itemName());
        root->addChild(std::move(child));
    }
    return root;
}

} // namespace

Result<Ref<Bookmark>> readPlacesItems(std::string_view places, std::string_view html, Date now) {
    Result<Ref<Bookmark>> items = PlacesReader(arrayOf(places), now).run();
    if (!items || !(*items)->hasChildren())
        return items;
    const ChildList& list = *(*items)->getChildren();
    if (std::none_of(list.begin(), list.end(), [](const Bookmark* node) { return isEmptyFolder(*node); }))
        return items;
    const Result<Ref<Bookmark>> nested = readNestedLinks(html, now);
    if (!nested || !(*nested)->hasChildren() || !haveSameKinds(list, *(*nested)->getChildren()))
        return items;
    return merged(**items, **nested, now);
}

} // namespace tabulon
