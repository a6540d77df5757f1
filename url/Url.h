// Addresses after the WHATWG's URL standard: a text → its parts → the text that browsers show and follow.
// Nothing is fetched, and nothing is known here of pages and bookmarks.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tabulon::url {

/// An address in its parts, each already escaped as it is written.
struct Url {
    /// In lower case, without the colon.
    std::string scheme;
    std::string username;
    std::string password;
    /// Absent where the address names no host; may be empty ("file:///").
    std::optional<std::string> host;
    /// Absent where it is the scheme's own.
    std::optional<std::uint16_t> port;
    /// Empty, or each segment with a slash in front; of an opaque path, what stands behind the colon.
    std::string path;
    /// Whether the path has no segments ("mailto:someone").
    bool isOpaque = false;
    /// Without "?" and "#".
    std::optional<std::string> query;
    std::optional<std::string> fragment;

    /// The whole address.
    std::string text() const;
};

/// Parses `input`, UTF-8, which counts from `base` where it is relative. White space around it, and tabs and
/// line ends within, do not count. Nothing comes back for what is no address, or is relative without a base
/// that it could count from.
///
/// `queryEncoding` is ICU's name of the encoding that the query of an address of the web is written in, empty
/// for UTF-8: forms of pages in that encoding expect it.
std::optional<Url> parse(std::string_view input, const Url* base = nullptr,
                         std::string_view queryEncoding = {});

/// Whether the standard gives addresses of the scheme (in lower case) a host and a path in any case: http,
/// https, ws, wss, ftp, file.
bool isSpecial(std::string_view scheme);

} // namespace tabulon::url
