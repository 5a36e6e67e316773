#include "project/version_thinning.h"

#include <algorithm>
#include <set>

namespace zb {

namespace {

using Clock = std::chrono::system_clock;
using std::chrono::hours;

/// Chooses what stays, from the newest version to the oldest.
class Thinning {
public:
    explicit Thinning(Clock::time_point now) : now_(now) {}

    bool stays(const VersionAge& version) {
        const bool newest = days_.empty();
        if (!isWanted(version.time) && !newest)
            return false;
        bytes_ += version.bytes;
        return newest || bytes_ <= kMostBytesOfVersions;
    }

private:
    bool isWanted(Clock::time_point time) {
        constexpr hours kDay{24};
        constexpr hours kMonth{24 * 30};
        // A clock that was set back makes versions of the future; they count as new.
        const auto age = now_ - time;
        const bool firstOfHour = hours_.insert(std::chrono::floor<hours>(time)).second;
        const bool firstOfDay = days_.insert(std::chrono::floor<std::chrono::days>(time)).second;
        if (age < hours(1))
            return ++ofLastHour_ <= kMostVersionsOfAnHour;
        return (age < kDay && firstOfHour) || (age < kMonth && firstOfDay);
    }

    Clock::time_point now_;
    std::set<Clock::time_point> hours_;
    std::set<std::chrono::sys_days> days_;
    std::size_t ofLastHour_ = 0;
    std::uintmax_t bytes_ = 0;
};

} // namespace

std::vector<std::size_t> versionsToDrop(const std::vector<VersionAge>& versions, Clock::time_point now) {
    std::vector<std::size_t> dropped;
    Thinning thinning(now);
    for (std::size_t position = versions.size(); position > 0; --position) {
        if (!thinning.stays(versions[position - 1]))
            dropped.push_back(position - 1);
    }
    std::reverse(dropped.begin(), dropped.end());
    return dropped;
}

} // namespace zb
