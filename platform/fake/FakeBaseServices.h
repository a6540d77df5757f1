// In-memory versions of the services that every layer may use: for tests, and for runs that must not change
// the user's settings.
#pragma once

#include "base/BaseServices.h"
#include "base/Date.h"
#include "base/EnglishTexts.h"

#include <map>
#include <string>
#include <vector>

namespace tabulon {

/// A clock that only `set` and `advance` change.
class FakeClock : public Clock {
public:
    double secondsSinceReferenceDate() const override { return now_; }
    std::string timeZone() const override { return zone; }
    /// The result of `timeZone`.
    std::string zone = "UTC";
    /// Sets the time, in seconds since 2001-01-01 00:00 UTC.
    void set(double secondsSinceReferenceDate) { now_ = secondsSinceReferenceDate; }
    void advance(double seconds) { now_ += seconds; }

private:
    double now_ = 785000000.25;
};

/// A log that stores its lines, in order.
class FakeSystemLog : public SystemLog {
public:
    void log(std::string_view line) override { lines.emplace_back(line); }
    std::vector<std::string> lines;
};

/// Settings that exist as long as the object, with the registered values as defaults.
class MemoryUserDefaults : public UserDefaults {
public:
    std::optional<std::string> stringForKey(std::string_view key) const override;
    void setStringForKey(std::string_view key, std::string value) override;
    void removeKey(std::string_view key) override;
    void refresh() override {}

    /// Returns what was set, without the registered values.
    const std::map<std::string, std::string, std::less<>>& values() const { return values_; }

private:
    std::map<std::string, std::string, std::less<>> values_;
};

/// One service of each kind.
struct FakeBaseServices {
    FakeClock clock;
    MemoryUserDefaults defaults;
    EnglishLocalization texts;
    FakeSystemLog log;

    /// Returns references to these services, valid as long as this object.
    BaseServices services() { return {clock, defaults, texts, log}; }
    Date now() const { return Date::now(clock); }
};

} // namespace tabulon
