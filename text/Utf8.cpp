#include "text/Utf8.h"

namespace tabulon::utf8 {

void append(std::string& text, char32_t character) {
    const auto put = [&](unsigned lead, int rest) {
        text += static_cast<char>(lead | (character >> (6 * rest)));
        while (rest-- > 0)
            text += static_cast<char>(0x80u | ((character >> (6 * rest)) & 0x3Fu));
    };
    if (character < 0x80)
        put(0, 0);
    else if (character < 0x800)
        put(0xC0, 1);
    else if (character < 0x10000)
        put(0xE0, 2);
    else
        put(0xF0, 3);
}

char32_t next(std::string_view text, std::size_t& position) {
    const auto lead = static_cast<unsigned char>(text[position++]);
    const int rest = lead < 0x80 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    char32_t character = rest == 0 ? lead : lead & (0x3Fu >> rest);
    for (int i = 0; i < rest && position < text.size(); ++i)
        character = (character << 6) | (static_cast<unsigned char>(text[position++]) & 0x3Fu);
    return character;
}

} // namespace tabulon::utf8
