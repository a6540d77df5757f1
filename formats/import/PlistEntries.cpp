#include "formats/import/PlistEntries.h"

#include "model/Misspelling.h"

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

PlistEntries::Object PlistEntries::seen(std::uint64_t id) {
    if (id < isSeen_.size())
        isSeen_[id] = true;
    return object(id);
}

PlistEntries::Object PlistEntries::value(Object dictionary, std::string_view key) {
    if (dictionary.kind() != Kind::Dictionary)
        return {};
    for (std::uint64_t i = dictionary.count(); i > 0; --i) {
        const Object name = object(list_.binary().reference(dictionary, i - 1));
        if (!BinaryPlist::isText(name))
            damaged("a key of an entry is no text.");
        if (BinaryPlist::textEquals(name, key))
            return seen(list_.binary().reference(dictionary, dictionary.count() + i - 1));
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

// Writers leave no gaps: what follows a dictionary that was cut short are references.
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

void PlistEntries::requireNone(Object entry, std::initializer_list<std::string_view> keys) {
    if (list_.isXml())
        return;
    if (entry.count() == 0 || !endsWhereAnotherBegins(entry))
        damaged("an entry is cut off.");
    for (std::uint64_t i = 0; i < entry.count(); ++i) {
        const Object key = object(list_.binary().reference(entry, i));
        if (!BinaryPlist::isText(key) || key.count() > 32)
            continue;
        const Text name = BinaryPlist::text(key);
        const bool isOne = std::any_of(keys.begin(), keys.end(), [&](std::string_view known) {
            return name.view() == known || isMisspelt(name.view(), known);
        });
        // A list under a key of any other name may be a folder's.
        const Object value = object(list_.binary().reference(entry, entry.count() + i));
        if (isOne || value.kind() == Kind::Array)
            damaged("an entry has neither a name nor an address that can be read.");
    }
}

void PlistEntries::requireAllSeen(std::initializer_list<std::string_view> keys, std::ptrdiff_t enough) {
    if (list_.isXml())
        return;
    const auto isBookmark = [&](Object entry) {
        return value(entry, "Children").kind() == Kind::Array ||
               std::count_if(keys.begin(), keys.end(), [&](std::string_view key) {
                   return value(entry, key).kind() != Kind::Damaged;
               }) >= enough;
    };
    std::uint64_t pairs = 0;
    for (std::uint64_t id = 0; id < isSeen_.size() && !isDamaged(); ++id) {
        const Object entry = isSeen_[id] ? Object() : object(id);
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
