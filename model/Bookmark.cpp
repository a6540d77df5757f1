// Construction, copying, comparison and codes. The tree operations are in Bookmark_tree.cpp.
#include "model/Bookmark.h"

#include "base/Settings.h"
#include "model/Document.h"

#include <new>

namespace tabulon {

Ref<Bookmark> Bookmark::initEmpty() {
    return Ref<Bookmark>::adopt(new Bookmark);
}

Ref<Bookmark> Bookmark::init(Date now) {
    Ref<Bookmark> node = initEmpty();
    node->dateAdded_ = now;
    node->icon_ = ItemIcon::HttpType;
    return node;
}

Ref<Bookmark> Bookmark::initWithDictionary(const BookmarkDictionary& dictionary, Date now) {
    Ref<Bookmark> node = init(now);
    node->name_ = dictionary.name;
    node->url_ = dictionary.url;
    node->note_ = dictionary.note;
    node->tags_ = dictionary.tags;
    node->determineType();
    return node;
}

namespace {

// Sets all fields of a shallow copy.
void copyInto(Bookmark& copy, const Bookmark& source) {
    copy.setItemName(source.itemName());
    copy.setItemURL(source.itemURL());
    copy.setItemNote(source.itemNote());
    copy.setItemTags(source.itemTags());
    copy.setItemDateAdded(source.itemDateAdded());
    copy.setItemDateModified(source.itemDateModified());
    copy.setItemLastChecked(source.itemLastChecked());
    copy.setItemLastOpened(source.itemLastOpened());
    copy.setItemFolder(source.isFolder());
    copy.setShowHier(source.showHier());
    copy.setAutoTab(source.getAutoTab());
    copy.setType(source.getType());
    copy.setLabel(source.getLabel());
    copy.setFlags(source.getFlags());
    copy.setStatus(source.getStatus());
    copy.setBrowser(source.getBrowser());
    copy.setItemIcon(source.itemIcon());
    if (source.isFolder())
        copy.makeChildList();
    copy.setDocument(source.getDocument());
}

} // namespace

Ref<Bookmark> Bookmark::initWithBookmark(const Bookmark& source) {
    Ref<Bookmark> copy = initEmpty();
    copyInto(*copy, source);
    return copy;
}

void Bookmark::setWithBookmark(const Bookmark& source) {
    name_ = source.name_;
    url_ = source.url_;
    note_ = source.note_;
    tags_ = source.tags_;
    dateModified_ = source.dateModified_;
    type_ = source.type_;
    flags_ = source.flags_;
    label_ = source.label_;
    status_ = source.status_;
    browser_ = source.getBrowser();
}

void Bookmark::opened(const BaseServices& services) {
    if (!valueOf(services.defaults, settings::kLastOpened))
        return;
    lastOpened_ = Date::now(services.clock);
    if (Document* document = getDocument())
        document->updateChangeCount(ChangeKind::Done);
}

bool Bookmark::isIdentical(const Bookmark& node) const {
    return !name_.isNull() && name_ == node.name_ && url_ == node.url_ && note_ == node.note_ &&
           tags_ == node.tags_ && type_ == node.type_ && flags_ == node.flags_ &&
           browser_ == node.getBrowser() && label_ == node.label_ && status_ == node.status_;
}

void Bookmark::setType(std::uint8_t type) {
    type_ = type;
    if (const ItemIcon icon = iconForType(type); icon != ItemIcon::None)
        icon_ = icon;
}

std::uint8_t Bookmark::determineType() {
    if (url_.isNull() || folder_)
        return 0;
    if (type_ == kQueryType || type_ == kSeparatorType)
        return type_;
    if (const auto type = typeForURL(url_.view()))
        setType(*type);
    return type_;
}

void Bookmark::linkIcon() {
    const ItemIcon icon = folder_ ? ItemIcon::Folder : iconForType(type_);
    icon_ = icon == ItemIcon::None ? ItemIcon::HttpType : icon;
}

void Bookmark::setItemQuery(bool query) {
    if (folder_)
        return;
    setType(query ? kQueryType : kWebType);
    if (!query)
        determineType();
}

void Bookmark::setItemLocked(bool locked) {
    flags_ = static_cast<std::uint8_t>(locked ? flags_ | 4 : flags_ & ~4);
}

void Bookmark::handleFlags(std::uint8_t byte) {
    flags_ = byte & 0x0F;
    status_ = byte >> 4;
}

void Bookmark::handleShowHier(std::uint8_t byte) {
    if (byte & 1)
        openFolder_ = true;
    if (byte & 2)
        autoTab_ = true;
    const std::uint8_t nibble = byte >> 4;
    label_ = nibble == 0 ? 0 : static_cast<std::uint8_t>(8 - nibble);
    browser_ = byte & 0x0F;
}

void* Bookmark::operator new(std::size_t size) {
    // Nodes that are made one after the other are usually adjacent in memory. This prefetches the memory of
    // the eighth next one.
    char* block = static_cast<char*>(::operator new(size));
    const std::size_t ahead = 8 * size;
    __builtin_prefetch(block + ahead, 1);
    __builtin_prefetch(block + ahead + 64, 1);
    return block;
}

void Bookmark::operator delete(void* block, std::size_t size) noexcept {
    ::operator delete(block, size);
}

Ref<Bookmark2> Bookmark2::init(Date now) {
    auto node = Ref<Bookmark2>::adopt(new Bookmark2);
    node->setItemDateAdded(now);
    node->setItemIcon(ItemIcon::HttpType);
    return node;
}

Ref<Bookmark2> Bookmark2::initWithBookmark(const Bookmark& source) {
    auto copy = Ref<Bookmark2>::adopt(new Bookmark2);
    copyInto(*copy, source);
    return copy;
}

} // namespace tabulon
