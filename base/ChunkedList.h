// An ordered list of nodes that knows in constant time where a node stands: the children of a folder, the
// rows of an outline. It is a vector of short arrays; each node carries a link back to its array and its
// place in it.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <span>
#include <vector>

namespace tabulon {

/// Holds pointers, owns nothing. `Link` tells where an item keeps its link to a list of this kind:
///     static void*& chunk(Item&);              // null while the item stands in no list of this kind
///     static std::uint16_t& place(Item&);
/// Positions are found in constant time, inserting and erasing take the square root of the size at worst, a
/// walk is linear. An item may stand in several lists, or twice in one (it then knows only one of its
/// places); look-ups in such a list fall back to a search and give the first place. The list must not move in
/// memory while it has items.
template <class Item, class Link>
class ChunkedList {
    static constexpr std::size_t kMaximum = 512;
    static constexpr std::size_t kFirstCapacity = 4;

    struct Chunk {
        ChunkedList* list;
        std::uint32_t number;
        std::uint16_t count;
        std::uint16_t capacity;

        Item** items() { return reinterpret_cast<Item**>(this + 1); }
        std::size_t size() const { return count; }
    };
    struct Entry {
        Chunk* chunk;
        std::size_t start;
    };

public:
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    class iterator {
    public:
        using value_type = Item*;
        using difference_type = std::ptrdiff_t;

        iterator() = default;
        Item* operator*() const { return list_->chunks_[number_].chunk->items()[place_]; }
        iterator& operator++() {
            if (++place_ == list_->chunks_[number_].chunk->size()) {
                place_ = 0;
                ++number_;
            }
            return *this;
        }
        iterator operator++(int) {
            iterator before = *this;
            ++*this;
            return before;
        }
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

    ChunkedList() = default;
    ChunkedList(const ChunkedList&) = delete;
    ChunkedList& operator=(const ChunkedList&) = delete;
    ~ChunkedList() { clear(); }

    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    iterator begin() const { return iterator(this, 0); }
    iterator end() const { return iterator(this, chunks_.size()); }

    /// Null when the list is empty.
    Item* front() const { return empty() ? nullptr : chunks_.front().chunk->items()[0]; }
    Item* back() const {
        if (empty())
            return nullptr;
        Chunk* last = chunks_.back().chunk;
        return last->items()[last->size() - 1];
    }

    /// Requires index < size().
    Item* at(std::size_t index) const {
        const auto [number, place] = locate(index);
        return chunks_[number].chunk->items()[place];
    }

    /// The item's (first) index, or npos when it is not in this list.
    std::size_t indexOf(const Item& item) const {
        if (shared_)
            return searchFor(item);
        Chunk* chunk = chunkOf(item);
        return chunk ? startOf(chunk->number) + Link::place(const_cast<Item&>(item)) : npos;
    }

    bool contains(const Item& item) const {
        return shared_ ? searchFor(item) != npos : chunkOf(item) != nullptr;
    }

    /// The item after `item`, or null after the last one and for an item that is not in the list.
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

    /// Makes room for `count` items in a list that is empty and will be filled with `append`.
    void reserve(std::size_t count) {
        if (empty() && count > 0) {
            chunks_.reserve((count + kMaximum - 1) / kMaximum);
            expected_ = count;
        }
    }

    void append(Item& item) {
        if (chunks_.empty() || chunks_.back().chunk->count == chunks_.back().chunk->capacity)
            makeRoomAtEnd();
        Chunk* chunk = chunks_.back().chunk;
        noteSharing(item);
        place(item, chunk, chunk->count++);
        ++size_;
    }

    /// Requires index <= size().
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

    /// Requires index < size().
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

    /// Inserts the items in their order. Requires index <= size().
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

    /// Erases `count` items from `index`. Requires index + count <= size().
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

    /// Erases `item` from the list that it stands in, if it stands in one.
    static void eraseFromItsList(Item& item) {
        auto* chunk = static_cast<Chunk*>(Link::chunk(item));
        if (!chunk)
            return;
        ChunkedList* list = chunk->list;
        list->eraseAt(list->indexOf(item));
    }

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
    struct Place {
        std::size_t number;
        std::size_t place;
    };

    static Chunk* newChunkOfCapacity(std::size_t capacity) {
        auto* chunk = static_cast<Chunk*>(std::malloc(sizeof(Chunk) + capacity * sizeof(Item*)));
        if (!chunk)
            throw std::bad_alloc();
        chunk->count = 0;
        chunk->number = 0;
        chunk->capacity = static_cast<std::uint16_t>(capacity);
        return chunk;
    }
    Chunk* newChunk(std::size_t capacity) {
        Chunk* chunk = newChunkOfCapacity(capacity);
        chunk->list = this;
        return chunk;
    }
    static void freeChunk(Chunk* chunk) {
        for (std::size_t i = 0; i < chunk->size(); ++i)
            unlink(*chunk->items()[i], chunk, i);
        std::free(chunk);
    }

    static void place(Item& item, Chunk* chunk, std::size_t at) {
        chunk->items()[at] = &item;
        Link::chunk(item) = chunk;
        Link::place(item) = static_cast<std::uint16_t>(at);
    }
    static void unlink(Item& item, Chunk* chunk, std::size_t at) {
        if (Link::chunk(item) == chunk && Link::place(item) == at)
            Link::chunk(item) = nullptr;
    }
    static void relink(Chunk* chunk, std::size_t from) {
        for (std::size_t i = from; i < chunk->size(); ++i)
            place(*chunk->items()[i], chunk, i);
    }

    // An item that comes while it stands in a list already: neither list can trust links alone from now on.
    void noteSharing(Item& item) {
        if (auto* chunk = static_cast<Chunk*>(Link::chunk(item))) {
            chunk->list->shared_ = true;
            shared_ = true;
        }
    }

    Chunk* chunkOf(const Item& item) const {
        auto* chunk = static_cast<Chunk*>(Link::chunk(const_cast<Item&>(item)));
        return chunk && chunk->list == this ? chunk : nullptr;
    }

    std::size_t searchFor(const Item& item) const {
        std::size_t index = 0;
        for (const Item* each : *this) {
            if (each == &item)
                return index;
            ++index;
        }
        return npos;
    }

    void orderUpTo(std::size_t number) const {
        for (; ordered_ <= number; ++ordered_)
            chunks_[ordered_].start =
                ordered_ == 0 ? 0 : chunks_[ordered_ - 1].start + chunks_[ordered_ - 1].chunk->size();
    }
    std::size_t startOf(std::size_t number) const {
        orderUpTo(number);
        return chunks_[number].start;
    }
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
    void changedAfter(std::size_t number) { ordered_ = std::min(ordered_, number + 1); }

    void renumber(std::size_t from) {
        for (std::size_t i = from; i < chunks_.size(); ++i)
            chunks_[i].chunk->number = static_cast<std::uint32_t>(i);
        ordered_ = std::min(ordered_, from);
    }
    void addChunk(std::size_t number, std::size_t capacity) {
        chunks_.insert(chunks_.begin() + static_cast<std::ptrdiff_t>(number), Entry{newChunk(capacity), 0});
        renumber(number);
    }
    void removeChunks(std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i)
            freeChunk(chunks_[i].chunk);
        chunks_.erase(chunks_.begin() + static_cast<std::ptrdiff_t>(from),
                      chunks_.begin() + static_cast<std::ptrdiff_t>(to));
        renumber(from);
    }

