// The parser of one address, with one function for each state of the standard. Other folders use Url.h.
#pragma once

#include "url/Url.h"

namespace tabulon::url {

/// Parses one address and is not used again.
class UrlParser {
public:
    /// `queryEncoding` is that of `url::parse` and must outlive the parser.
    explicit UrlParser(std::string_view queryEncoding) : queryEncoding_(queryEncoding) {}

    /// Returns the result of `url::parse`. Requires: the first call on this object.
    std::optional<Url> parse(std::string_view input, const Url* base);

private:
    // Each parses the rest of the input into `url_` and returns false if the address is invalid.
    bool withoutScheme(std::string_view rest, const Url* base);
    /// `rest` begins after the scheme's colon.
    bool behindScheme(std::string_view rest, const Url* base);
    bool relative(std::string_view rest, const Url& base);
    /// `base` is nullptr unless it is a file address.
    bool file(std::string_view rest, const Url* base);
    /// `rest` begins after the first slash.
    bool fileSlash(std::string_view rest, const Url* base);
    /// `rest` begins after the second slash.
    bool fileHost(std::string_view rest);
    /// `rest` begins after both slashes.
    bool authority(std::string_view rest);
    /// `text` is the authority without user and password.
    bool hostAndPort(std::string_view text);
    void pathStart(std::string_view rest);
    void path(std::string_view rest);
    void opaquePath(std::string_view rest);
    /// `rest` is empty or begins with "?" or "#".
    void queryAndFragment(std::string_view rest);

    /// Appends a segment to the path, percent-encoded; "." and ".." change the path as the standard says.
    void addSegment(std::string_view segment, bool isLast);
    /// Removes the last segment of the path, except the drive letter of a file address.
    void shortenPath();
    void takePathOf(const Url& base);
    bool isSlash(char c) const { return c == '/' || (c == '\\' && isSpecial_); }

    std::string_view queryEncoding_;
    bool isSpecial_ = false;
    Url url_;
};

} // namespace tabulon::url
