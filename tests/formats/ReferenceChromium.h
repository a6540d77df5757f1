// JSON as plain values that a test can generate at random and write in many forms, and a reference
// implementation of the readers of browsers' bookmarks. It is recursive and slow.
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
    /// The content of a string, or the literal text of a number, true, false or null.
    std::string text = "null";
    std::vector<Json> elements = {};
    /// In the order of the file, including duplicate keys.
    std::vector<std::pair<std::string, Json>> fields = {};

    /// Returns the last value of `key`, or `nullptr` if there is no such key.
    const Json* find(const std::string& key) const;
};

/// Returns a random file similar to a browser's, with keys in any order, repeated, missing, or with values of
/// unexpected kinds.
Json randomBookmarks(std::mt19937& random);

/// Returns `json` as text, with random white space and escapes.
std::string written(const Json& json, std::mt19937& random);

/// Returns the tree of the file, or `nullptr` if the file has no roots.
Ref<Bookmark> referenceChromium(const Json& file, const BaseServices& services);
Ref<Bookmark> referenceOpera(const Json& file, const BaseServices& services);

} // namespace tabulon::test
