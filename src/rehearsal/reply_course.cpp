#include "rehearsal/reply_course.h"

#include <algorithm>

namespace zb::rehearsal {

namespace {

constexpr std::int64_t kDay = 86'400'000'000'000;
constexpr std::size_t kMostWaiting = 10'000;

/// Between two times of one recording; nothing when they cannot be compared. A clock without a date passes
/// midnight.
std::optional<std::int64_t> between(const std::optional<RecordedTime>& from,
                                    const std::optional<RecordedTime>& to) {
    if (!from || !to || from->hasDate != to->hasDate)
        return std::nullopt;
    const std::int64_t passed = to->nanoseconds - from->nanoseconds;
    return passed < 0 && !from->hasDate ? passed + kDay : passed;
}

bool isReply(const secs2::Header& header) {
    return header.function % 2 == 0;
}

std::string nameOf(const secs2::Header& header) {
    return "S" + std::to_string(header.stream) + "F" + std::to_string(header.function);
}

std::string seconds(std::int64_t nanoseconds) {
    const std::int64_t tenths = (nanoseconds + 50'000'000) / 100'000'000;
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " s";
}

RehearsalFinding missingReply(const secs2::Header& primary, const std::string& when) {
    return {"missing-reply", "no reply to " + nameOf(primary) + " " + when};
}

} // namespace

/// The oldest primary with the system bytes of the reply; without system bytes the oldest of the stream and
/// function before it.
ReplyCourse::Waitings::const_iterator ReplyCourse::primaryOf(const RecordedMessage& message) const {
    return std::find_if(waiting_.begin(), waiting_.end(), [&](const Waiting& primary) {
        if (primary.link != message.link ||
            (message.direction != Direction::Unknown && primary.direction == message.direction))
            return false;
        if (primary.hasSystem && message.hasSystem)
            return primary.header.system == message.header.system;
        return primary.header.stream == message.header.stream &&
               (message.header.function == 0 || primary.header.function + 1 == message.header.function);
    });
}

Direction ReplyCourse::directionOf(const RecordedMessage& message) const {
    if (!isReply(message.header))
        return Direction::Unknown;
    const auto primary = primaryOf(message);
    return primary == waiting_.end() ? Direction::Unknown : opposite(primary->direction);
}

/// Primaries that have waited too long by the clock of this message, on any connection.
void ReplyCourse::settleLate(const RecordedMessage& message, std::vector<Settled>& settled) {
    // A reply that comes late is kept apart from one that never comes for as long again.
    while (!waiting_.empty()) {
        const Waiting& oldest = waiting_.front();
        const auto passed = between(oldest.time, message.time);
        if (waiting_.size() <= kMostWaiting && (!passed || *passed <= 2 * timeout_))
            return;
        settled.push_back({oldest.number, missingReply(oldest.header, "within " + seconds(timeout_))});
        waiting_.pop_front();
    }
}

void ReplyCourse::add(std::size_t number, const RecordedMessage& message,
                      std::vector<RehearsalFinding>& findings, std::vector<Settled>& settled) {
    if (message.header.isControl())
        return;
    if (!isReply(message.header)) {
        settleLate(message, settled);
        if (message.header.wait)
            waiting_.push_back(
                {number, message.header, message.direction, message.hasSystem, message.link, message.time});
        return;
    }
    const auto primary = primaryOf(message);
    if (primary == waiting_.end()) {
        findings.push_back({"unexpected-reply", "no primary waits for " + nameOf(message.header)});
        return settleLate(message, settled);
    }
    const auto passed = between(primary->time, message.time);
    if (passed && *passed > timeout_)
        findings.push_back({"late-reply", "the reply to " + nameOf(primary->header) + " came after " +
                                              seconds(*passed) + "; T3 is " + seconds(timeout_)});
    if (message.header.function == 0)
        findings.push_back({"aborted", nameOf(message.header) + " aborts " + nameOf(primary->header)});
    else if (message.header.stream != primary->header.stream ||
             message.header.function != primary->header.function + 1)
        findings.push_back(
            {"wrong-reply", nameOf(message.header) + " replies to " + nameOf(primary->header)});
    settled.push_back({primary->number, std::nullopt});
    waiting_.erase(primary);
    settleLate(message, settled);
}

void ReplyCourse::finish(std::vector<Settled>& settled) {
    for (const Waiting& primary : waiting_)
        settled.push_back({primary.number, missingReply(primary.header, "up to the end of the recording")});
    waiting_.clear();
}

} // namespace zb::rehearsal
