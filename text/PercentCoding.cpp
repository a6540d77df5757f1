#include "text/PercentCoding.h"

#include "base/Ascii.h"

namespace tabulon::percent {

void appendEscaped(std::string& result, char byte) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const auto value = static_cast<unsigned char>(byte);
    result += {'%', kDigits[value >> 4], kDigits[value & 15]};
}

std::string decode(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isEscape = text[i] == '%' && i + 2 < text.size() && ascii::hexValue(text[i + 1]) >= 0 &&
                              ascii::hexValue(text[i + 2]) >= 0;
        if (!isEscape) {
            result += text[i];
            continue;
        }
        result += static_cast<char>(ascii::hexValue(text[i + 1]) * 16 + ascii::hexValue(text[i + 2]));
        i += 2;
    }
    return result;
}

} // namespace tabulon::percent
