// Names of the files in the store of versions.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// Times are in seconds since 1970-01-01 00:00 UTC, in whole milliseconds, within the years 1 to 9999.
struct VersionName {
    std::string identifier;
    double kept = 0;
    double saved = 0;

    /// Returns "IDENTIFIER KEPT SAVED.tbln.zst".
    std::string string() const;
    /// Returns the parts of such a name, or nullopt for any other text.
    static std::optional<VersionName> parse(std::string_view name);
};

} // namespace tabulon
