#include "window/ShownAddress.h"

#include "base/Utf8.h"
#include "text/PercentCoding.h"

#include <string>
#include <string_view>

namespace tabulon {
namespace {

// Returns the number of bytes of the control that `text` begins with, or 0.
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
        for (const char byte : text.substr(at, length))
            percent::appendEscaped(shown, byte);
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
    return shownAddress(Text(utf8::prefix(text, kLongestShownLine)));
}

} // namespace tabulon
