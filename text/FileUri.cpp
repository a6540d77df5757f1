#include "text/FileUri.h"

#include "base/Ascii.h"
#include "text/PercentCoding.h"
#include "text/UriScheme.h"

#include <utility>

namespace tabulon {
namespace {

constexpr std::string_view kFileScheme = "file:";

bool isPlainInPath(char c) {
    constexpr std::string_view kPlain = "/-._~!$&'()*+,;=:@";
    return ascii::isAlphanumeric(c) || kPlain.find(c) != std::string_view::npos;
}

} // namespace

bool looksLikeUri(std::string_view text) {
    if (ascii::startsWithIgnoringCase(text, "file:/"))
        return true;
    const std::size_t length = schemeLength(text);
    return length >= 2 && text.substr(length).starts_with("://");
}

std::string fileUri(std::string_view absolutePath) {
    return "file://" + percent::encode(absolutePath, isPlainInPath);
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
        if (!host.empty() && !ascii::equalsIgnoringCase(host, "localhost"))
            return std::nullopt;
        rest = rest.substr(slash);
    }
    if (!rest.starts_with('/'))
        return std::nullopt;
    std::string path = percent::decode(rest);
    return path.find('\0') == std::string::npos ? std::optional(std::move(path)) : std::nullopt;
}

} // namespace tabulon
