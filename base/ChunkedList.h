// An ordered list that finds the index of an item without a search: the children of a folder, the rows of an
// outline. It is a vector of arrays ("chunks") of at most 512 items. Each item stores a link to its chunk and
// its position in it.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <span>
#include <vector>

namespace tabulon {

/// Holds pointers and does not own the items. An item must outlive its membership.
///
/// `Link` returns the two fields in which an item stores its link to a list of this kind:
///     static void*& chunk(Item&);          // nullptr while the item is in no list of this kind
///     static std::uint16_t& place(Item&);  // the position in the chunk
///
/// Complexity, with c chunks of at most 512 items each: `indexOf` and `at` take constant and O(log c) time.
/// The first of them after a change also counts again the chunks after the change, O(c). `insert` and
/// `eraseAt` move at most 512 items and renumber at most c chunks. Iteration is linear.
///
/// An item may be in several lists, or twice in one list; its link then names only one of these positions.
/// Look-ups in such a list search from its beginning, in linear time, and return the first position. Adding
/// an item that is in a list already has this effect on both lists until `clear`, also after the item was
/// removed.
///
/// Every change invalidates iterators. Not safe for use by several threads at once, since `const` look-ups
/// write to a cache. Throws std::bad_alloc when memory is exhausted. Neither copied nor moved.
template <class Item, class Link>
class ChunkedList {
    /// The most items of a chunk.
    static constexpr std::size_t kMaximum = 512;
    /// The room of a list's first chunk, in items, unless `reserve` was called for more.
    static constexpr std::size_t kFirstCapacity = 4;

    /// The header of an array of items, which follow it in the same allocation.
    struct Chunk {
        ChunkedList* list;      ///< the list that contains the chunk
        std::uint32_t number;   ///< its index in `chunks_`
        std::uint16_t count;    ///< the items in use, 1 to `kMaximum` between changes
        std::uint16_t capacity; ///< the items that have room, `kFirstCapacity` to `kMaximum`

        /// Returns the first item. The address changes when the chunk is replaced.
        Item** items() { return reinterpret_cast<Item**>(this + 1); }
        std::size_t size() const { return count; }
    };
    /// A chunk, owned by the list, and the index of its first item, which is valid below `ordered_`.
    struct Entry {
        Chunk* chunk;
        std::size_t start;
    };

public:
    /// The index of an item that is not in the list.
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    /// A forward iterator over the items, in order.
    class iterator {
    public:
        using value_type = Item*;
        using difference_type = std::ptrdiff_t;

        /// Constructs an iterator of no list, which can only be assigned to.
        iterator() = default;
        /// Returns the item, never nullptr. Requires: the iterator is of a list and not its end.
        Item* operator*() const { return list_->chunks_[number_].chunk->items()[place_]; }
        /// Moves to the next item, or to the end. Constant time. Requires: not the end.
        iterator& operator++() {
            if (++place_ == list_->chunks_[number_].chunk->size()) {
                place_ = 0;
                ++number_;
            }
            return *this;
        }
        /// Does the same, and returns the iterator as it was before.
        iterator operator++(int) {
            iterator before = *this;
            ++*this;
            return before;
        }
        /// Returns true for the same position. Requires: both are of the same list.
        bool operator==(const iterator& other) const {
            return number_ == other.number_ && place_ == other.place_;
        }

    private:
        friend class ChunkedList;
        iterator(const ChunkedList* list, std::size_t number) : list_(list), number_(number) {}

        const ChunkedList* list_ = nullptr;
        std::size_t number_ = 0;
        std::size_t place_ = 0;
    };

    /// Constructs an empty list, which allocates no memory before the first item.
    ChunkedList() = default;
    ChunkedList(const ChunkedList&) = delete;
    ChunkedList& operator=(const ChunkedList&) = delete;
    /// Clears the links of all items. The items are not destroyed. Linear.
    ~ChunkedList() { clear(); }

