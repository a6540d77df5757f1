#include "window/FileUri.h"

#include "base/Ascii.h"
#include "window/LinkLists.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace tabulon {
namespace {

constexpr std::string_view kFileScheme = "file:";

// Nothing for a byte zero, which no path has.
std::optional<std::string> withoutPercentEscapes(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned byte = 0;
        const char* digits = text.data() + i + 1;
        if (text[i] == '%' && i + 2 < text.size() &&
            std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
            result += static_cast<char>(byte);
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result.find('\0') == std::string::npos ? std::optional(std::move(result)) : std::nullopt;
}

} // namespace

bool looksLikeUri(std::string_view text) {
    if (ascii::startsWithIgnoringCase(text, "file:/"))
        return true;
    const std::size_t colon = text.find("://");
    if (colon == std::string_view::npos || colon < 2 || !ascii::isLetter(text.front()))
        return false;
    return std::ranges::all_of(text.substr(0, colon), [](char c) {
        return ascii::isLetter(c) || ascii::isDigit(c) || c == '+' || c == '-' || c == '.';
    });
}

std::string fileUri(std::string_view absolutePath) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    constexpr std::string_view kPlain = "/-._~!$&'()*+,;=:@";
    std::string uri = "file://";
    for (const char c : absolutePath) {
        if (ascii::isLetter(c) || ascii::isDigit(c) || kPlain.find(c) != std::string_view::npos) {
            uri += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        uri += '%';
        uri += kDigits[byte >> 4];
        uri += kDigits[byte & 15];
    }
    return uri;
}

std::optional<std::string> pathOfFileUri(std::string_view uri) {
    if (!ascii::startsWithIgnoringCase(uri, kFileScheme))
        return std::nullopt;
    std::string_view rest = uri.substr(kFileScheme.size());
    rest = rest.substr(0, rest.find_first_of("?#"));
    if (rest.starts_with("//")) {
        const std::size_t slash = rest.find('/', 2);
        if (slash == std::string_view::npos)
            return std::nullopt;
        const std::string_view host = rest.substr(2, slash - 2);
        if (!host.empty() && !(host.size() == 9 && ascii::startsWithIgnoringCase(host, "localhost")))
            return std::nullopt;
        rest = rest.substr(slash);
    }
    return rest.starts_with('/') ? withoutPercentEscapes(rest) : std::nullopt;
}

std::vector<std::string> fileUrisIn(std::string_view uriList) {
    std::vector<std::string> uris;
    for (NamedLink& link : linksOfUriList(uriList)) {
        if (!pathOfFileUri(link.url))
            return {};
        uris.push_back(std::move(link.url));
    }
    return uris;
}

} // namespace tabulon
