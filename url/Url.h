// Parsing and serialising of addresses by the WHATWG's URL standard as of its commit fde3f74. The differences
// from it are in docs/formats.md. This folder does not access the network and does not depend on pages or
// bookmarks.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tabulon::url {

/// The parts of an address. Each is percent-encoded as in the address and therefore ASCII.
struct Url {
    /// In lower case, without the colon.
    std::string scheme;
    std::string username;
    std::string password;
    /// `nullopt` if the address has no host. Empty in "file:///". An IPv6 address has its brackets.
    std::optional<std::string> host;
    /// `nullopt` if the port is absent or is the scheme's default.
    std::optional<std::uint16_t> port;
    /// Empty, or all segments with a slash before each. An opaque path is the text after the scheme's colon.
    std::string path;
    /// True if the path is a text without segments ("mailto:someone").
    bool isOpaque = false;
    /// Without its "?"; `nullopt` if absent, which differs from empty.
    std::optional<std::string> query;
    /// Without its "#"; `nullopt` if absent, which differs from empty.
    std::optional<std::string> fragment;

    /// Returns the whole address.
    std::string text() const;
};

/// Returns the parts of `input`, resolved against `base` if it is relative. Returns `nullopt` if `input` is
/// no valid address, or is relative and there is no base against which it can be resolved. Linear.
///
/// `input` is UTF-8. White space and control characters at both ends, and tabs and line ends inside, are
/// removed. `base` may be nullptr.
///
/// `queryEncoding` is the ICU name of the encoding for the query of http, https, ftp and file addresses;
/// empty for UTF-8. Servers expect the encoding of the page that contains the address. With an encoding,
/// `input` must be well-formed UTF-8.
std::optional<Url> parse(std::string_view input, const Url* base = nullptr,
                         std::string_view queryEncoding = {});

/// Returns true for the schemes that the standard calls special: http, https, ws, wss, ftp and file. Their
/// addresses always have a host and a path. Requires: `scheme` is in lower case, without the colon.
bool isSpecial(std::string_view scheme);

} // namespace tabulon::url