    /// Returns the number of items; an item that was added twice counts twice. Constant time.
    std::size_t size() const { return size_; }
    /// Returns true if the list has no items. Constant time.
    bool empty() const { return size_ == 0; }
    /// Returns an iterator at the first item, or the end of an empty list. Constant time.
    iterator begin() const { return iterator(this, 0); }
    /// Returns the position after the last item. Constant time.
    iterator end() const { return iterator(this, chunks_.size()); }

    /// Returns the first item, or nullptr if the list is empty. Constant time.
    Item* front() const { return empty() ? nullptr : chunks_.front().chunk->items()[0]; }
    /// Returns the last item, or nullptr if the list is empty. Constant time.
    Item* back() const {
        if (empty())
            return nullptr;
        Chunk* last = chunks_.back().chunk;
        return last->items()[last->size() - 1];
    }

    /// Returns the item at `index`, never nullptr. The index is not checked. Requires: index < size(). Takes
    /// O(log c) time, besides the counting.
    Item* at(std::size_t index) const {
        const auto [number, place] = locate(index);
        return chunks_[number].chunk->items()[place];
    }

    /// Returns the first index of `item`, or npos if it is not in this list. Takes constant time, besides the
    /// counting; linear in a list that shares items.
    std::size_t indexOf(const Item& item) const {
        if (shared_)
            return searchFor(item);
        Chunk* chunk = chunkOf(item);
        return chunk ? startOf(chunk->number) + Link::place(const_cast<Item&>(item)) : npos;
    }

    /// Returns true if `item` is in this list. Constant time; linear in a list that shares items.
    bool contains(const Item& item) const {
        return shared_ ? searchFor(item) != npos : chunkOf(item) != nullptr;
    }

    /// Returns the item after `item`, or nullptr after the last one and for an item that is not in the list.
    /// Constant time; linear in a list that shares items.
    Item* next(const Item& item) const {
        if (shared_) {
            const std::size_t index = searchFor(item);
            return index == npos || index + 1 >= size_ ? nullptr : at(index + 1);
        }
        Chunk* chunk = chunkOf(item);
        if (!chunk)
            return nullptr;
        const std::size_t place = Link::place(const_cast<Item&>(item)) + std::size_t{1};
        if (place < chunk->size())
            return chunk->items()[place];
        return chunk->number + 1 < chunks_.size() ? chunks_[chunk->number + 1].chunk->items()[0] : nullptr;
    }

    /// Sizes the chunks for `count` items that will be added by `append`. Does nothing if the list has items.
    /// The list does not grow by this, and may get more items or fewer. Allocates the vector of chunks, but
    /// no chunk. The number is used for the first chunks until `clear`.
    void reserve(std::size_t count) {
        if (empty() && count > 0) {
            chunks_.reserve((count + kMaximum - 1) / kMaximum);
            expected_ = count;
        }
    }

    /// Adds `item` at the end, and sets its link to this list. Amortized constant time. The item may be in a
    /// list already; see above.
    void append(Item& item) {
        if (chunks_.empty() || chunks_.back().chunk->count == chunks_.back().chunk->capacity)
            makeRoomAtEnd();
        Chunk* chunk = chunks_.back().chunk;
        noteSharing(item);
        place(item, chunk, chunk->count++);
        ++size_;
    }

    /// Inserts `item` before the item at `index`, or at the end. Requires: index <= size().
    void insert(std::size_t index, Item& item) {
        if (index == size_)
            return append(item);
        auto [number, place0] = locate(index);
        if (chunks_[number].chunk->size() == kMaximum) {
            split(number, kMaximum / 2);
            if (place0 >= kMaximum / 2) {
                place0 -= kMaximum / 2;
                ++number;
            }
        }
        Chunk* chunk = roomFor(number);
        noteSharing(item);
        std::memmove(chunk->items() + place0 + 1, chunk->items() + place0,
                     (chunk->size() - place0) * sizeof(Item*));
        chunk->items()[place0] = &item;
        ++chunk->count;
        relink(chunk, place0);
        changedAfter(number);
        ++size_;
    }

