// Names of the files in the store of versions.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// The parts of a file name in the store. Times are in seconds since 1970-01-01 00:00 UTC, in whole
/// milliseconds, within the years 1 to 9999.
struct VersionName {
    /// The document's identifier, 16 characters.
    std::string identifier;
    /// When the version was replaced.
    double kept = 0;
    /// When the document's file got this content.
    double saved = 0;

    /// Returns "IDENTIFIER KEPT SAVED.tbln.zst", with times as 2026-11-22T10-41-38.123Z.
    std::string string() const;
    /// Returns the parts of such a name, or `nullopt` for any other text.
    static std::optional<VersionName> parse(std::string_view name);
};

} // namespace tabulon
