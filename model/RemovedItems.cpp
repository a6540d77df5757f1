#include "model/RemovedItems.h"

#include "model/TreeWalk.h"
#include "text/NumberFormat.h"

namespace tabulon {
namespace {

struct Counts {
    std::size_t folders = 0;
    std::size_t bookmarks = 0;
    std::size_t separators = 0;

    void add(const Bookmark& item) {
        ++(item.isFolder() ? folders : item.isSeparator() ? separators : bookmarks);
    }
};

} // namespace

std::vector<RemovedItem> placesOf(const std::vector<Ref<Bookmark>>& items) {
    std::vector<RemovedItem> places;
    places.reserve(items.size());
    for (const Ref<Bookmark>& item : items) {
        Bookmark* folder = item->getParent();
        places.push_back({item, Ref<Bookmark>(folder), folder->getChildren()->indexOf(*item)});
    }
    return places;
}

std::string deletionText(const std::vector<RemovedItem>& removed, const Localization& texts) {
    Counts counts;
    for (const RemovedItem& place : removed) {
        counts.add(*place.item);
        walkBelow(*place.item, [&](const Bookmark& item) {
            counts.add(item);
            return item.isFolder();
        });
    }
    std::vector<std::string> parts;
    const auto addCount = [&](const char* key, std::size_t number) {
        if (number > 0)
            parts.push_back(texts.counted(key, number, numberText(number, texts.locale())));
    };
    addCount("%d folders", counts.folders);
    addCount("%d bookmarks", counts.bookmarks);
    addCount("%d separators", counts.separators);
    std::string list = parts.empty() ? std::string() : parts.front();
    for (std::size_t i = 1; i < parts.size(); ++i)
        list = texts.format(i + 1 == parts.size() ? "ListEnd" : "ListMiddle", list, parts[i]);
    return texts.format("ItemsDeleted", list);
}

} // namespace tabulon
