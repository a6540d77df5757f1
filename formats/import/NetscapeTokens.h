// The tags of a bookmark file that the tag scanner acts on. The actions are in NetscapeScan.h.
#pragma once

#include "formats/import/ScannedBytes.h"

#include <optional>

namespace tabulon {

struct NetscapeToken {
    enum class Kind { Separator, ListStart, ListEnd, Description, Link, Heading, Unknown };

    Kind kind = Kind::Unknown;
    /// The offset of its "<".
    std::size_t start = 0;
};

/// Finds the tokens of a file: "<HR>", "</DL>" and everything that begins with "<D". The bytes at fixed
/// offsets after a "<D" determine its kind. Bytes between tokens are ignored.
class NetscapeTokens {
public:
    /// `bytes` must outlive this object.
    explicit NetscapeTokens(const ScannedBytes& bytes) : bytes_(bytes) {}

    /// Returns the first token at or after `from`. Returns `nullopt` where neither a "<D" nor a "</DL>"
    /// follows: a separator counts only before one of them. Requires: `from` is not less than in the call
    /// before. Linear over all calls.
    std::optional<NetscapeToken> next(std::size_t from);

private:
    /// Searches for the next tokens from `from` on.
    void lookAhead(std::size_t from);
    /// Returns the kind of the token at `start`, which is no separator.
    NetscapeToken::Kind kindOf(std::size_t start) const;

    const ScannedBytes& bytes_;
    // The offset at which the last search began, and its results: the first token after it that is no "<HR>",
    // and the first "<HR>" before that token. They are valid until the scan has passed them.
    std::size_t from_ = ScannedBytes::npos;
    std::size_t separator_ = 0;
    std::size_t tag_ = 0;
};

} // namespace tabulon
