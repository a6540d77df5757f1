#include "formats/import/NetscapeScan.h"

#include "formats/XmlEntities.h"
#include "model/LinkType.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>

namespace tabulon {
namespace {

constexpr std::size_t npos = ScannedBytes::npos;
constexpr std::size_t kLongestLinkName = 1024;
constexpr std::size_t kFolderNameReach = 512;
constexpr std::size_t kDigitsThatFit = 19;

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// What `c` is worth as a decimal digit; more than 9 for everything else.
unsigned digitAt(char c) {
    return static_cast<unsigned char>(c) - unsigned{'0'};
}

// The number with one more digit at its end; the largest number where that is too large.
std::uint64_t withDigit(std::uint64_t number, unsigned digit) {
    std::uint64_t result = 0;
    const bool tooLarge =
        __builtin_mul_overflow(number, 10u, &result) || __builtin_add_overflow(result, digit, &result);
    return tooLarge ? std::numeric_limits<std::uint64_t>::max() : result;
}

bool isToolbarName(std::string_view name) {
    return name == "Toolbar Favorites" || name == "Personal Toolbar Folder" || name == "Bookmarks Toolbar";
}

} // namespace

NetscapeScan::NetscapeScan(std::string_view bytes, const BaseServices& services, Ref<Bookmark>& lastItem)
    : services_(services), bytes_(bytes), lastItem_(lastItem), now_(Date::now(services.clock)),
      untitled_(services.texts.text("Untitled")) {}

Ref<Bookmark> NetscapeScan::run() {
    Ref<Bookmark> root = Bookmark::init(now_);
    root->makeParent();
    root->setItemName("Master");
    folder_ = root.get();
    std::size_t cursor = 0;
    while (cursor < bytes_.size()) {
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

// A list belongs to the item before it, whatever that is: after a link its items hang under the link.
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
    if (tag == npos)
        return npos;
    const char before = bytes_.at(tag - 1);
    const std::size_t end = before == '\r' || before == '\n' ? tag - 1 : tag;
    if (end > begin && lastItem_)
        lastItem_->setItemNote(bytes_.text(begin, end));
    return tag - 1;
}

std::size_t NetscapeScan::appendLink(std::size_t start) {
    const LinkTarget* target = targets_.next(start + 4);
    if (!target)
        return npos;
    auto name = nameOf(*target);
    if (!name)
        return npos;
    Ref<Bookmark> link = Bookmark::init(now_);
    link->setItemURL(target->address);
    if (target->type)
        link->setType(*target->type);
    readDates(*link, start, name->next);
    if (name->text.view() == "-")
        link->setType(kSeparatorType);
    link->setItemName(std::move(name->text));
    append(std::move(link));
    return name->next;
}

std::optional<NetscapeScan::LinkName> NetscapeScan::nameOf(const LinkTarget& target) {
    if (bytes_.at(target.anchor + 2) != ' ')
        return LinkName{untitled_, target.anchor + 6};
    const std::size_t tagEnd = bytes_.find('>', target.addressEnd);
    if (tagEnd == npos)
        return std::nullopt;
    const std::size_t closing = bytes_.find("</A>", tagEnd + 1);
    if (closing == npos)
        return std::nullopt;
    return LinkName{nameBetween(tagEnd + 1, closing), closing + 4};
}

// The name without the tags around it (whole ones: a lone "<" or ">" belongs to the name) and on one line.
Text NetscapeScan::nameBetween(std::size_t from, std::size_t to) {
    while (from < to && bytes_.at(from) == '<') {
        const std::size_t tagEnd = bytes_.find('>', from, to);
        if (tagEnd == npos)
            break;
        from = tagEnd + 1;
    }
    while (from < to && bytes_.at(to - 1) == '>') {
        const std::size_t tag = bytes_.findBackwards('<', to, from);
        if (tag == npos)
            break;
        to = tag;
    }
    while (from < to && isBlank(bytes_.at(from)))
        ++from;
    if (from == to)
        return untitled_;
    return oneLine(from, std::min(to, from + kLongestLinkName));
}

Text NetscapeScan::oneLine(std::size_t from, std::size_t to) const {
    const std::string_view bytes = bytes_.range(from, to);
    if (bytes.find('\n') == npos && bytes.find('\r') == npos)
        return bytes_.text(from, to);
    std::string line(bytes);
    std::replace(line.begin(), line.end(), '\n', ' ');
    std::replace(line.begin(), line.end(), '\r', ' ');
    return textOfXmlBytes(line);
}

std::size_t NetscapeScan::appendFolder(std::size_t start) {
    const std::size_t closing = bytes_.find("</H", start + 5);
    if (closing == npos)
        return npos;
    const std::size_t reach = closing - std::min(closing, kFolderNameReach);
    const std::size_t tagEnd = bytes_.findBackwards('>', closing, reach);
    if (tagEnd == npos)
        return npos;
    const std::size_t next = closing + 5;
    Ref<Bookmark> folder = Bookmark::init(now_);
    folder->makeParent();
    folder->setItemName(folderName(tagEnd + 1, closing));
    readDates(*folder, start, next);
    folder->setAutoTab(bytes_.find("FOLDER_GROUP=\"true\"", start, next) != npos);
    append(std::move(folder));
    return next;
}

Text NetscapeScan::folderName(std::size_t from, std::size_t to) {
    if (from == to)
        return untitled_;
    Text name = bytes_.text(from, to);
    return isToolbarName(name.view()) ? Text(services_.texts.text("Favourites")) : name;
}

// The first of each attribute counts, if it begins between `start` and `next`, both included. Both names end
// with "=": that byte is rare, unlike their letters in the icons that browsers write into their links.
void NetscapeScan::readDates(Bookmark& item, std::size_t start, std::size_t next) const {
    constexpr std::size_t added = std::string_view("ADD_DATE").size();
    constexpr std::size_t modified = std::string_view("LAST_MODIFIED").size();
    std::size_t addedAt = npos;
    std::size_t modifiedAt = npos;
    const std::size_t end = next + modified + 1;
    for (std::size_t sign = bytes_.find('=', bytes_.nearby('=', start + added), end); sign != npos;
         sign = bytes_.find('=', sign + 1, end)) {
        const char last = bytes_.at(sign - 1);
        if (last == 'E' && addedAt == npos && sign <= next + added &&
            bytes_.startsAt(sign - added, "ADD_DATE"))
            addedAt = sign + 1;
        else if (last == 'D' && modifiedAt == npos && sign >= start + modified &&
                 bytes_.startsAt(sign - modified, "LAST_MODIFIED"))
            modifiedAt = sign + 1;
        else
            continue;
        if (addedAt != npos && modifiedAt != npos)
            break;
    }
    item.setItemDateAdded(dateAt(addedAt));
    item.setItemDateModified(dateAt(modifiedAt));
}

// The date in double quotes at `value`, or null. Its leading digits count; a number too large is the largest.
Date NetscapeScan::dateAt(std::size_t value) const {
    if (bytes_.at(value) != '"')
        return Date();
    const std::string_view rest = bytes_.range(value + 1, bytes_.size());
    const std::size_t plain = std::min(rest.size(), kDigitsThatFit);
    std::uint64_t number = 0;
    std::size_t digits = 0;
    for (; digits < plain && digitAt(rest[digits]) < 10; ++digits)
        number = number * 10 + digitAt(rest[digits]);
    for (; digits < rest.size() && digitAt(rest[digits]) < 10; ++digits)
        number = withDigit(number, digitAt(rest[digits]));
    const std::size_t end = value + 1 + digits;
    bytes_.countExamined(value, end);
    if (bytes_.at(end) != '"' && bytes_.find('"', end) == npos)
        return Date();
    return Date::fromUnixSeconds(static_cast<double>(number));
}

void NetscapeScan::append(Ref<Bookmark> item) {
    lastItem_ = item;
    folder_->addChild(std::move(item));
}

} // namespace tabulon
