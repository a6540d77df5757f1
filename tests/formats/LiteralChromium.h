// JSON as a plain value that a test can make at random and write in many ways, and a reading of browsers'
// bookmarks from it step by step, key by key, without a thought for time or depth.
#pragma once

#include "base/BaseServices.h"
#include "model/Bookmark.h"

#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tabulon::test {

struct Json {
    enum class Kind { Other, String, Array, Object };

    Kind kind = Kind::Other;
    /// A text, or what stands in the file for a number, true, false or null.
    std::string text = "null";
    std::vector<Json> elements = {};
    /// In the order of the file, duplicates included.
    std::vector<std::pair<std::string, Json>> fields = {};

    /// The last value of that key; null when there is none.
    const Json* find(const std::string& key) const;
};

/// A file of a browser, more or less: keys in any order, twice, missing, of unexpected kinds.
Json randomBookmarks(std::mt19937& random);

/// The value as a file, with white space and escapes at random.
std::string written(const Json& json, std::mt19937& random);

/// Null where the file has no roots.
Ref<Bookmark> literalChromium(const Json& file, const BaseServices& services);
Ref<Bookmark> literalOpera(const Json& file, const BaseServices& services);

} // namespace tabulon::test
