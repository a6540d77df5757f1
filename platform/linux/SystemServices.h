// The real clock, the real log and what the environment says of the user's language.
#pragma once

#include "base/Clock.h"
#include "base/SystemLog.h"

#include <string>
#include <string_view>

namespace tabulon {

class SystemClock : public Clock {
public:
    double secondsSinceReferenceDate() const override;
    std::string timeZone() const override { return {}; }
};

/// Lines on standard error, as far as it takes them.
class StandardErrorLog : public SystemLog {
public:
    void log(std::string_view line) override;
};

/// Keeps nothing.
class SilentLog : public SystemLog {
public:
    void log(std::string_view /*line*/) override {}
};

/// The name of the locale that the environment asks for (LC_ALL, LC_COLLATE, LANG), such as "de_DE.UTF-8";
/// empty when it asks for none.
std::string environmentLocale();

} // namespace tabulon
