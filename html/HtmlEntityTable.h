// The named character references of HTML: names and what they stand for, nothing else. Decoding is in
// HtmlCharacterReference.h.
#pragma once

#include <span>
#include <string_view>

namespace tabulon::html {

struct Entity {
    /// Without "&" and ";".
    std::string_view name;
    /// One or two characters, in UTF-8.
    std::string_view text;
};

/// All of them, sorted by the bytes of their names.
std::span<const Entity> entities();

/// The names that count without the semicolon too, sorted. None is longer than six bytes.
std::span<const std::string_view> entitiesWithoutSemicolon();

} // namespace tabulon::html
