// In-memory doubles of the services that every layer may use: for tests, and for runs that must not touch the
// user's own settings.
#pragma once

#include "base/BaseServices.h"
#include "base/Date.h"
#include "base/EnglishTexts.h"

#include <map>
#include <string>
#include <vector>

namespace tabulon {

/// Stands still until it is set.
class FakeClock : public Clock {
public:
    double secondsSinceReferenceDate() const override { return now_; }
    std::string timeZone() const override { return zone; }
    std::string zone = "UTC";
    void set(double secondsSinceReferenceDate) { now_ = secondsSinceReferenceDate; }
    void advance(double seconds) { now_ += seconds; }

private:
    double now_ = 785000000.25;
};

/// Keeps its lines.
class FakeSystemLog : public SystemLog {
public:
    void log(std::string_view line) override { lines.emplace_back(line); }
    std::vector<std::string> lines;
};

/// Settings that live as long as the object, over the registered values.
class MemoryUserDefaults : public UserDefaults {
public:
    std::optional<std::string> stringForKey(std::string_view key) const override;
    void setStringForKey(std::string_view key, std::string value) override;
    void removeKey(std::string_view key) override;
    void refresh() override {}

private:
    std::map<std::string, std::string, std::less<>> values_;
};

/// One of each, ready to be handed on.
struct FakeBaseServices {
    FakeClock clock;
    MemoryUserDefaults defaults;
    EnglishLocalization texts;
    FakeSystemLog log;

    BaseServices services() { return {clock, defaults, texts, log}; }
    Date now() const { return Date::now(clock); }
};

} // namespace tabulon
