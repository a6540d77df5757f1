// The parsing of one address. The states of the standard are one function each; Url.h is what others use.
#pragma once

#include "url/Url.h"

namespace tabulon::url {

class UrlParser {
public:
    explicit UrlParser(std::string_view queryEncoding) : queryEncoding_(queryEncoding) {}

    std::optional<Url> parse(std::string_view input, const Url* base);

private:
    // Each takes what is left of the input and gives whether it is an address.
    bool withoutScheme(std::string_view rest, const Url* base);
    bool behindScheme(std::string_view rest, const Url* base);
    bool relative(std::string_view rest, const Url& base);
    bool file(std::string_view rest, const Url* base);
    bool fileSlash(std::string_view rest, const Url* base);
    bool fileHost(std::string_view rest);
    bool authority(std::string_view rest);
    bool hostAndPort(std::string_view text);
    void pathStart(std::string_view rest);
    void path(std::string_view rest);
    void opaquePath(std::string_view rest);
    void queryAndFragment(std::string_view rest);

    void addSegment(std::string_view segment, bool isLast);
    void shortenPath();
    void takePathOf(const Url& base);
    bool isSlash(char c) const { return c == '/' || (c == '\\' && isSpecial_); }

    std::string_view queryEncoding_;
    bool isSpecial_ = false;
    Url url_;
};

} // namespace tabulon::url
