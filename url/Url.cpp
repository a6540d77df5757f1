#include "url/Url.h"

#include "url/UrlParser.h"

namespace tabulon::url {

std::string Url::text() const {
    std::string text = scheme + ':';
    if (host) {
        text += "//" + username;
        if (!password.empty())
            text += ':' + password;
        if (!username.empty() || !password.empty())
            text += '@';
        text += *host;
        if (port)
            text += ':' + std::to_string(*port);
    } else if (!isOpaque && path.starts_with("//")) {
        text += "/."; // otherwise the path would be parsed as a host
    }
    text += path;
    if (query)
        text += '?' + *query;
    if (fragment)
        text += '#' + *fragment;
    return text;
}

bool isSpecial(std::string_view scheme) {
    return scheme == "http" || scheme == "https" || scheme == "ws" || scheme == "wss" || scheme == "ftp" ||
           scheme == "file";
}

std::optional<Url> parse(std::string_view input, const Url* base, std::string_view queryEncoding) {
    return UrlParser(queryEncoding).parse(input, base);
}

} // namespace tabulon::url
