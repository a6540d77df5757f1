// The entries of a browser's property list, with an eye on damage: what is damaged does not count as missing,
// since the bookmarks below it would be missing too. Only binary lists are searched for traces of damage that
// left a sound list behind; in XML such an entry is what its writer wrote. What entries mean is in
// PlistBookmarks.cpp.
#pragma once

#include "plist/PropertyList.h"

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tabulon {

/// Reading access to a list that must outlive it. What is wrong is noted, the first thing that is.
class PlistEntries {
public:
    using Object = PropertyList::Object;
    using Kind = PropertyList::Kind;

    explicit PlistEntries(const PropertyList& list)
        : list_(list), budget_(8 * std::uint64_t{list.size()} + 4096) {}

    /// The top dictionary, or whatever else is there.
    Object top() { return object(list_.binary().topObject()); }
    /// Element `index` of an Array, below its count.
    Object element(Object array, std::uint64_t index) {
        return object(list_.binary().reference(array, index));
    }
    /// The (last) value under a key of ASCII characters; Damaged, without a note, where there is none or
    /// `dictionary` is no dictionary. Linear in the size of the dictionary.
    Object value(Object dictionary, std::string_view key);
    /// The list of an entry's children, or Damaged where it has none. One that is no list is noted.
    Object children(Object entry);
    /// The text under a key, null for anything else. Entries may share one, or texts that overlap, a million
    /// times: each is made once, and all together take no more than a small multiple of the list; more is
    /// noted.
    Text text(Object entry, std::string_view key);

    /// Notes that a folder lists something that is no bookmark; does nothing for XML.
    void noteForeignEntry();
    /// For an entry that has none of these keys, as it seems: notes that it has one of them misspelt or with
    /// something of the wrong kind under it, or that it is cut off. Whatever else it has is its writer's.
    void requireNone(Object entry, std::initializer_list<std::string_view> keys);
    /// For an entry without these keys: notes that it has one of them misspelt. The keys are mostly the same
    /// texts in all entries.
    void requireNoneMisspelt(Object entry, std::initializer_list<std::string_view> keys);
    /// Notes that an entry has one key twice, or a list under a misspelt "Children" or one of `noLists`.
    void requireSoundKeys(Object entry, std::span<const std::string_view> noLists);
    /// Notes that there are dictionaries with `enough` of these keys, or a list of children, that nothing
    /// refers to which can be reached from the top. What the top refers to under other keys is its writer's.
    void requireNoneLost(std::initializer_list<std::string_view> keys, std::ptrdiff_t enough);

    bool isDamaged() const { return !problem_.empty(); }
    tl::unexpected<Error> damage() const { return failure("The file is damaged: " + problem_); }
    void damaged(std::string_view what);

private:
    static constexpr std::uint64_t kShort = 8; // no longer than what a shared text takes itself
    static constexpr std::uint64_t kLongestKey = 32;

    Object object(std::uint64_t id);
    bool isMisspeltKey(std::uint64_t key, std::string_view known);
    std::vector<bool> reachableObjects();
    bool endsWhereAnotherBegins(Object dictionary);

    const PropertyList& list_;
    std::unordered_map<const std::uint8_t*, Text> texts_; // by where they lie
    std::uint64_t budget_;                                // units of texts
    std::vector<bool> begins_;                            // by position in the file, once they were asked for
    std::string problem_;
};

} // namespace tabulon
