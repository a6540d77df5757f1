// The two dates in the attributes of a bookmark file's tag.
#pragma once

#include "base/Date.h"
#include "formats/import/ScannedBytes.h"

#include <cstdint>
#include <optional>

namespace tabulon {

/// Returns the decimal number in the ten bytes at `bytes`, or `nullopt` where one of them is no digit. Dates
/// since 2001 have ten digits. Requires: ten readable bytes.
std::optional<std::uint64_t> tenDigits(const char* bytes);

struct NetscapeDates {
    Date added;
    Date modified;
};

/// Returns the dates from ADD_DATE and LAST_MODIFIED of a tag that begins at `start`; `next` is the offset at
/// which the scan continues. Of each attribute the first one between both offsets counts; its name may begin
/// at `next` itself.
///
/// A value is in double quotes and begins with a whole number of seconds since 1970. It is 0 without a digit,
/// and the largest 64-bit number where it is larger. A date is null without its attribute or without the
/// quotes.
NetscapeDates netscapeDates(const ScannedBytes& bytes, std::size_t start, std::size_t next);

} // namespace tabulon
