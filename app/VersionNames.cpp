#include "app/VersionNames.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace tabulon {
namespace {

namespace chrono = std::chrono;
using Milliseconds = chrono::sys_time<chrono::milliseconds>;

constexpr std::string_view kSuffix = ".tbln.zst";
constexpr std::size_t kIdentifierSize = 16;
constexpr std::size_t kTimeSize = 24;   // 2026-11-22T10-41-38.123Z
constexpr double kFirst = -62135596800; // the year 1
constexpr double kLast = 253402300799;  // the end of the year 9999

std::string timeText(double seconds) {
    const double bounded = std::clamp(std::isnan(seconds) ? 0.0 : seconds, kFirst, kLast);
    const Milliseconds time{chrono::milliseconds(static_cast<std::int64_t>(std::llround(bounded * 1000)))};
    const auto day = chrono::floor<chrono::days>(time);
    const chrono::year_month_day date(day);
    const chrono::hh_mm_ss clock(time - day);
    return fmt::format("{:04}-{:02}-{:02}T{:02}-{:02}-{:02}.{:03}Z", static_cast<int>(date.year()),
                       static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                       clock.hours().count(), clock.minutes().count(), clock.seconds().count(),
                       clock.subseconds().count());
}

std::optional<double> timeFrom(std::string_view text) {
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int milliseconds = 0;
    const std::string line(text);
    if (std::sscanf(line.c_str(), "%4d-%2u-%2uT%2d-%2d-%2d.%3dZ", &year, &month, &day, &hour, &minute,
                    &second, &milliseconds) != 7)
        return std::nullopt;
    const chrono::year_month_day date{chrono::year(year), chrono::month(month), chrono::day(day)};
    if (!date.ok())
        return std::nullopt;
    const Milliseconds time = chrono::sys_days(date) + chrono::hours(hour) + chrono::minutes(minute) +
                              chrono::seconds(second) + chrono::milliseconds(milliseconds);
    const double seconds = static_cast<double>(time.time_since_epoch().count()) / 1000;
    return timeText(seconds) == text ? std::optional(seconds) : std::nullopt;
}

} // namespace

std::string VersionName::string() const {
    return identifier + " " + timeText(kept) + " " + timeText(saved) + std::string(kSuffix);
}

std::optional<VersionName> VersionName::parse(std::string_view name) {
    if (name.size() != kIdentifierSize + 2 * (1 + kTimeSize) + kSuffix.size() || !name.ends_with(kSuffix) ||
        name[kIdentifierSize] != ' ' || name[kIdentifierSize + 1 + kTimeSize] != ' ')
        return std::nullopt;
    const auto kept = timeFrom(name.substr(kIdentifierSize + 1, kTimeSize));
    const auto saved = timeFrom(name.substr(kIdentifierSize + 2 + kTimeSize, kTimeSize));
    if (!kept || !saved)
        return std::nullopt;
    return VersionName{std::string(name.substr(0, kIdentifierSize)), *kept, *saved};
}

} // namespace tabulon
