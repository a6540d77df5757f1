#include "formats/import/PlistEntries.h"

#include "text/Misspelling.h"

#include <algorithm>

namespace tabulon {

void PlistEntries::damaged(std::string_view what) {
    if (problem_.empty())
        problem_ = what;
}

PlistEntries::Object PlistEntries::object(std::uint64_t id) {
    const Object object = list_.binary().object(id);
    if (object.kind() == Kind::Damaged)
        damaged("an object of its property list is cut off, has an unknown kind or is not there.");
    return object;
}

PlistEntries::Object PlistEntries::value(Object dictionary, std::string_view key) {
    if (dictionary.kind() != Kind::Dictionary)
        return {};
    for (std::uint64_t i = dictionary.count(); i > 0; --i) {
        const Object name = object(list_.binary().reference(dictionary, i - 1));
        if (!BinaryPlist::isText(name))
            damaged("a key of an entry is no text.");
        if (BinaryPlist::textEquals(name, key))
            return object(list_.binary().reference(dictionary, dictionary.count() + i - 1));
    }
    return {};
}

PlistEntries::Object PlistEntries::children(Object entry) {
    const Object children = value(entry, "Children");
    if (children.kind() != Kind::Array && children.kind() != Kind::Damaged)
        damaged("the children of a folder are not a list.");
    return children;
}

Text PlistEntries::text(Object entry, std::string_view key) {
    const Object found = value(entry, key);
    if (!BinaryPlist::isText(found))
        return {};
    if (found.count() <= kShort)
        return BinaryPlist::text(found);
    Text& shared = texts_[found.bytes()];
    if (!shared.isNull())
        return shared;
    if (found.count() > budget_) {
        damaged("texts of its property list lie inside each other.");
        return {};
    }
    budget_ -= found.count();
    return shared = BinaryPlist::text(found);
}

// Writers leave no gaps between objects. Where a dictionary was cut short, its references continue.
bool PlistEntries::endsWhereAnotherBegins(Object dictionary) {
    const BinaryPlist& plist = list_.binary();
    if (begins_.empty()) {
        begins_.resize(plist.endOfObjects() + 1);
        for (std::uint64_t id = 0; id < plist.objectCount(); ++id)
            begins_[plist.beginOf(id)] = true;
        begins_[plist.endOfObjects()] = true;
    }
    return begins_[plist.positionOf(dictionary) + plist.referenceBytes(dictionary)];
}

void PlistEntries::noteForeignEntry() {
    if (!list_.isXml())
        damaged("a folder lists something that is no bookmark.");
}

bool PlistEntries::isMisspeltKey(std::uint64_t key, std::string_view known) {
    const Object name = object(key);
    return BinaryPlist::isText(name) && name.count() <= kLongestKey &&
           isMisspelt(BinaryPlist::text(name).view(), known);
}

void PlistEntries::requireNoneMisspelt(Object entry, std::initializer_list<std::string_view> keys) {
    if (list_.isXml() || entry.kind() != Kind::Dictionary)
        return;
    for (std::uint64_t i = 0; i < entry.count(); ++i)
        for (const std::string_view known : keys)
            if (isMisspeltKey(list_.binary().reference(entry, i), known))
                damaged("a key of an entry is misspelt.");
}

void PlistEntries::requireNone(Object entry, std::initializer_list<std::string_view> keys) {
    if (list_.isXml() || entry.kind() != Kind::Dictionary)
        return;
    if (!endsWhereAnotherBegins(entry))
        damaged("an entry is cut off.");
    requireNoneMisspelt(entry, keys);
    for (std::uint64_t i = 0; i < entry.count(); ++i)
        for (const std::string_view known : keys)
            if (BinaryPlist::textEquals(object(list_.binary().reference(entry, i)), known))
                damaged("an entry has neither a name nor an address that can be read.");
}

void PlistEntries::requireSoundKeys(Object entry, std::span<const std::string_view> noLists) {
    if (list_.isXml() || entry.kind() != Kind::Dictionary)
        return;
    std::vector<std::uint64_t> keys;
    for (std::uint64_t i = 0; i < entry.count(); ++i) {
        const std::uint64_t key = list_.binary().reference(entry, i);
        keys.push_back(key);
        const std::uint64_t value = list_.binary().reference(entry, entry.count() + i);
        if (list_.binary().object(value).kind() != Kind::Array)
            continue;
        const Object name = object(key);
        if (isMisspeltKey(key, "Children") ||
            std::any_of(noLists.begin(), noLists.end(),
                        [&](std::string_view known) { return BinaryPlist::textEquals(name, known); }))
            damaged("a list stands under a key that has none.");
    }
    std::sort(keys.begin(), keys.end());
    if (std::adjacent_find(keys.begin(), keys.end()) != keys.end())
        damaged("an entry has a key twice.");
}

std::vector<bool> PlistEntries::reachableObjects() {
    const BinaryPlist& plist = list_.binary();
    std::vector<bool> isReached(plist.objectCount());
    std::vector<std::uint64_t> open;
    const auto reach = [&](std::uint64_t id) {
        if (id < isReached.size() && !isReached[id]) {
            isReached[id] = true;
            open.push_back(id);
        }
    };
    reach(plist.topObject());
    std::uint64_t references = 0;
    while (!open.empty()) {
        const Object container = plist.object(open.back());
        open.pop_back();
        if (container.kind() != Kind::Array && container.kind() != Kind::Dictionary)
            continue;
        const std::uint64_t count = container.count() * (container.kind() == Kind::Dictionary ? 2 : 1);
        references += count;
        if (references > list_.size()) {
            damaged("objects of its property list overlap.");
            break;
        }
        for (std::uint64_t i = 0; i < count; ++i)
            reach(plist.reference(container, i));
    }
    return isReached;
}

void PlistEntries::requireNoneLost(std::initializer_list<std::string_view> keys, std::ptrdiff_t enough) {
    if (list_.isXml())
        return;
    const auto isBookmark = [&](Object entry) {
        return value(entry, "Children").kind() == Kind::Array ||
               std::count_if(keys.begin(), keys.end(), [&](std::string_view key) {
                   return value(entry, key).kind() != Kind::Damaged;
               }) >= enough;
    };
    const std::vector<bool> isReached = reachableObjects();
    std::uint64_t pairs = 0;
    for (std::uint64_t id = 0; id < isReached.size() && !isDamaged(); ++id) {
        const Object entry = isReached[id] ? Object() : object(id);
        if (entry.kind() != Kind::Dictionary)
            continue;
        pairs += entry.count();
        if (pairs > list_.size())
            damaged("objects of its property list overlap.");
        else if (isBookmark(entry))
            return damaged("there are bookmarks that no folder holds.");
    }
}

} // namespace tabulon
