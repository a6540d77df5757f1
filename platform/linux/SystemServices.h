// The real clock, the real log and what the environment says of the user's language.
#pragma once

#include "platform/Clock.h"
#include "platform/SystemLog.h"

#include <string>
#include <string_view>

namespace tabulon {

class SystemClock : public Clock {
public:
    double secondsSinceReferenceDate() const override;
    std::string timeZone() const override { return {}; }
};

/// Lines on standard error.
class StandardErrorLog : public SystemLog {
public:
    void log(std::string_view line) override;
};

/// The locale that the environment asks for (LC_ALL, LC_COLLATE, LANG) without its encoding, such as "de_DE";
/// "en_US" when it asks for none, for C or for POSIX.
std::string environmentLocale();

/// A locale's name as people write it ("de_DE.UTF-8@euro", "C", "") as an identifier ("de_DE", "en_US").
std::string localeIdentifier(std::string_view name);

} // namespace tabulon
