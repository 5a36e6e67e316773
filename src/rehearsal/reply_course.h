#pragma once

#include "rehearsal/interpretation.h"
#include "rehearsal/recorded_message.h"

#include <cstdint>
#include <list>
#include <optional>
#include <vector>

namespace zb::rehearsal {

/// The usual time in which a reply must come, T3.
inline constexpr std::int64_t kUsualReplyTimeout = 45'000'000'000;

/// Follows primaries and their replies along a recording.
class ReplyCourse {
public:
    /// `timeout` in nanoseconds.
    explicit ReplyCourse(std::int64_t timeout = kUsualReplyTimeout) : timeout_(timeout) {}

    /// A primary that waits for its reply, or whose wait has ended.
    struct Waiting {
        std::size_t number = 0; ///< of the message
        secs2::Header header;
        Direction direction = Direction::Unknown;
        bool hasSystem = false;
        std::size_t link = 0;
        std::optional<RecordedTime> time;
    };
    /// A wait that ended.
    struct Settled {
        std::size_t number = 0;                  ///< of the primary
        std::optional<RehearsalFinding> finding; ///< when no reply came
    };

    /// Adds the message with this number. What is wrong with it as a reply is added to `findings`; the
    /// primaries that no longer wait are added to `settled`.
    void add(std::size_t number, const RecordedMessage& message, std::vector<RehearsalFinding>& findings,
             std::vector<Settled>& settled);
    /// The recording ends: nothing waits any longer.
    void finish(std::vector<Settled>& settled);
    /// The direction of a reply from that of its primary; unknown when no primary waits for it.
    Direction directionOf(const RecordedMessage& message) const;

private:
    using Waitings = std::list<Waiting>;
    Waitings::const_iterator primaryOf(const RecordedMessage& message) const;
    void settleLate(const RecordedMessage& message, std::vector<Settled>& settled);

    std::int64_t timeout_;
    Waitings waiting_; ///< the oldest first
};

} // namespace zb::rehearsal
