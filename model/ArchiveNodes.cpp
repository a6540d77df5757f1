#include "model/ArchiveNodes.h"

#include "text/Misspelling.h"

#include <algorithm>

namespace tabulon::archive {
void NodeReader::Codes::set(Key key, std::uint64_t value) {
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

void NodeReader::Codes::give(Bookmark& node) const {
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

// Reads what a value refers to. A list of children that cannot be read is damage and not a missing list,
// because everything below it would be lost.
bool NodeReader::readReference(Bookmark& node, Key key, std::uint64_t uid) {
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
        children_ = graph_.arrayBehind(uid);
        if (children_.kind() != Kind::Array)
            return graph_.damaged("the children of a folder are not a list.");
        break;
    default:
        break;
    }
    return !graph_.isDamaged();
}

// Reads object `id`, the value in this column. Most values of a node (null, small codes, the class) are the
// same objects as those of the node before. They are decoded once and then settled.
bool NodeReader::readValue(Bookmark& node, Column& column, std::uint64_t id) {
    const Object value = graph_.object(id);
    const bool isReference =
        value.kind() == Kind::Uid && (column.key <= Key::LastOpened || column.key == Key::Children);
    if (value.kind() == Kind::Damaged)
        return graph_.damaged("a value of a bookmark is cut off or has an unknown kind.");
    if (column.key == Key::Children && !isReference)
        return graph_.damaged("the children of a folder are not a list.");
    if (column.key <= Key::LastOpened && !isReference)
        return graph_.damaged("a text or a date of a bookmark is something else.");
    if (isReference && value.value() != 0) {
        column.settledId = kNoId;
        return readReference(node, column.key, value.value());
    }
    column.settledId = id;
    if (column.key == Key::Class)
        class_ = value.kind() == Kind::Uid ? graph_.resolveClass(value.value()) : Class::Unknown;
    else if (!isReference)
        return readCode(column.key, value);
    return true;
}

bool NodeReader::readCode(Key key, Object value) {
    if (value.kind() != Kind::Integer && value.kind() != Kind::Boolean)
        return graph_.damaged("a number of a bookmark is something else.");
    codes_.set(key, value.value());
    return true;
}

bool NodeReader::lookUpKey(Object dictionary, std::uint64_t index) {
    const Key key = graph_.keyAt(dictionary, index);
    if (key > Key::Class)
        return !graph_.isDamaged();
    // Of a repeated key the last value is used. Two lists of children are damage, because one would be lost.
    const auto again = std::erase_if(columns_, [key](const Column& column) { return column.key == key; });
    if (again > 0 && key == Key::Children)
        return graph_.damaged("a folder has two lists of children.");
    if (again > 0 && layouts_ < kMostSearches && graph_.isKeyOverlapped(dictionary, index))
        return graph_.damaged("a key of a bookmark is misspelt.");
    columns_.push_back({key, dictionary.count() + index, kNoId});
    return true;
}

// Returns true if this key may be a damaged form of a key that the record lacks.
bool NodeReader::isMisspeltKey(Object dictionary, std::uint64_t index) {
    const Object key = graph_.element(dictionary, index);
    if (!BinaryPlist::isText(key) || key.count() > kLongestKey)
        return false;
    const Text name = BinaryPlist::text(key);
    for (std::size_t known = 0; known < kNodeKeyCount; ++known)
        if (isMisspelt(name.view(), kKeyNames[known]) &&
            std::none_of(columns_.begin(), columns_.end(),
                         [known](const Column& column) { return column.key == static_cast<Key>(known); }))
            return true;
    return layouts_ <= kMostSearches && graph_.isKeyOverlapped(dictionary, index);
}

// Returns false if a key was changed by damage. It would otherwise be ignored as an unknown key, and its
// values would be missing in every record.
bool NodeReader::everyKeyIsSound(Object dictionary) {
    const bool isOrdinary = columns_.size() == kNodeKeyCount || columns_.size() == dictionary.count();
    if (isOrdinary || ++layouts_ > kMostLayouts)
        return true;
    for (std::uint64_t i = 0; i < dictionary.count(); ++i)
        if (graph_.keyAt(dictionary, i) > Key::Class && isMisspeltKey(dictionary, i))
            return graph_.damaged("a key of a bookmark is misspelt.");
    return true;
}

// Sets `columns_` to the keys of a node's dictionary. The nodes of one writer have the same keys in the same
// order, so these are usually the keys of the node before.
bool NodeReader::lookUpKeys(Object dictionary) {
    if (dictionary.count() == like_.count() && graph_.sameKeys(dictionary, like_))
        return keysAreWhole_;
    like_ = dictionary;
    codes_ = {};
    class_ = Class::Unknown;
    columns_.clear();
    keysAreWhole_ = true;
    for (std::uint64_t i = 0; i < dictionary.count(); ++i)
        if (!lookUpKey(dictionary, i) && !goesOnAfter(keysAreWhole_))
            return false;
    if (!everyKeyIsSound(dictionary))
        goesOnAfter(keysAreWhole_);
    return keysAreWhole_;
}

// Sets `isWhole` to false after damage, and returns true if the record is read on.
bool NodeReader::goesOnAfter(bool& isWhole) {
    isWhole = false;
    if (care_ == Care::Salvage)
        graph_.forgetDamage();
    return care_ == Care::Salvage;
}

bool NodeReader::readValues(Bookmark& node, Object dictionary) {
    bool isWhole = true;
    for (Column& column : columns_) {
        const std::uint64_t id = graph_.idAt(dictionary, column.place);
        if (id == column.settledId || readValue(node, column, id))
            continue;
        if (!goesOnAfter(isWhole))
            return false;
        column.settledId = kNoId;
        if (column.key == Key::Class)
            class_ = Class::Unknown;
        else
            codes_.set(column.key, 0);
    }
    return isWhole;
}

bool NodeReader::read(Bookmark& node, Object dictionary) {
    children_ = {};
    bool isWhole = dictionary.kind() == Kind::Dictionary && graph_.chargeReferences(dictionary);
    if (!isWhole) {
        graph_.damaged("something that is no bookmark stands in its tree.");
        return goesOnAfter(isWhole) && false;
    }
    isWhole = lookUpKeys(dictionary);
    if (!isWhole && care_ == Care::Strict)
        return false;
    isWhole = readValues(node, dictionary) && isWhole;
    if (class_ != Class::Bookmark && !graph_.isDamaged())
        isWhole = graph_.damaged("something that is no bookmark stands in its tree.");
    codes_.give(node);
    if (!isWhole)
        goesOnAfter(isWhole);
    return isWhole && !graph_.isDamaged();
}

} // namespace tabulon::archive
