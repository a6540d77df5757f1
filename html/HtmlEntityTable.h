// The table of the named character references of HTML, generated from entities.txt. Decoding is in
// HtmlCharacterReference.h.
#pragma once

#include <span>
#include <string_view>

namespace tabulon::html {

/// A named character reference of one or two characters.
struct Entity {
    /// Without "&" and ";".
    std::string_view name;
    char32_t first;
    /// 0 for a reference to one character.
    char32_t second;
    /// True if the name is also valid without the semicolon. Such a name has at most six bytes.
    bool isSemicolonOptional;
};

/// Returns all entities, sorted by the bytes of their names. Valid as long as the program runs.
std::span<const Entity> entities();

} // namespace tabulon::html
