#include "url/UrlParser.h"

#include "base/Ascii.h"
#include "text/UriScheme.h"
#include "url/PercentEncoding.h"
#include "url/UrlHost.h"

#include <algorithm>

namespace tabulon::url {
namespace {

std::string withoutNoise(std::string_view input) {
    const auto isEdge = [](char c) { return static_cast<unsigned char>(c) <= ' '; };
    while (!input.empty() && isEdge(input.front()))
        input.remove_prefix(1);
    while (!input.empty() && isEdge(input.back()))
        input.remove_suffix(1);
    std::string text(input);
    std::erase_if(text, [](char c) { return c == '\t' || c == '\n' || c == '\r'; });
    return text;
}

bool isDriveLetter(std::string_view text) {
    return text.size() == 2 && ascii::isLetter(text[0]) && (text[1] == ':' || text[1] == '|');
}

bool beginsWithDriveLetter(std::string_view text) {
    return isDriveLetter(text.substr(0, 2)) &&
           (text.size() == 2 || std::string_view("/\\?#").find(text[2]) != std::string_view::npos);
}

// Returns true if the whole path is a drive letter, such as "/C:".
bool isDrivePath(std::string_view path) {
    return path.size() == 3 && path[2] == ':' && isDriveLetter(path.substr(1));
}

bool isSingleDot(std::string_view segment) {
    return segment == "." || ascii::equalsIgnoringCase(segment, "%2e");
}

bool isDoubleDot(std::string_view segment) {
    return segment == ".." || ascii::equalsIgnoringCase(segment, ".%2e") ||
           ascii::equalsIgnoringCase(segment, "%2e.") || ascii::equalsIgnoringCase(segment, "%2e%2e");
}

std::optional<std::uint16_t> ownPort(std::string_view scheme) {
    if (scheme == "http" || scheme == "ws")
        return 80;
    if (scheme == "https" || scheme == "wss")
        return 443;
    return scheme == "ftp" ? std::optional<std::uint16_t>(21) : std::nullopt;
}

} // namespace

std::optional<Url> UrlParser::parse(std::string_view input, const Url* base) {
    const std::string text = withoutNoise(input);
    const std::string_view rest = text;
    const std::size_t length = schemeLength(rest);
    bool isAddress = false;
    if (length == 0) {
        isAddress = withoutScheme(rest, base);
    } else {
        url_.scheme = ascii::lowered(rest.substr(0, length));
        isSpecial_ = isSpecial(url_.scheme);
        isAddress = behindScheme(rest.substr(length + 1), base);
    }
    return isAddress ? std::optional(std::move(url_)) : std::nullopt;
}

bool UrlParser::withoutScheme(std::string_view rest, const Url* base) {
    if (!base)
        return false;
    if (base->isOpaque) {
        if (!rest.starts_with('#'))
            return false;
        url_ = *base;
        queryAndFragment(rest);
        return true;
    }
    url_.scheme = base->scheme;
    isSpecial_ = isSpecial(url_.scheme);
    return url_.scheme == "file" ? file(rest, base) : relative(rest, *base);
}

bool UrlParser::behindScheme(std::string_view rest, const Url* base) {
    if (url_.scheme == "file")
        return file(rest, base && base->scheme == "file" ? base : nullptr);
    if (isSpecial_) {
        if (base && base->scheme == url_.scheme && !rest.starts_with("//"))
            return relative(rest, *base);
        return authority(rest.substr(std::min(rest.find_first_not_of("/\\"), rest.size())));
    }
    if (rest.starts_with("//"))
        return authority(rest.substr(2));
    if (rest.starts_with('/'))
        path(rest.substr(1));
    else
        opaquePath(rest);
    return true;
}

void UrlParser::takePathOf(const Url& base) {
    url_.path = base.path;
    url_.isOpaque = base.isOpaque;
}

bool UrlParser::relative(std::string_view rest, const Url& base) {
    if (rest.size() > 1 && isSlash(rest[0]) && isSlash(rest[1])) {
        rest.remove_prefix(2);
        if (isSpecial_)
            rest.remove_prefix(std::min(rest.find_first_not_of("/\\"), rest.size()));
        return authority(rest);
    }
    url_.username = base.username;
    url_.password = base.password;
    url_.host = base.host;
    url_.port = base.port;
    if (!rest.empty() && isSlash(rest.front())) {
        path(rest.substr(1));
        return true;
    }
    if (rest.empty() || rest.front() == '#')
        url_.query = base.query;
    if (rest.empty() || rest.front() == '?' || rest.front() == '#') {
        takePathOf(base);
        queryAndFragment(rest);
        return true;
    }
    // Without a copy of the last segment, which may be long.
    url_.path.assign(base.path, 0, base.path.rfind('/'));
    path(rest);
    return true;
}

bool UrlParser::file(std::string_view rest, const Url* base) {
    url_.host = "";
    if (!rest.empty() && isSlash(rest.front()))
        return fileSlash(rest.substr(1), base);
    if (!base) {
        path(rest);
        return true;
    }
    url_.host = base->host;
    takePathOf(*base);
    if (rest.empty() || rest.front() == '#')
        url_.query = base->query;
    if (rest.empty() || rest.front() == '?' || rest.front() == '#') {
        queryAndFragment(rest);
        return true;
    }
    if (beginsWithDriveLetter(rest))
        url_.path.clear();
    else
        shortenPath();
    path(rest);
    return true;
}

bool UrlParser::fileSlash(std::string_view rest, const Url* base) {
    if (!rest.empty() && isSlash(rest.front()))
        return fileHost(rest.substr(1));
    if (base) {
        url_.host = base->host;
        if (!beginsWithDriveLetter(rest) && base->path.size() >= 3 && isDrivePath(base->path.substr(0, 3)) &&
            (base->path.size() == 3 || base->path[3] == '/'))
            url_.path = base->path.substr(0, 3);
    }
    path(rest);
    return true;
}

bool UrlParser::fileHost(std::string_view rest) {
    const std::size_t end = std::min(rest.find_first_of("/\\?#"), rest.size());
    const std::string_view name = rest.substr(0, end);
    if (isDriveLetter(name)) {
        path(rest);
        return true;
    }
    if (!name.empty()) {
        url_.host = parseHost(name, true);
        if (!url_.host)
            return false;
        if (*url_.host == "localhost")
            url_.host = "";
    }
    pathStart(rest.substr(end));
    return true;
}

bool UrlParser::authority(std::string_view rest) {
    const std::size_t end = std::min(rest.find_first_of(isSpecial_ ? "/\\?#" : "/?#"), rest.size());
    std::string_view text = rest.substr(0, end);
    if (const std::size_t at = text.rfind('@'); at != std::string_view::npos) {
        const std::string_view user = text.substr(0, at);
        text.remove_prefix(at + 1);
        if (text.empty())
            return false;
        const std::size_t colon = std::min(user.find(':'), user.size());
        appendEscaped(user.substr(0, colon), EscapeSet::UserInfo, url_.username);
        appendEscaped(user.substr(std::min(colon + 1, user.size())), EscapeSet::UserInfo, url_.password);
    }
    if (!hostAndPort(text))
        return false;
    pathStart(rest.substr(end));
    return true;
}

bool UrlParser::hostAndPort(std::string_view text) {
    const std::size_t bracket = text.rfind(']');
    const std::size_t colon = text.find(':', bracket == std::string_view::npos ? 0 : bracket);
    const std::string_view name = text.substr(0, colon);
    if (name.empty() && (isSpecial_ || colon != std::string_view::npos))
        return false;
    url_.host = parseHost(name, isSpecial_);
    if (!url_.host)
        return false;
    if (colon == std::string_view::npos || colon + 1 == text.size())
        return true;
    constexpr unsigned kLargest = 65535;
    unsigned number = 0;
    for (const char c : text.substr(colon + 1)) {
        if (!ascii::isDigit(c))
            return false;
        number = number * 10 + static_cast<unsigned>(c - '0');
        if (number > kLargest)
            return false;
    }
    if (ownPort(url_.scheme) != number)
        url_.port = static_cast<std::uint16_t>(number);
    return true;
}

void UrlParser::pathStart(std::string_view rest) {
    if (!rest.empty() && isSlash(rest.front()))
        path(rest.substr(1));
    else if (isSpecial_)
        path(rest);
    else
        queryAndFragment(rest);
}

// Parses a path without the slash of its first segment.
void UrlParser::path(std::string_view rest) {
    const std::size_t end = std::min(rest.find_first_of("?#"), rest.size());
    std::string_view segments = rest.substr(0, end);
    for (;;) {
        const std::size_t slash = segments.find_first_of(isSpecial_ ? "/\\" : "/");
        addSegment(segments.substr(0, slash), slash == std::string_view::npos);
        if (slash == std::string_view::npos)
            break;
        segments.remove_prefix(slash + 1);
    }
    queryAndFragment(rest.substr(end));
}

void UrlParser::addSegment(std::string_view segment, bool isLast) {
    if (isDoubleDot(segment))
        shortenPath();
    if (isDoubleDot(segment) || isSingleDot(segment)) {
        if (isLast)
            url_.path += '/';
        return;
    }
    const bool isDrive = url_.scheme == "file" && url_.path.empty() && isDriveLetter(segment);
    url_.path += '/';
    if (isDrive)
        (url_.path += segment.front()) += ':';
    else
        appendEscaped(segment, EscapeSet::Path, url_.path);
}

void UrlParser::shortenPath() {
    if (url_.scheme == "file" && isDrivePath(url_.path))
        return;
    if (const std::size_t slash = url_.path.rfind('/'); slash != std::string_view::npos)
        url_.path.erase(slash);
}

void UrlParser::opaquePath(std::string_view rest) {
    const std::size_t end = std::min(rest.find_first_of("?#"), rest.size());
    url_.isOpaque = true;
    appendEscaped(rest.substr(0, end), EscapeSet::Controls, url_.path);
    queryAndFragment(rest.substr(end));
}

void UrlParser::queryAndFragment(std::string_view rest) {
    const std::size_t hash = rest.find('#');
    if (rest.starts_with('?')) {
        const std::string_view query =
            rest.substr(1, hash == std::string_view::npos ? std::string_view::npos : hash - 1);
        std::string& text = url_.query.emplace();
        const bool isWeb = isSpecial_ && url_.scheme != "ws" && url_.scheme != "wss";
        if (queryEncoding_.empty() || !isWeb)
            appendEscaped(query, EscapeSet::Query, text);
        else
            appendEscapedIn(queryEncoding_, query, EscapeSet::Query, text);
    }
    if (hash != std::string_view::npos)
        appendEscaped(rest.substr(hash + 1), EscapeSet::Fragment, url_.fragment.emplace());
}

} // namespace tabulon::url
