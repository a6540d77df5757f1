// Tests the display form of dates: time zone, locale, null dates and dates out of range.
#include "text/DateFormat.h"

#include <gtest/gtest.h>

#include <limits>

namespace tabulon {
namespace {

TEST(DateFormat, timeZoneDecidesTheDay) {
    const Date date = Date::fromUnixSeconds(1794787199); // 2026-11-15 23:59:59 UTC
    EXPECT_EQ(formatDate(date, "yyyy-MM-dd", "en_US", "UTC"), "2026-11-15");
    EXPECT_EQ(formatDate(date, "yyyy-MM-dd", "de_DE", "Asia/Tokyo"), "2026-11-16");
    EXPECT_EQ(formatDate(date, "HH:mm", "en_US", "America/New_York"), "18:59");
}

TEST(DateFormat, localeDecidesTheNames) {
    const Date date = Date::fromUnixSeconds(1794787199);
    EXPECT_EQ(formatDate(date, "EEEE", "de_DE", "UTC"), "Sonntag");
}

TEST(DateFormat, whatIsNoDateIsEmpty) {
    EXPECT_EQ(formatDate(Date(), "yyyy", "en_US", "UTC"), "");
    EXPECT_EQ(formatDate(Date::fromReferenceSeconds(std::numeric_limits<double>::infinity()), "yyyy", "en_US",
                         "UTC"),
              "");
}

TEST(DateFormat, farAwayDatesDoNoHarm) {
    for (const double seconds : {1.8e19, -1.8e19, 1e300, -1e300})
        EXPECT_LT(formatDate(Date::fromReferenceSeconds(seconds), "yyyy-MM-dd", "en_US", "UTC").size(), 300u);
}

} // namespace
} // namespace tabulon
