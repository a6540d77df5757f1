#include "tests/formats/ReferenceText.h"

#include <cstddef>
#include <initializer_list>

namespace tabulon::test {
namespace {

unsigned byteOf(const std::string& bytes, std::size_t i) {
    return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0;
}

bool within(unsigned value, unsigned low, unsigned high) {
    return value >= low && value <= high;
}

// Returns the number of bytes from `i` that are a well-formed sequence or the beginning of one, and sets
// `whole` if the sequence is complete. The rows are those of the table of well-formed sequences in the
// Unicode standard.
std::size_t sequenceAt(const std::string& bytes, std::size_t i, bool& whole) {
    struct Row {
        unsigned firstLow, firstHigh, secondLow, secondHigh;
        std::size_t length;
    };
    constexpr Row rows[] = {
        {0x00, 0x7F, 0, 0, 1},       {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
        {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
        {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4}};
    for (const Row& row : rows) {
        if (!within(byteOf(bytes, i), row.firstLow, row.firstHigh))
            continue;
        std::size_t length = 1;
        if (row.length > 1 && i + 1 < bytes.size() &&
            within(byteOf(bytes, i + 1), row.secondLow, row.secondHigh))
            for (++length; length < row.length && within(byteOf(bytes, i + length), 0x80, 0xBF);)
                ++length;
        whole = length == row.length;
        return length;
    }
    whole = false;
    return 1;
}

std::string decoded(const std::string& bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size();) {
        bool whole = false;
        const std::size_t length = sequenceAt(bytes, i, whole);
        text += whole ? bytes.substr(i, length) : "\xEF\xBF\xBD";
        i += length;
    }
    return text;
}

std::string utf8(unsigned long codePoint) {
    const auto tail = [&](int shift) { return static_cast<char>(0x80 | ((codePoint >> shift) & 0x3F)); };
    if (codePoint < 0x80)
        return {static_cast<char>(codePoint)};
    if (codePoint < 0x800)
        return {static_cast<char>(0xC0 | (codePoint >> 6)), tail(0)};
    if (codePoint < 0x10000)
        return {static_cast<char>(0xE0 | (codePoint >> 12)), tail(6), tail(0)};
    return {static_cast<char>(0xF0 | (codePoint >> 18)), tail(12), tail(6), tail(0)};
}

// Returns the text for the reference between "&" and ";", or the empty text if it has no meaning.
std::string meaning(const std::string& reference) {
    if (reference == "amp")
        return "&";
    if (reference == "lt")
        return "<";
    if (reference == "gt")
        return ">";
    if (reference == "quot")
        return "\"";
    if (reference == "apos")
        return "'";
    if (reference.empty() || reference[0] != '#')
        return "";
    const bool hexadecimal = reference.size() > 1 && (reference[1] == 'x' || reference[1] == 'X');
    const std::string digits = reference.substr(hexadecimal ? 2 : 1);
    const std::string allowed = hexadecimal ? "0123456789abcdefABCDEF" : "0123456789";
    if (digits.empty() || digits.find_first_not_of(allowed) != std::string::npos)
        return "";
    const std::string significant = digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
    if (significant.empty() || significant.size() > 10)
        return "";
    const unsigned long codePoint = std::stoul(significant, nullptr, hexadecimal ? 16 : 10);
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    return surrogate || codePoint > 0x10FFFF ? "" : utf8(codePoint);
}

std::string unescaped(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t semicolon = text[i] == '&' ? text.find(';', i) : std::string::npos;
        const std::string character =
            semicolon == std::string::npos ? "" : meaning(text.substr(i + 1, semicolon - i - 1));
        if (character.empty()) {
            result += text[i];
            ++i;
        } else {
            result += character;
            i = semicolon + 1;
        }
    }
    return result;
}

bool beginsWithAny(const std::string& text, std::initializer_list<const char*> prefixes) {
    for (const std::string prefix : prefixes)
        if (text.substr(0, prefix.size()) == prefix)
            return true;
    return false;
}

} // namespace

std::string referenceText(const std::string& bytes) {
    return unescaped(decoded(bytes));
}

int referenceType(const std::string& url) {
    if (beginsWithAny(url, {"http:", "https:", "HTTP:", "HTTPS:"}))
        return 0;
    if (beginsWithAny(url, {"mailto:", "MAILTO:"}))
        return 3;
    if (beginsWithAny(url, {"ftp:", "ftps:", "FTP:", "FTPS:"}))
        return 1;
    if (beginsWithAny(url, {"file:", "FILE:"}))
        return 11;
    if (beginsWithAny(url, {"news:", "NEWS:", "nntp:", "NNTP:"}))
        return 4;
    if (beginsWithAny(url, {"finder:", "FINDER:"}))
        return 7;
    if (beginsWithAny(url, {"telnet:", "TELNET:", "rlogin:", "RLOGIN:", "tn3270:", "TN3270:"}))
        return 5;
    if (beginsWithAny(url, {"whois:", "WHOIS:"}))
        return 7;
    return url.find('@') != std::string::npos ? 3 : 0;
}

} // namespace tabulon::test
