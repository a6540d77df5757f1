// Comparison and hashing of the texts of trees in which very many nodes may share a long text.
#pragma once

#include "base/Text.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>

namespace tabulon {

/// Compares and hashes texts, and reads the shared bytes of each long text only once. Without this, two trees
/// of 20,000 nodes that share an address of five megabytes would read 100 GB. All texts must outlive this
/// object.
class LongTexts {
public:
    /// Returns `a == b`: null equals only null. Takes constant time for long texts that were seen before.
    bool areEqual(const Text& a, const Text& b);
    /// Returns a hash that is the same for equal texts, from this object only. Takes constant time for long
    /// texts that were seen before.
    std::size_t hash(const Text& text);

private:
    // The size in bytes from which a text is numbered. Shorter texts are compared and hashed directly.
    static constexpr std::size_t kLong = 1024;

    std::uint32_t numberOf(const Text& text);

    std::unordered_map<const char*, std::uint32_t> numbers_; // by the address of the bytes
    std::unordered_map<std::string_view, std::uint32_t> numbersOfContent_;
};

} // namespace tabulon
