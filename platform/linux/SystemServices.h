// The system's clock, the log and the locale of the environment.
#pragma once

#include "base/Clock.h"
#include "base/SystemLog.h"

#include <string>
#include <string_view>

namespace tabulon {

/// The system's clock.
class SystemClock : public Clock {
public:
    /// Returns seconds since 2001-01-01 00:00 UTC, by the computer's clock, which may be set back.
    double secondsSinceReferenceDate() const override;
    /// Returns an empty string, which means the system's time zone.
    std::string timeZone() const override { return {}; }
};

/// Writes lines to standard error after "tabulon: ", as far as it takes them without waiting. The rest is
/// dropped.
class StandardErrorLog : public SystemLog {
public:
    /// Adds the prefix and the line feed to `line`, which is UTF-8.
    void log(std::string_view line) override;
};

/// Discards all lines.
class SilentLog : public SystemLog {
public:
    void log(std::string_view /*line*/) override {}
};

/// Returns the name of the environment's locale (LC_ALL, else LC_COLLATE, else LANG), such as "de_DE.UTF-8";
/// empty where none is set.
std::string environmentLocale();

} // namespace tabulon
