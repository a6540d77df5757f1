// The tags of a bookmark file that the tag scanner acts on, one after the other. What each does is in
// NetscapeScan.h.
#pragma once

#include "formats/import/ScannedBytes.h"

#include <optional>

namespace tabulon {

struct NetscapeToken {
    enum class Kind { Separator, ListStart, ListEnd, Description, Link, Heading, Unknown };

    Kind kind = Kind::Unknown;
    /// Where its "<" stands.
    std::size_t start = 0;
};

/// A file is a row of tokens: "<HR>", "</DL>" and everything that begins with "<D"; bytes at fixed places
/// behind it tell what kind of "<D" it is. What stands between tokens is not looked at.
class NetscapeTokens {
public:
    explicit NetscapeTokens(const ScannedBytes& bytes) : bytes_(bytes) {}

    /// The first token at or after `from`, which never goes back. Nothing when neither a "<D" nor a "</DL>"
    /// follows: a separator counts only before one of them.
    std::optional<NetscapeToken> next(std::size_t from);

private:
    void lookAhead(std::size_t from);
    NetscapeToken::Kind kindOf(std::size_t start) const;

    const ScannedBytes& bytes_;
    // Where the last look ahead began, and what it came to: the first "<HR>" and the first other token behind
    // it. Both stay right until the scan has passed them.
    std::size_t from_ = ScannedBytes::npos;
    std::size_t separator_ = 0;
    std::size_t tag_ = 0;
};

} // namespace tabulon