    void makeRoomAtEnd() {
        if (chunks_.empty() || chunks_.back().chunk->size() == kMaximum)
            addChunk(chunks_.size(),
                     std::clamp(expected_ - std::min(expected_, size_), kFirstCapacity, kMaximum));
        else
            roomFor(chunks_.size() - 1);
    }

    // The chunk with room for one item more; it must hold fewer than kMaximum.
    Chunk* roomFor(std::size_t number) {
        Chunk* chunk = chunks_[number].chunk;
        if (chunk->count < chunk->capacity)
            return chunk;
        Chunk* larger = newChunk(std::min<std::size_t>(kMaximum, std::size_t{chunk->capacity} * 2));
        replaceChunk(number, larger);
        return larger;
    }
    void replaceChunk(std::size_t number, Chunk* replacement) {
        Chunk* old = chunks_[number].chunk;
        replacement->number = static_cast<std::uint32_t>(number);
        moveItems(old, 0, old->size(), replacement);
        chunks_[number].chunk = replacement;
        std::free(old);
    }
    static void moveItems(Chunk* from, std::size_t first, std::size_t count, Chunk* to) {
        for (std::size_t i = 0; i < count; ++i)
            place(*from->items()[first + i], to, to->count++);
        from->count = static_cast<std::uint16_t>(from->size() - count);
    }
    void split(std::size_t number, std::size_t at) {
        addChunk(number + 1, kMaximum);
        Chunk* chunk = chunks_[number].chunk;
        moveItems(chunk, at, chunk->size() - at, chunks_[number + 1].chunk);
    }
    // Makes a chunk border at `index` and gives the number of the chunk that begins there.
    std::size_t cut(std::size_t index) {
        if (index == size_)
            return chunks_.size();
        const auto [number, at] = locate(index);
        if (at == 0)
            return number;
        split(number, at);
        return number + 1;
    }
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

    mutable std::vector<Entry> chunks_;
    std::size_t size_ = 0;
    std::size_t expected_ = 0;
    mutable std::size_t ordered_ = 0; // chunks whose `start` is right
    bool shared_ = false;
};

} // namespace tabulon
