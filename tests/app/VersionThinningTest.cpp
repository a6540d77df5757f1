// The kept versions that are removed because of their age or the limit.
#include "app/VersionThinning.h"

#include <gmock/gmock.h>

namespace tabulon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNow = 1'800'000'000; // 08:00 UTC
constexpr double kHour = 3600;
constexpr double kDay = 86400;

std::vector<KeptVersion> at(const std::vector<double>& ages, const std::string& document = "a") {
    std::vector<KeptVersion> versions;
    for (const double age : ages)
        versions.push_back({document, kNow - age, 1});
    return versions;
}

TEST(VersionThinningTest, everyVersionOfTheLastHourStays) {
    EXPECT_THAT(versionsTooClose(at({0, 1, 2, 3, 3598, 3599}), kNow), IsEmpty());
}

TEST(VersionThinningTest, ofTheLastDayTheNewestOfEachHourStays) {
    // 05:59:59, 05:59:58, 05:00:00, 04:59:59
    EXPECT_THAT(versionsTooClose(at({2 * kHour + 1, 2 * kHour + 2, 3 * kHour, 3 * kHour + 1}), kNow),
                ElementsAre(1, 2));
}

TEST(VersionThinningTest, ofTheLastMonthTheNewestOfEachDayStays) {
    const double day = kNow - 1'799'971'200; // since midnight
    EXPECT_THAT(versionsTooClose(at({day + 2 * kDay - 1, day + kDay + 1, day + 2 * kDay + 1}), kNow),
                ElementsAre(0));
}

TEST(VersionThinningTest, olderOnesStayOncePerWeek) {
    std::vector<double> ages;
    for (int day = 31; day < 31 + 70; ++day)
        ages.push_back(day * kDay);
    const std::size_t dropped = versionsTooClose(at(ages), kNow).size();
    EXPECT_GE(70 - dropped, 10u);
    EXPECT_LE(70 - dropped, 11u);
}

TEST(VersionThinningTest, aVersionThatStaysKeepsStayingAsTimePasses) {
    // One version a minute for three days, thinned out every ten minutes as in a running program.
    std::vector<KeptVersion> versions;
    for (double minute = 0; minute < 3 * 24 * 60; ++minute) {
        const double now = kNow + minute * 60;
        versions.push_back({"a", now, 1});
        if (static_cast<int>(minute) % 10 != 0)
            continue;
        const std::vector<std::size_t> gone = versionsTooClose(versions, now);
        for (auto index = gone.rbegin(); index != gone.rend(); ++index)
            versions.erase(versions.begin() + static_cast<std::ptrdiff_t>(*index));
    }
    // 60 of the last hour, 23 or 24 hours, and two or three days.
    EXPECT_GE(versions.size(), 60u + 23 + 2);
    EXPECT_LE(versions.size(), 70u + 25 + 4);
}

TEST(VersionThinningTest, documentsAreThinnedApart) {
    std::vector<KeptVersion> versions = at({7201, 7202}, "a");
    versions.push_back({"b", kNow - 7203, 1});
    EXPECT_THAT(versionsTooClose(versions, kNow), ElementsAre(1));
}

TEST(VersionThinningTest, aTimeInTheFutureIsKept) {
    EXPECT_THAT(versionsTooClose(at({-5, -6, -100000}), kNow), IsEmpty());
}

TEST(VersionThinningTest, belowTheLimitNothingGoes) {
    EXPECT_THAT(versionsOverLimit(at({0, 10, 20}), 3), IsEmpty());
}

TEST(VersionThinningTest, overTheLimitTheClosestNeighboursOfTheLargestDocumentGo) {
    std::vector<KeptVersion> versions = at({0, 1000, 1001, 5000, 9000}, "large");
    versions.push_back({"small", kNow - 90000, 1});
    EXPECT_THAT(versionsOverLimit(versions, 5), ElementsAre(1));
    EXPECT_THAT(versionsOverLimit(versions, 4), ElementsAre(1, 2));
}

TEST(VersionThinningTest, theNewestVersionOfEachDocumentGoesLast) {
    std::vector<KeptVersion> versions{{"a", kNow - 50, 10}, {"a", kNow - 5, 10}, {"b", kNow, 10}};
    EXPECT_THAT(versionsOverLimit(versions, 20), ElementsAre(0));
    EXPECT_THAT(versionsOverLimit(versions, 10), ElementsAre(0, 1));
    EXPECT_THAT(versionsOverLimit(versions, 0), ElementsAre(0, 1, 2));
}

} // namespace
} // namespace tabulon
