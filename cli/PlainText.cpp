#include "cli/PlainText.h"

namespace tabulon::cli {
namespace {

std::uint8_t byteAt(std::string_view text, std::size_t at) {
    return at < text.size() ? static_cast<std::uint8_t>(text[at]) : 0;
}

// Returns the number of bytes of such a character at `at`, or 0 for any other character.
std::size_t drivingCharacter(std::string_view text, std::size_t at) {
    const std::uint8_t first = byteAt(text, at);
    const std::uint8_t second = byteAt(text, at + 1);
    const std::uint8_t third = byteAt(text, at + 2);
    if (first < 0x20 || first == 0x7F)
        return 1;
    if (first == 0xC2 && second >= 0x80 && second <= 0x9F) // U+0080 to U+009F
        return 2;
    if (first != 0xE2)
        return 0;
    const bool marks = second == 0x80 && (third == 0x8E || third == 0x8F);    // U+200E, U+200F
    const bool separators = second == 0x80 && third >= 0xA8 && third <= 0xAE; // U+2028 to U+202E
    const bool isolates = second == 0x81 && third >= 0xA6 && third <= 0xA9;   // U+2066 to U+2069
    return marks || separators || isolates ? 3 : 0;
}

void appendEscape(std::string& text, std::uint8_t code) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    switch (code) {
    case '\n':
        text += "\\n";
        return;
    case '\r':
        text += "\\r";
        return;
    case '\t':
        text += "\\t";
        return;
    default:
        text += "\\x";
        text += kDigits[code >> 4];
        text += kDigits[code & 15];
    }
}

} // namespace

std::string onOneLine(std::string_view utf8) {
    std::string line;
    line.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t length = drivingCharacter(utf8, at);
        line += length == 0 ? utf8[at] : ' ';
        at += length == 0 ? 1 : length;
    }
    return line;
}

std::string escapingControls(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size(); ++at) {
        const std::uint8_t byte = byteAt(utf8, at);
        const std::uint8_t next = byteAt(utf8, at + 1);
        if (byte == 0xC2 && next >= 0x80 && next <= 0x9F) { // U+0080 to U+009F
            appendEscape(text, next);
            ++at;
        } else if (byte < 0x20 || byte == 0x7F) {
            appendEscape(text, byte);
        } else {
            text += utf8[at];
        }
    }
    return text;
}

} // namespace tabulon::cli
