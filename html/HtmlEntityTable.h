// The named character references of HTML, as entities.txt lists them. HtmlCharacterReference.h decodes them.
#pragma once

#include <span>
#include <string_view>

namespace tabulon::html {

struct Entity {
    /// Without "&" and ";".
    std::string_view name;
    char32_t first;
    /// 0 for a reference to one character.
    char32_t second;
    /// Whether the name counts without the semicolon too. No such name is longer than six bytes.
    bool isSemicolonOptional;
};

/// Returns all entities, sorted by the bytes of their names.
std::span<const Entity> entities();

} // namespace tabulon::html
