// The two dates that a tag of a bookmark file can carry.
#pragma once

#include "base/Date.h"
#include "formats/import/ScannedBytes.h"

#include <cstdint>
#include <optional>

namespace tabulon {

/// The number that the ten bytes at `bytes` make, as nearly all dates of our days are written; nothing where
/// one of them is no digit.
std::optional<std::uint64_t> tenDigits(const char* bytes);

struct NetscapeDates {
    Date added;
    Date modified;
};

/// The dates from ADD_DATE and LAST_MODIFIED of a tag that begins at `start`; `next` is where the scan goes
/// on behind it. Of each attribute the first one counts, if it begins between the two places, both included.
/// Its value stands in double quotes and begins with a whole number of seconds since 1970: 0 without a digit,
/// the largest 64-bit number where it is larger. Null without the attribute or its quotes.
NetscapeDates netscapeDates(const ScannedBytes& bytes, std::size_t start, std::size_t next);

} // namespace tabulon
