#include "formats/import/NetscapeScan.h"

#include "formats/import/NetscapeDates.h"
#include "model/LinkType.h"
#include "text/XmlEntities.h"

#include <algorithm>
#include <string_view>

namespace tabulon {
namespace {

constexpr std::size_t kFolderNameReach = 512;

bool isToolbarName(std::string_view name) {
    return name == "Toolbar Favorites" || name == "Personal Toolbar Folder" || name == "Bookmarks Toolbar";
}

} // namespace

NetscapeScan::NetscapeScan(std::string_view bytes, const BaseServices& services, Ref<Bookmark>& lastItem)
    : services_(services), bytes_(bytes), lastItem_(lastItem), now_(Date::now(services.clock)),
      untitled_(services.texts.text("Untitled")) {}

Ref<Bookmark> NetscapeScan::run(Progress* progress) {
    Ref<Bookmark> root = Bookmark::init(now_);
    root->makeParent();
    root->setItemName("Master");
    folder_ = root.get();
    std::size_t cursor = 0;
    ProgressSteps steps(progress, bytes_.size());
    while (cursor < bytes_.size() && steps.goOn(cursor)) {
        if (const auto line = texts_.isUtf8() ? linkLineAt(bytes_, cursor) : std::nullopt) {
            cursor = appendLinkLine(*line, cursor);
            continue;
        }
        const auto token = tokens_.next(cursor);
        if (!token)
            break;
        cursor = act(*token);
    }
    return root;
}

std::size_t NetscapeScan::act(const NetscapeToken& token) {
    using Kind = NetscapeToken::Kind;
    switch (token.kind) {
    case Kind::Separator:
        return appendSeparator(token.start);
    case Kind::ListStart:
        return beginList(token.start);
    case Kind::ListEnd:
        return endList(token.start);
    case Kind::Description:
        return setNote(token.start);
    case Kind::Link:
        return appendLink(token.start);
    case Kind::Heading:
        return appendFolder(token.start);
    case Kind::Unknown:
        break;
    }
    return token.start + 5;
}

std::size_t NetscapeScan::appendSeparator(std::size_t start) {
    Ref<Bookmark> separator = Bookmark::init(now_);
    separator->setType(kSeparatorType);
    append(std::move(separator));
    return start + std::string_view("<HR>").size();
}

// A list belongs to the item before it, of any kind: the items of a list after a link become children of the
// link.
std::size_t NetscapeScan::beginList(std::size_t start) {
    if (Bookmark* last = folder_->getLast())
        folder_ = last;
    return start + 4;
}

std::size_t NetscapeScan::endList(std::size_t start) {
    if (Bookmark* parent = folder_->getParent())
        folder_ = parent;
    return start + std::string_view("</DL>").size();
}

std::size_t NetscapeScan::setNote(std::size_t start) {
    const std::size_t begin = start + 4;
    const std::size_t tag = bytes_.find('<', begin);
    if (tag == ScannedBytes::npos)
        return ScannedBytes::npos;
    const char before = bytes_.at(tag - 1);
    const std::size_t end = before == '\r' || before == '\n' ? tag - 1 : tag;
    if (end > begin && lastItem_)
        lastItem_->setItemNote(texts_.text(begin, end));
    return tag - 1;
}

std::size_t NetscapeScan::appendLinkLine(const LinkLine& line, std::size_t start) {
    const auto textOf = [](std::string_view bytes, bool hasReferences) {
        return hasReferences ? textOfXml(bytes) : Text(bytes);
    };
    Ref<Bookmark> link = Bookmark::init(now_);
    link->setItemURL(textOf(line.address, line.addressHasReferences));
    link->determineType();
    link->setItemDateAdded(line.added);
    link->setItemDateModified(line.modified);
    appendNamed(std::move(link), textOf(line.name, line.nameHasReferences));
    return start + line.size;
}

std::size_t NetscapeScan::appendLink(std::size_t start) {
    const LinkTarget* target = targets_.next(start + 4);
    if (!target)
        return ScannedBytes::npos;
    auto name = nameOf(*target);
    if (!name)
        return ScannedBytes::npos;
    Ref<Bookmark> link = Bookmark::init(now_);
    link->setItemURL(target->address);
    if (target->type)
        link->setType(*target->type);
    readDates(*link, start, name->next);
    appendNamed(std::move(link), std::move(name->text));
    return name->next;
}

void NetscapeScan::appendNamed(Ref<Bookmark> link, Text name) {
    if (name.view() == "-")
        link->setType(kSeparatorType);
    link->setItemName(std::move(name));
    append(std::move(link));
}

std::optional<NetscapeScan::LinkName> NetscapeScan::nameOf(const LinkTarget& target) {
    if (bytes_.at(target.anchor + 2) != ' ')
        return LinkName{untitled_, target.anchor + 6};
    const std::size_t tagEnd = bytes_.find('>', target.addressEnd);
    if (tagEnd == ScannedBytes::npos)
        return std::nullopt;
    const std::size_t closing = bytes_.find("</A>", tagEnd + 1);
    if (closing == ScannedBytes::npos)
        return std::nullopt;
    return LinkName{nameBetween(tagEnd + 1, closing), closing + 4};
}

// Returns the name without the tags around it, on one line. A single "<" or ">" is part of the name.
Text NetscapeScan::nameBetween(std::size_t from, std::size_t to) {
    while (from < to && bytes_.at(from) == '<') {
        const std::size_t tagEnd = bytes_.find('>', from, to);
        if (tagEnd == ScannedBytes::npos)
            break;
        from = tagEnd + 1;
    }
    while (from < to && bytes_.at(to - 1) == '>') {
        const std::size_t tag = bytes_.findBackwards('<', to, from);
        if (tag == ScannedBytes::npos)
            break;
        to = tag;
    }
    while (from < to && isBlank(bytes_.at(from)))
        ++from;
    if (from == to)
        return untitled_;
    return texts_.line(from, std::min(to, from + kLongestLinkName));
}

std::size_t NetscapeScan::appendFolder(std::size_t start) {
    const std::size_t closing = bytes_.find("</H", start + 5);
    if (closing == ScannedBytes::npos)
        return ScannedBytes::npos;
    const std::size_t reach = closing - std::min(closing, kFolderNameReach);
    const std::size_t tagEnd = bytes_.findBackwards('>', closing, reach);
    if (tagEnd == ScannedBytes::npos)
        return ScannedBytes::npos;
    const std::size_t next = closing + 5;
    Ref<Bookmark> folder = Bookmark::init(now_);
    folder->makeParent();
    folder->setItemName(folderName(tagEnd + 1, closing));
    readDates(*folder, start, next);
    folder->setAutoTab(bytes_.find("FOLDER_GROUP=\"true\"", start, next) != ScannedBytes::npos);
    append(std::move(folder));
    return next;
}

Text NetscapeScan::folderName(std::size_t from, std::size_t to) {
    if (from == to)
        return untitled_;
    Text name = texts_.text(from, to);
    return isToolbarName(name.view()) ? Text(services_.texts.text("Favourites")) : name;
}

void NetscapeScan::readDates(Bookmark& item, std::size_t start, std::size_t next) const {
    const NetscapeDates dates = netscapeDates(bytes_, start, next);
    item.setItemDateAdded(dates.added);
    item.setItemDateModified(dates.modified);
}

void NetscapeScan::append(Ref<Bookmark> item) {
    lastItem_ = item;
    folder_->addChild(std::move(item));
}

} // namespace tabulon
