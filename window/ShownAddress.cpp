#include "window/ShownAddress.h"

#include <string>
#include <string_view>

namespace tabulon {
namespace {

// The bytes of the control that `text` begins with, or 0.
std::size_t controlLength(std::string_view text) {
    if (text.starts_with("\u061C"))
        return 2;
    if (text.size() < 3 || text[0] != '\xE2')
        return 0;
    const auto last = static_cast<unsigned char>(text[2]);
    const bool is2000 = text[1] == '\x80' && (last == 0x8E || last == 0x8F || (last >= 0xAA && last <= 0xAE));
    const bool is2060 = text[1] == '\x81' && last >= 0xA6 && last <= 0xA9;
    return is2000 || is2060 ? 3 : 0;
}

void appendPercentCoded(std::string& out, std::string_view bytes) {
    static constexpr std::string_view kDigits = "0123456789ABCDEF";
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        out += {'%', kDigits[value >> 4], kDigits[value & 15]};
    }
}

} // namespace

Text shownAddress(const Text& address) {
    const std::string_view text = address.view();
    std::string shown;
    std::size_t taken = 0;
    for (std::size_t at = text.find_first_of("\xD8\xE2"); at != std::string_view::npos;
         at = text.find_first_of("\xD8\xE2", at)) {
        const std::size_t length = controlLength(text.substr(at));
        if (length == 0) {
            ++at;
            continue;
        }
        shown += text.substr(taken, at - taken);
        appendPercentCoded(shown, text.substr(at, length));
        at += length;
        taken = at;
    }
    if (taken == 0)
        return address;
    shown += text.substr(taken);
    return Text(shown);
}

Text shownAddressLine(const Text& address) {
    const std::string_view text = address.view();
    if (text.size() <= kLongestShownLine)
        return shownAddress(address);
    std::size_t end = kLongestShownLine;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) // inside a character
        --end;
    return shownAddress(Text(text.substr(0, end)));
}

} // namespace tabulon
