#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zb {

/// The time and the size of a kept version.
struct VersionAge {
    std::chrono::system_clock::time_point time;
    std::uintmax_t bytes = 0;
};

/// The bounds of what is kept of one project.
inline constexpr std::size_t kMostVersionsOfAnHour = 10;
inline constexpr std::uintmax_t kMostBytesOfVersions = std::uintmax_t{64} << 20U;

/// The positions of the versions that are to go, in rising order; the versions come oldest first. Those of
/// the last hour stay, up to ten; of the last day the newest of each hour; of the last 30 days the newest of
/// each day (hours and days of UTC). Of what is left the oldest go until all take at most 64 MiB. The newest
/// version always stays.
std::vector<std::size_t> versionsToDrop(const std::vector<VersionAge>& versions,
                                        std::chrono::system_clock::time_point now);

} // namespace zb
