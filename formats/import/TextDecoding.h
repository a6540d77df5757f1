// The bytes of a file → text, with detection of the encoding. For files that are read as text; formats with
// an encoding of their own do not use it.
#pragma once

#include <string>
#include <string_view>

namespace tabulon {

struct DecodedText {
    /// UTF-8 without a byte-order mark, with U+FFFD for each part that cannot be decoded.
    std::string text;
    /// ICU's name of the encoding of the bytes; empty for UTF-8 and UTF-16.
    std::string encoding;
};

enum class TextKind { Plain, Html };

/// Returns the text of `bytes`, in the first of these encodings that applies: the one of the byte-order mark;
/// for HTML the one that the page declares in its first 1024 bytes; UTF-8 where the bytes are well-formed;
/// the one that is detected from the bytes; windows-1252. Never fails. Linear.
DecodedText decodeText(std::string_view bytes, TextKind kind);

/// The encoding that a page declares in its first 1024 bytes.
struct DeclaredEncoding {
    /// False where the page declares no encoding that is known.
    bool found = false;
    /// ICU's name of the encoding; empty for UTF-8.
    std::string converter;
};
/// Returns the declaration in the "meta" tags of `page`, in any encoding that extends ASCII.
DeclaredEncoding declaredEncoding(std::string_view page);

} // namespace tabulon
