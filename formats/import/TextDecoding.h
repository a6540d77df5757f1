// The bytes of a file → text, with the encoding found out. For files that are read as text; readers of
// formats with an encoding of their own do not come here.
#pragma once

#include <string>
#include <string_view>

namespace tabulon {

struct DecodedText {
    /// UTF-8 without a byte-order mark; what cannot be decoded is U+FFFD.
    std::string text;
    /// ICU's name of the encoding that the bytes are in; empty for UTF-8 and UTF-16.
    std::string encoding;
};

enum class TextKind { Plain, Html };

/// Decodes by the byte-order mark; else, for HTML, by what the page says of itself in its first 1024 bytes;
/// else as UTF-8 where the bytes are well-formed UTF-8; else by what the bytes look like; else as
/// windows-1252. Every file can be decoded. Linear.
DecodedText decodeText(std::string_view bytes, TextKind kind);

/// What a page says of its encoding in its first 1024 bytes: ICU's name, empty for UTF-8 and where it says
/// nothing that is known; `found` tells the two apart.
struct DeclaredEncoding {
    bool found = false;
    std::string converter;
};
DeclaredEncoding declaredEncoding(std::string_view page);

} // namespace tabulon
