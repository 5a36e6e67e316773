#include "project/version_thinning.h"

#include <gmock/gmock.h>

namespace zb {
namespace {

using std::chrono::days;
using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Noon, so that what is hours ago is of the same day.
constexpr std::chrono::system_clock::time_point kNow = std::chrono::sys_days(days(20000)) + hours(12);

std::vector<VersionAge> aged(const std::vector<std::chrono::system_clock::duration>& ages) {
    std::vector<VersionAge> versions;
    versions.reserve(ages.size());
    for (const auto& age : ages)
        versions.push_back({kNow - age, 100});
    return versions;
}

TEST(VersionThinning, TheLastHourKeepsItsNewestTen) {
    std::vector<std::chrono::system_clock::duration> ages;
    for (int age = 12; age > 0; --age)
        ages.emplace_back(minutes(age));
    EXPECT_THAT(versionsToDrop(aged(ages), kNow), ElementsAre(0, 1));
}

TEST(VersionThinning, RapidSavesDoNotPushOlderVersionsOut) {
    std::vector<std::chrono::system_clock::duration> ages{days(20), days(3), hours(9), hours(5)};
    for (int age = 30; age > 0; --age)
        ages.emplace_back(seconds(age));
    const auto dropped = versionsToDrop(aged(ages), kNow);
    EXPECT_EQ(dropped.size(), 20U);
    EXPECT_EQ(dropped.front(), 4U);
    EXPECT_EQ(dropped.back(), 23U);
}

TEST(VersionThinning, AnHourOfTheLastDayKeepsItsNewest) {
    EXPECT_THAT(versionsToDrop(aged({hours(5) + minutes(-10), hours(5) + minutes(-20), hours(3)}), kNow),
                ElementsAre(0));
}

TEST(VersionThinning, ADayOfTheLastMonthKeepsItsNewest) {
    EXPECT_THAT(versionsToDrop(aged({days(31), days(30), days(29) + hours(2), days(29), days(2)}), kNow),
                ElementsAre(0, 1, 2));
}

TEST(VersionThinning, TheNewestStaysHoweverOldAndLarge) {
    EXPECT_THAT(versionsToDrop({{kNow - days(400), 2 * kMostBytesOfVersions}}, kNow), IsEmpty());
}

TEST(VersionThinning, TheOldestGoWhereAllTakeTooMuch) {
    std::vector<VersionAge> versions = aged({minutes(4), minutes(3), minutes(2), minutes(1)});
    versions[1].bytes = kMostBytesOfVersions - 250;
    EXPECT_THAT(versionsToDrop(versions, kNow), ElementsAre(0));
    versions[1].bytes = kMostBytesOfVersions;
    EXPECT_THAT(versionsToDrop(versions, kNow), ElementsAre(0, 1));
}

TEST(VersionThinning, NoVersionsAreNoneToDrop) {
    EXPECT_THAT(versionsToDrop({}, kNow), IsEmpty());
}

} // namespace
} // namespace zb