    /// Removes the item at `index` and clears its link. Requires: index < size(). The link stays if it names
    /// another position of the item. The item is not destroyed, and the memory of a chunk without items is
    /// freed.
    void eraseAt(std::size_t index) {
        const auto [number, place0] = locate(index);
        Chunk* chunk = chunks_[number].chunk;
        unlink(*chunk->items()[place0], chunk, place0);
        std::memmove(chunk->items() + place0, chunk->items() + place0 + 1,
                     (chunk->size() - place0 - 1) * sizeof(Item*));
        --chunk->count;
        --size_;
        relink(chunk, place0);
        changedAfter(number);
        if (chunk->count == 0)
            removeChunks(number, number + 1);
        else
            joinWithNext(number);
    }

    /// Inserts the items, in their order, before the item at `index` or at the end. Linear in the number of
    /// items, and in the number of chunks for every 512 of them. Requires: index <= size(). An empty range
    /// changes nothing. Requires: `items` are not part of this list's memory.
    void insertRange(std::size_t index, std::span<Item* const> items) {
        if (items.size() <= 16) {
            for (Item* item : items)
                insert(index++, *item);
            return;
        }
        std::size_t number = cut(index);
        for (std::size_t done = 0; done < items.size(); ++number) {
            const std::size_t count = std::min(kMaximum, items.size() - done);
            Chunk* chunk = newChunk(count);
            chunks_.insert(chunks_.begin() + static_cast<std::ptrdiff_t>(number), Entry{chunk, 0});
            for (std::size_t i = 0; i < count; ++i) {
                noteSharing(*items[done + i]);
                chunk->number = static_cast<std::uint32_t>(number);
                place(*items[done + i], chunk, i);
            }
            chunk->count = static_cast<std::uint16_t>(count);
            done += count;
        }
        size_ += items.size();
        renumber(0);
    }

    /// Removes `count` items from `index` on. Linear in `count` and in the number of chunks. Requires:
    /// index + count <= size().
    void eraseRange(std::size_t index, std::size_t count) {
        if (count <= 16) {
            while (count-- > 0)
                eraseAt(index);
            return;
        }
        const std::size_t from = cut(index);
        const std::size_t to = cut(index + count);
        size_ -= count;
        removeChunks(from, to);
    }

    /// Removes `item` from the list that its link names, at its first position there. Does nothing if the
    /// link is nullptr. Takes the time of `indexOf` and `eraseAt`.
    static void eraseFromItsList(Item& item) {
        auto* chunk = static_cast<Chunk*>(Link::chunk(item));
        if (!chunk)
            return;
        ChunkedList* list = chunk->list;
        list->eraseAt(list->indexOf(item));
    }

    /// Removes all items and clears their links to this list. Linear. The items are not destroyed. Frees the
    /// chunks, and discards the number that `reserve` was called for.
    void clear() {
        for (const Entry& entry : chunks_)
            freeChunk(entry.chunk);
        chunks_.clear();
        size_ = 0;
        ordered_ = 0;
        expected_ = 0;
        shared_ = false;
    }

private:
    /// The number of a chunk, and a position in it. Valid until the list changes.
    struct Place {
        std::size_t number;
        std::size_t place;
    };

    /// Returns a chunk without items, which the caller owns. Its `list` is not set. Throws std::bad_alloc
    /// when memory is exhausted. Requires: 1 <= capacity <= kMaximum.
    static Chunk* newChunkOfCapacity(std::size_t capacity) {
        auto* chunk = static_cast<Chunk*>(std::malloc(sizeof(Chunk) + capacity * sizeof(Item*)));
        if (!chunk)
            throw std::bad_alloc();
        chunk->count = 0;
        chunk->number = 0;
        chunk->capacity = static_cast<std::uint16_t>(capacity);
        return chunk;
    }
    /// Returns a chunk of this list without items, which the caller owns. Throws and requires the same.
    Chunk* newChunk(std::size_t capacity) {
        Chunk* chunk = newChunkOfCapacity(capacity);
        chunk->list = this;
        return chunk;
    }
    /// Clears the links of the chunk's items and frees it. Linear in its items. The caller removes it from
    /// `chunks_`.
    static void freeChunk(Chunk* chunk) {
        for (std::size_t i = 0; i < chunk->size(); ++i)
            unlink(*chunk->items()[i], chunk, i);
        std::free(chunk);
    }

