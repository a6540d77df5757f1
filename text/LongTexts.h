// Comparing the texts of trees in which very many nodes may share a long one.
#pragma once

#include "base/Text.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>

namespace tabulon {

/// Compares and hashes texts, and reads the bytes of each long one once, however many nodes have it: two
/// trees of 20,000 nodes that share an address of five megabytes would otherwise take 100 GB of reading. The
/// texts must live as long as this.
class LongTexts {
public:
    /// The same as `a == b`.
    bool areEqual(const Text& a, const Text& b);
    /// Equal for equal texts.
    std::size_t hash(const Text& text);

private:
    // What is shorter is compared as it is.
    static constexpr std::size_t kLong = 1024;

    std::uint32_t numberOf(const Text& text);

    std::unordered_map<const char*, std::uint32_t> numbers_; // by the place of the bytes
    std::unordered_map<std::string_view, std::uint32_t> numbersOfContent_;
};

} // namespace tabulon
