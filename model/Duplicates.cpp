#include "model/Duplicates.h"

#include "model/TreeWalk.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <random>
#include <unordered_map>

namespace tabulon {
namespace {

// Returns eight bytes with the letters A to Z replaced by small ones. In `capital` the high bit of each byte
// is set for these letters.
std::uint64_t smallLetters(std::uint64_t bytes) {
    constexpr std::uint64_t kOnes = 0x0101010101010101u;
    constexpr std::uint64_t kHighBits = kOnes << 7;
    const std::uint64_t low = bytes & ~kHighBits;
    const std::uint64_t fromA = low + kOnes * (0x80 - 'A');
    const std::uint64_t beyondZ = low + kOnes * (0x7F - 'Z');
    const std::uint64_t capital = (fromA & ~beyondZ & ~bytes) & kHighBits;
    return bytes | (capital >> 2);
}

// Returns `count` bytes, at most 8, with small letters. Missing bytes are zero.
std::uint64_t load(const char* bytes, std::size_t count) {
    std::uint64_t value = 0;
    std::memcpy(&value, bytes, count);
    return smallLetters(value);
}

std::uint64_t mix(std::uint64_t a, std::uint64_t b) {
    __extension__ using Product = unsigned __int128;
    const Product product = static_cast<Product>(a) * b;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

// Returns a hash that ignores the case of ASCII letters. Each scan has another seed, so that a document
// cannot be made in which all URLs collide.
std::uint64_t foldedHash(std::string_view text, std::uint64_t seed) {
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15u;
    std::uint64_t hash = seed ^ text.size();
    const char* bytes = text.data();
    std::size_t left = text.size();
    for (; left >= 8; left -= 8, bytes += 8)
        hash = mix(hash ^ load(bytes, 8), kFactor ^ seed);
    if (left > 0)
        hash = mix(hash ^ load(bytes, left), kFactor ^ seed);
    return mix(hash, kFactor);
}

struct Link {
    std::uint64_t hash;
    Bookmark* item;
};

// The number of items by which memory is prefetched. The scan spends most of its time waiting for memory.
constexpr std::size_t kLinksAhead = 16;

// The size in bytes from which a text that links share in memory is hashed only once.
constexpr std::size_t kLong = 256;

std::vector<Link> linksWithURL(const Bookmark& root) {
    std::random_device random;
    const std::uint64_t seed = (std::uint64_t{random()} << 32) | random() | 1;
    std::vector<Link> links;
    std::size_t hashed = 0;
    std::unordered_map<const char*, std::uint64_t> sharedHashes; // of long texts, by their address
    const auto hashNext = [&] {
        Link& link = links[hashed++];
        const Text& url = link.item->itemURL();
        if (!url.isShared() || url.view().size() < kLong) {
            link.hash = foldedHash(url.view(), seed);
            return;
        }
        const auto [known, isNew] = sharedHashes.try_emplace(url.view().data());
        if (isNew)
            known->second = foldedHash(url.view(), seed);
        link.hash = known->second;
    };
    walkBelow(root, [&](Bookmark& item) {
        if (item.isFolder())
            return true;
        if (!item.itemURL().isNull()) {
            item.itemURL().prefetch();
            links.push_back({0, &item});
            if (links.size() - hashed > kLinksAhead)
                hashNext();
        }
        return false;
    });
    while (hashed < links.size())
        hashNext();
    return links;
}

} // namespace

bool equalIgnoringAsciiCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size())
        return false;
    if (a.data() == b.data())
        return true;
    std::size_t at = 0;
    for (; at + 8 <= a.size(); at += 8)
        if (load(a.data() + at, 8) != load(b.data() + at, 8))
            return false;
    return at == a.size() || load(a.data() + at, a.size() - at) == load(b.data() + at, a.size() - at);
}

std::vector<Bookmark*> findDuplicates(const Bookmark& root) {
    const std::vector<Link> links = linksWithURL(root);
    // A hash table with linear probing of the first link of each URL, at most half full.
    std::vector<Link> firsts(std::bit_ceil(2 * links.size() + 1), Link{0, nullptr});
    const std::size_t mask = firsts.size() - 1;
    std::vector<Bookmark*> duplicates;
    for (std::size_t i = 0; i < links.size(); ++i) {
        if (i + kLinksAhead < links.size())
            __builtin_prefetch(&firsts[links[i + kLinksAhead].hash & mask]);
        const Link& link = links[i];
        std::size_t place = link.hash & mask;
        const auto isLike = [&link](const Link& first) {
            return first.hash == link.hash &&
                   equalIgnoringAsciiCase(first.item->itemURL().view(), link.item->itemURL().view());
        };
        while (firsts[place].item && !isLike(firsts[place]))
            place = (place + 1) & mask;
        if (firsts[place].item)
            duplicates.push_back(link.item);
        else
            firsts[place] = link;
    }
    return duplicates;
}

std::vector<Bookmark*> markDuplicates(const Bookmark& root) {
    std::vector<Bookmark*> duplicates = findDuplicates(root);
    for (Bookmark* item : duplicates)
        item->setStatus(kDuplicateStatus);
    return duplicates;
}

std::vector<Bookmark*> clearDuplicateStatus(const Bookmark& root) {
    std::vector<Bookmark*> cleared;
    walkBelow(root, [&](Bookmark& item) {
        if (!item.isFolder() && item.getStatus() == kDuplicateStatus) {
            item.setStatus(kNoStatus);
            cleared.push_back(&item);
        }
        return item.isFolder();
    });
    return cleared;
}

} // namespace tabulon
