#include "base/Utf8.h"

namespace tabulon::utf8 {

char32_t next(std::string_view text, std::size_t& position) {
    const auto lead = static_cast<unsigned char>(text[position++]);
    const int rest = lead < 0x80 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    char32_t character = rest == 0 ? lead : lead & (0x3Fu >> rest);
    for (int i = 0; i < rest && position < text.size(); ++i)
        character = (character << 6) | (static_cast<unsigned char>(text[position++]) & 0x3Fu);
    return character;
}

std::string_view prefix(std::string_view text, std::size_t limit) {
    if (text.size() <= limit)
        return text;
    while (limit > 0 && isContinuation(text[limit]))
        --limit;
    return text.substr(0, limit);
}

} // namespace tabulon::utf8
