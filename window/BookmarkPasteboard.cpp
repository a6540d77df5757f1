#include "window/BookmarkPasteboard.h"

#include "model/ArchiveReader.h"
#include "model/ArchiveWriter.h"
#include "plist/PropertyList.h"
#include "text/FileUri.h"

#include <fmt/format.h>

#include <filesystem>
#include <optional>

namespace tabulon {
namespace {

using Kind = PropertyList::Kind;

constexpr std::size_t kLongestAnchorTags = 16; // the longest text that a copy format adds to URL and name

// A missing list counts as a damaged one.
Result<PropertyList> listIn(const PasteboardItem& item, std::string_view type) {
    const std::string* bytes = item.get(type);
    return PropertyList::open(bytes ? std::string_view(*bytes) : std::string_view());
}

bool isInteger(PropertyList::Object object, std::uint64_t value) {
    return object.kind() == Kind::Integer && object.value() == value;
}

// Returns whether the statistics of a drag from Safari count exactly one bookmark and no single folder.
bool isSingle(const PasteboardItem& item) {
    const auto list = listIn(item, kSafariStatisticsType);
    return list && isInteger(list->value(list->top(), "TotalCount"), 1) &&
           !isInteger(list->value(list->top(), "FolderCount"), 1);
}

Ref<Bookmark> makeBookmark(Text name, Text url, Date now) {
    Ref<Bookmark> bookmark = Bookmark::init(now);
    bookmark->setItemName(std::move(name));
    bookmark->setItemURL(std::move(url));
    return bookmark;
}

Ref<Bookmark> dictionaryBookmark(const Text& name, std::string_view url, Date now) {
    return Bookmark::initWithDictionary(
        {.name = name, .url = Text::fromBytes(url), .note = nullptr, .tags = nullptr}, now);
}

Ref<Bookmark> onlyBookmark(const PropertyList& list, const ItemReading& reading) {
    const PropertyList::Object entry = list.element(list.top(), 0);
    const PropertyList::Object texts = list.value(entry, "URIDictionary");
    Text name = texts.kind() == Kind::Dictionary ? list.text(texts, "title") : reading.untitled;
    return makeBookmark(std::move(name), list.text(entry, "URLString"), reading.now);
}

// Nested lists of entries are not read.
Ref<Bookmark> folderOfBookmarks(const PropertyList& list, const ItemReading& reading) {
    Ref<Bookmark> folder = Bookmark::init(reading.now);
    folder->makeParent();
    folder->setItemName(reading.untitled);
    for (std::uint64_t i = 0; i < list.top().count(); ++i) {
        const PropertyList::Object entry = list.element(list.top(), i);
        const Text title = list.text(list.value(entry, "URIDictionary"), "title");
        Text url = list.text(entry, "URLString");
        if (title.isNull() && url.isNull())
            continue;
        folder->addChild(
            makeBookmark(title.isEmpty() ? reading.untitled : title, std::move(url), reading.now));
    }
    return folder;
}

// Returns `nullptr` for an item without a list of Safari, and for an empty list of a single bookmark.
Ref<Bookmark> readSafariList(const PasteboardItem& item, const ItemReading& reading) {
    const auto list = listIn(item, kSafariListType);
    if (!list || list->top().kind() != Kind::Array)
        return nullptr;
    if (!isSingle(item))
        return folderOfBookmarks(*list, reading);
    return list->top().count() > 0 ? onlyBookmark(*list, reading) : nullptr;
}

std::filesystem::path withoutTrailingSlash(const std::string& path) {
    const std::size_t end = path.find_last_not_of('/');
    return path.substr(0, end == std::string::npos ? 1 : end + 1);
}

} // namespace

Text copyText(const Bookmark& node, std::int64_t copyFormat) {
    const std::string_view url = node.itemURL().view();
    const std::string_view name = node.itemName().view();
    if (node.itemURL().isNull())
        return nullptr;
    switch (copyFormat) {
    case kCopyURLInBrackets:
        return fmt::format("<{}>", url);
    case kCopyNameAndURL:
        return fmt::format("{}\t{}", name, url);
    case kCopyHTML:
        return fmt::format("<a href=\"{}\">{}</a>", url, name);
    default:
        return node.itemURL();
    }
}

PasteboardItem pasteboardItemForBookmark(const Bookmark& node, std::string record, std::int64_t copyFormat) {
    PasteboardItem item;
    item.set(kItemType, std::move(record));
    if (const Text text = copyText(node, copyFormat); !text.isNull())
        item.set(kStringType, text.string());
    return item;
}

std::vector<PasteboardItem> pasteboardItemsForBookmarks(const std::vector<Ref<Bookmark>>& nodes,
                                                        NodeRecords& records, NodeRecords::List list,
                                                        std::int64_t copyFormat) {
    records.clear(list);
    std::size_t size = 0;
    for (const Ref<Bookmark>& node : nodes)
        if (!node->itemURL().isNull())
            size += node->itemURL().view().size() + node->itemName().view().size() + kLongestAnchorTags;
    std::vector<PasteboardItem> items;
    items.reserve(nodes.size());
    for (const Ref<Bookmark>& node : nodes) {
        std::string record = records.add(list, node);
        if (size <= kLargestTexts) {
            items.push_back(pasteboardItemForBookmark(*node, std::move(record), copyFormat));
            continue;
        }
        items.emplace_back().set(kItemType, std::move(record));
    }
    return items;
}

Ref<Bookmark> pasteboardItemToBookmark(const PasteboardItem& item, const ItemReading& reading) {
    if (const std::string* record = item.get(kItemType))
        if (Ref<Bookmark> node = reading.records.find(*record))
            return node;
    if (Ref<Bookmark> bookmarks = readSafariList(item, reading))
        return bookmarks;
    Text name = reading.untitled;
    const std::string* fileURL = item.get(kFileURLType);
    if (const auto file = fileURL ? pathOfFileUri(*fileURL) : std::nullopt) {
        const std::filesystem::path path = withoutTrailingSlash(*file);
        if (path.extension() != ".webloc" && path.extension() != ".mailloc")
            return dictionaryBookmark(Text::fromBytes(path.filename().string()), "file://" + path.string(),
                                      reading.now);
        name = Text::fromBytes(path.stem().string());
    } else if (const std::string* title = item.get(kURLNameType)) {
        name = Text::fromBytes(*title);
    }
    if (const std::string* url = item.get(kURLType))
        return dictionaryBookmark(name, *url, reading.now);
    if (const std::string* text = item.get(kStringType))
        return dictionaryBookmark(name, *text, reading.now);
    if (const std::string* html = item.get(kHTMLType); html && reading.grabAllHTML)
        reading.grabAllHTML(*html);
    return nullptr;
}

std::vector<std::string_view> writableTypesForPasteboard() {
    return {kItemType};
}

std::vector<std::string_view> readableTypesForPasteboard() {
    return {kItemType, kURLType};
}

std::string pasteboardPropertyListForType(const Bookmark& node, std::string_view type) {
    return type == kItemType ? writeNodeArchive(node) : std::string();
}

Ref<Bookmark> initWithPasteboardPropertyListOfType(std::string_view bytes, std::string_view type,
                                                   SystemLog& log) {
    log.log(fmt::format("initWithPasteboardPropertyList : {}", type));
    const Result<Ref<Bookmark>> node = readNodeArchive(bytes);
    return node ? *node : nullptr;
}

} // namespace tabulon