    /// Stores `item` at a position of the chunk, and the link to it in the item. The position must exist.
    static void place(Item& item, Chunk* chunk, std::size_t at) {
        chunk->items()[at] = &item;
        Link::chunk(item) = chunk;
        Link::place(item) = static_cast<std::uint16_t>(at);
    }
    /// Clears the item's link if it names this position. An item in several lists may have the link to
    /// another one.
    static void unlink(Item& item, Chunk* chunk, std::size_t at) {
        if (Link::chunk(item) == chunk && Link::place(item) == at)
            Link::chunk(item) = nullptr;
    }
    /// Sets the links of the chunk's items from a position on. Linear in the number of these items.
    static void relink(Chunk* chunk, std::size_t from) {
        for (std::size_t i = from; i < chunk->size(); ++i)
            place(*chunk->items()[i], chunk, i);
    }

    /// Marks both lists if `item` is added while it is in a list. It then has one link for two positions, and
    /// look-ups by link would be wrong in both lists.
    void noteSharing(Item& item) {
        if (auto* chunk = static_cast<Chunk*>(Link::chunk(item))) {
            chunk->list->shared_ = true;
            shared_ = true;
        }
    }

    /// Returns the chunk of this list that the item's link names, or nullptr. Constant time. Not to be used
    /// for look-ups while `shared_` is set.
    Chunk* chunkOf(const Item& item) const {
        auto* chunk = static_cast<Chunk*>(Link::chunk(const_cast<Item&>(item)));
        return chunk && chunk->list == this ? chunk : nullptr;
    }

    /// Returns the first index of `item`, or npos. Does not use its link. Linear.
    std::size_t searchFor(const Item& item) const {
        std::size_t index = 0;
        for (const Item* each : *this) {
            if (each == &item)
                return index;
            ++index;
        }
        return npos;
    }

    /// Makes `start` valid for the chunks up to this number. Linear in the number of chunks that it was not
    /// valid for. Requires: there is a chunk of this number.
    void orderUpTo(std::size_t number) const {
        for (; ordered_ <= number; ++ordered_)
            chunks_[ordered_].start =
                ordered_ == 0 ? 0 : chunks_[ordered_ - 1].start + chunks_[ordered_ - 1].chunk->size();
    }
    /// Returns the index of the first item of a chunk. Requires: there is a chunk of this number.
    std::size_t startOf(std::size_t number) const {
        orderUpTo(number);
        return chunks_[number].start;
    }
    /// Returns the position of the item at `index`. Requires: index < size(). Takes O(log c) time, besides
    /// the counting.
    Place locate(std::size_t index) const {
        if (chunks_.size() == 1)
            return {0, index};
        orderUpTo(chunks_.size() - 1);
        const auto after =
            std::upper_bound(chunks_.begin(), chunks_.end(), index,
                             [](std::size_t i, const Entry& entry) { return i < entry.start; });
        const auto number = static_cast<std::size_t>(after - chunks_.begin()) - 1;
        return {number, index - chunks_[number].start};
    }
    /// Marks `start` as not valid for the chunks after this one.
    void changedAfter(std::size_t number) { ordered_ = std::min(ordered_, number + 1); }

    /// Sets the numbers of the chunks from `from` on, and marks their `start` as not valid. Linear in the
    /// number of these chunks.
    void renumber(std::size_t from) {
        for (std::size_t i = from; i < chunks_.size(); ++i)
            chunks_[i].chunk->number = static_cast<std::uint32_t>(i);
        ordered_ = std::min(ordered_, from);
    }
    /// Inserts a chunk without items before the chunk `number`. Linear in the number of chunks after it.
    void addChunk(std::size_t number, std::size_t capacity) {
        chunks_.insert(chunks_.begin() + static_cast<std::ptrdiff_t>(number), Entry{newChunk(capacity), 0});
        renumber(number);
    }
    /// Frees the chunks from `from` up to, not including, `to`, and clears the links of their items. Does not
    /// change `size_`, which is the task of the caller. Linear in the number of chunks from `from` on, and in
    /// the items removed.
    void removeChunks(std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i)
            freeChunk(chunks_[i].chunk);
        chunks_.erase(chunks_.begin() + static_cast<std::ptrdiff_t>(from),
                      chunks_.begin() + static_cast<std::ptrdiff_t>(to));
        renumber(from);
    }

