#include "model/TreeSort.h"

#include "model/TreeWalk.h"
#include "text/Collation.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tabulon {
namespace {

// Returns the first eight bytes of a key as a number that has the same order. Most keys differ in them.
std::uint64_t headOf(std::string_view key) {
    std::uint64_t head = 0;
    for (std::size_t i = 0; i < 8; ++i)
        head = (head << 8) | (i < key.size() ? static_cast<std::uint8_t>(key[i]) : 0u);
    return head;
}

// Returns a number that has the order of the dates, and a larger one for missing dates.
std::uint64_t numberOf(Date date) {
    if (date.isNull() || std::isnan(date.referenceSeconds()))
        return ~std::uint64_t{0};
    constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
    const double seconds = date.referenceSeconds() + 0.0; // makes -0 equal to 0
    const auto bits = std::bit_cast<std::uint64_t>(seconds);
    return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

const Text& textOf(const Bookmark& node, SortKey key) {
    switch (key) {
    case SortKey::URL:
        return node.itemURL();
    case SortKey::Tags:
        return node.itemTags();
    default:
        return node.itemName();
    }
}

Date dateOf(const Bookmark& node, SortKey key) {
    switch (key) {
    case SortKey::DateAdded:
        return node.itemDateAdded();
    case SortKey::DateModified:
        return node.itemDateModified();
    default:
        return node.itemLastOpened();
    }
}

bool isByDate(SortKey key) {
    return key == SortKey::DateAdded || key == SortKey::DateModified || key == SortKey::DateLastOpened;
}

// Sorts one folder after the other, with the same buffers.
class Sorter {
public:
    Sorter(SortKey key, SortDirection direction, const Collation& collation)
        : key_(key), direction_(direction), collation_(collation) {}

    void sortChildren(Bookmark& folder) {
        const std::size_t count = folder.getChildren()->size();
        if (count < 2)
            return;
        keys_.clear();
        sharedKeys_.clear();
        entries_.clear();
        entries_.reserve(count);
        for (Bookmark* child : *folder.getChildren())
            entries_.push_back(entryFor(*child));
        for (Entry& entry : entries_)
            if (!entry.missing && !isByDate(key_))
                entry.head = headOf(keyOf(entry));
        if (std::ranges::is_sorted(entries_,
                                   [this](const Entry& a, const Entry& b) { return isBefore(a, b); }))
            return;
        std::ranges::sort(entries_, [this](const Entry& a, const Entry& b) { return isBefore(a, b); });
        std::vector<Ref<Bookmark>> children;
        children.reserve(count);
        for (const Entry& entry : entries_)
            children.emplace_back(entry.node);
        folder.setChildren(children);
    }

private:
    struct Entry {
        std::uint64_t head;
        std::size_t keyStart; // in keys_
        std::uint32_t keySize;
        std::uint32_t place; // among the siblings before the sort
        Bookmark* node;
        bool missing;
        bool folder;
    };

    /// A key in `keys_`.
    struct Key {
        std::size_t start = 0;
        std::uint32_t size = 0;
    };
    static constexpr std::size_t kLong = 256;

    Entry entryFor(Bookmark& child) {
        Entry entry{.head = 0,
                    .keyStart = keys_.size(),
                    .keySize = 0,
                    .place = static_cast<std::uint32_t>(entries_.size()),
                    .node = &child,
                    .missing = false,
                    .folder = child.isFolder()};
        if (isByDate(key_)) {
            entry.head = numberOf(dateOf(child, key_));
            return entry;
        }
        const Text& text = textOf(child, key_);
        entry.missing = text.isNull();
        // Many nodes may share one long text. Its key is computed only once.
        Key* const shared =
            text.isShared() && text.view().size() >= kLong ? &sharedKeys_[text.view().data()] : nullptr;
        const Key key = shared && shared->size > 0 ? *shared : newKey(text);
        if (shared)
            *shared = key;
        entry.keyStart = key.start;
        entry.keySize = key.size;
        return entry;
    }

    Key newKey(const Text& text) {
        const std::size_t start = keys_.size();
        if (key_ == SortKey::NameExactly)
            keys_ += text.view();
        else if (!text.isNull())
            collation_.appendSortKey(keys_, text.view());
        return {start, static_cast<std::uint32_t>(keys_.size() - start)};
    }

    std::string_view keyOf(const Entry& entry) const {
        return std::string_view(keys_).substr(entry.keyStart, entry.keySize);
    }

    bool isBefore(const Entry& a, const Entry& b) const {
        if (a.folder != b.folder)
            return a.folder;
        const Entry& lower = direction_ == SortDirection::Ascending ? a : b;
        const Entry& higher = direction_ == SortDirection::Ascending ? b : a;
        if (lower.missing != higher.missing)
            return higher.missing;
        if (lower.head != higher.head)
            return lower.head < higher.head;
        const int order = keyOf(lower).compare(keyOf(higher));
        return order != 0 ? order < 0 : a.place < b.place;
    }

    const SortKey key_;
    const SortDirection direction_;
    const Collation& collation_;
    std::string keys_;
    std::unordered_map<const char*, Key> sharedKeys_; // by the address of the text
    std::vector<Entry> entries_;
};

} // namespace

SortKey sortKeyForIndex(int index) {
    return index >= 0 && index < static_cast<int>(SortKey::NameExactly) ? static_cast<SortKey>(index)
                                                                        : SortKey::NameExactly;
}

void sortFolder(Bookmark& folder, SortKey key, SortDirection direction, const Collation& collation) {
    std::vector<Bookmark*> folders;
    if (folder.hasChildren())
        folders.push_back(&folder);
    walkBelow(folder, [&folders](Bookmark& node) {
        if (node.isFolder() && node.hasChildren())
            folders.push_back(&node);
        return node.isFolder();
    });
    Sorter sorter(key, direction, collation);
    for (Bookmark* each : folders)
        sorter.sortChildren(*each);
}

} // namespace tabulon
