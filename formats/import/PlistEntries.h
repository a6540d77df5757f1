// The entries of a browser's property list, with detection of damage. A damaged value must not count as
// absent, since the bookmarks below it would be absent too. Only binary lists are searched for damage that
// leaves a valid list; in XML such an entry is as it was written. The meaning of entries is in
// PlistBookmarks.cpp.
#pragma once

#include "plist/PropertyList.h"

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tabulon {

/// Reads a property list and collects the first damage that is reported. Functions that report damage set
/// `isDamaged()` and continue.
class PlistEntries {
public:
    using Object = PropertyList::Object;
    using Kind = PropertyList::Kind;

    /// `list` must outlive this object.
    explicit PlistEntries(const PropertyList& list)
        : list_(list), budget_(8 * std::uint64_t{list.size()} + 4096) {}

    /// Returns the top object, of any kind.
    Object top() { return object(list_.binary().topObject()); }
    /// Returns element `index` of `array`. Requires: an Array, and `index` is less than its count.
    Object element(Object array, std::uint64_t index) {
        return object(list_.binary().reference(array, index));
    }
    /// Returns the value of `key` (ASCII) in `dictionary`, the last one where it is there twice. Returns an
    /// object of the kind Damaged where there is none, or `dictionary` is no dictionary, without a report.
    /// Reports damage where a key is no text or the value cannot be read. Linear in the size of the
    /// dictionary.
    Object value(Object dictionary, std::string_view key);
    /// Returns the Array of an entry's children, or an object of the kind Damaged where it has none. Reports
    /// damage where the children are of another kind.
    Object children(Object entry);
    /// Returns the text of `key`, or a null text where the value is no text. Many entries may share a text,
    /// or have texts that overlap; a long text is made once. Reports damage where all together would have
    /// more than a small multiple of the size of the list.
    Text text(Object entry, std::string_view key);

    /// Reports that a folder contains a value that is no bookmark. Does nothing for XML.
    void noteForeignEntry();
    /// Reports damage if an entry has one of `keys`, even misspelt, or is cut off. To be called for an entry
    /// that seemed to have none of them, which happens when their values are of the wrong kind. Other keys
    /// are ignored. Does nothing for XML.
    void requireNone(Object entry, std::initializer_list<std::string_view> keys);
    /// Reports damage if a key of `entry` is a misspelling of one of `keys`. Does nothing for XML.
    void requireNoneMisspelt(Object entry, std::initializer_list<std::string_view> keys);
    /// Reports damage if an entry has a key twice, or has a list as the value of a misspelt "Children" or of
    /// one of `noLists`. Does nothing for XML.
    void requireSoundKeys(Object entry, std::span<const std::string_view> noLists);
    /// Reports damage if a dictionary that cannot be reached from the top object has `enough` of `keys`, or a
    /// list of children. Dictionaries that are reachable under other keys are ignored. Linear in the size of
    /// the list. Does nothing for XML.
    void requireNoneLost(std::initializer_list<std::string_view> keys, std::ptrdiff_t enough);

    /// Returns whether damage was reported.
    bool isDamaged() const { return !problem_.empty(); }
    /// Returns the first damage that was reported, as a sentence. Requires: `isDamaged()`.
    tl::unexpected<Error> damage() const { return failure("The file is damaged: " + problem_); }
    /// Reports damage. `what` is the end of a sentence; only that of the first call is kept.
    void damaged(std::string_view what);

private:
    static constexpr std::uint64_t kShort = 8; // units; sharing such a text costs as much as a copy
    static constexpr std::uint64_t kLongestKey = 32;

    /// Returns the object, and reports damage where it cannot be read.
    Object object(std::uint64_t id);
    /// Returns whether the object `key` is a text that is a misspelling of `known`.
    bool isMisspeltKey(std::uint64_t key, std::string_view known);
    /// Returns for each object whether it can be reached from the top object.
    std::vector<bool> reachableObjects();
    /// Returns whether an object, or the end of the objects, follows immediately after `dictionary`.
    bool endsWhereAnotherBegins(Object dictionary);

    const PropertyList& list_;
    std::unordered_map<const std::uint8_t*, Text> texts_; // by the address of their bytes in the list
    std::uint64_t budget_;                                // units of texts
    std::vector<bool> begins_;                            // by offset in the file; empty until the first use
    std::string problem_;
};

} // namespace tabulon