    /// Makes room for one item at the end: in a new chunk if the last one is full, or there is none. The room
    /// of a new chunk is that for the items that `reserve` expects and that are missing, within
    /// kFirstCapacity and kMaximum.
    void makeRoomAtEnd() {
        if (chunks_.empty() || chunks_.back().chunk->size() == kMaximum)
            addChunk(chunks_.size(),
                     std::clamp(expected_ - std::min(expected_, size_), kFirstCapacity, kMaximum));
        else
            roomFor(chunks_.size() - 1);
    }

    /// Returns the chunk with room for one more item, or a larger one that has replaced it. Requires: it has
    /// fewer than kMaximum items. A larger one has twice the room, at most kMaximum.
    Chunk* roomFor(std::size_t number) {
        Chunk* chunk = chunks_[number].chunk;
        if (chunk->count < chunk->capacity)
            return chunk;
        Chunk* larger = newChunk(std::min<std::size_t>(kMaximum, std::size_t{chunk->capacity} * 2));
        replaceChunk(number, larger);
        return larger;
    }
    /// Moves the items of a chunk into `replacement`, which takes its number, and frees the old one.
    /// Requires: `replacement` has no items and enough room. Sets the links of the items.
    void replaceChunk(std::size_t number, Chunk* replacement) {
        Chunk* old = chunks_[number].chunk;
        replacement->number = static_cast<std::uint32_t>(number);
        moveItems(old, 0, old->size(), replacement);
        chunks_[number].chunk = replacement;
        std::free(old);
    }
    /// Appends items of `from` to `to`. Requires: they are the last ones of `from`, or all are moved. Sets
    /// their links. Requires also: `to` has room for them.
    static void moveItems(Chunk* from, std::size_t first, std::size_t count, Chunk* to) {
        for (std::size_t i = 0; i < count; ++i)
            place(*from->items()[first + i], to, to->count++);
        from->count = static_cast<std::uint16_t>(from->size() - count);
    }
    /// Moves the items from the position `at` on into a new chunk after this one. The new chunk has room for
    /// kMaximum items. Does not change `size_`.
    void split(std::size_t number, std::size_t at) {
        addChunk(number + 1, kMaximum);
        Chunk* chunk = chunks_[number].chunk;
        moveItems(chunk, at, chunk->size() - at, chunks_[number + 1].chunk);
    }
    /// Splits chunks so that one begins at `index`. Returns its number, or the number of chunks if `index` is
    /// the end. Requires: index <= size(). Splits at most one chunk.
    std::size_t cut(std::size_t index) {
        if (index == size_)
            return chunks_.size();
        const auto [number, at] = locate(index);
        if (at == 0)
            return number;
        split(number, at);
        return number + 1;
    }
    /// Joins a chunk that has few items with the next one if the result is at most half full. Few are fewer
    /// than kMaximum / 8. Does nothing for the last chunk.
    void joinWithNext(std::size_t number) {
        Chunk* chunk = chunks_[number].chunk;
        if (chunk->size() >= kMaximum / 8 || number + 1 >= chunks_.size())
            return;
        Chunk* next = chunks_[number + 1].chunk;
        if (chunk->size() + next->size() > kMaximum / 2)
            return;
        Chunk* joined = newChunk(kMaximum);
        replaceChunk(number, joined);
        moveItems(next, 0, next->size(), joined);
        removeChunks(number + 1, number + 2);
        changedAfter(number);
    }

    /// The chunks in order, none of them empty.
    mutable std::vector<Entry> chunks_;
    /// The number of items in all chunks.
    std::size_t size_ = 0;
    /// The number of items that `reserve` was called for.
    std::size_t expected_ = 0;
    mutable std::size_t ordered_ = 0; // the number of chunks, from the first on, whose `start` is valid
    /// Whether an item was added that was in a list before. Look-ups do not use links then.
    bool shared_ = false;
};

} // namespace tabulon
