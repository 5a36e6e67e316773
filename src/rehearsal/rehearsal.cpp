#include "rehearsal/rehearsal.h"

#include <utility>

namespace zb::rehearsal {

Rehearsal::Rehearsal(const Project& project, CodePage codePage, std::int64_t replyTimeout)
    : interpreter_(project, std::move(codePage)), sequences_(project.sequences), replies_(replyTimeout) {}

void Rehearsal::add(RecordedMessage message) {
    Verdict verdict;
    verdict.number = ++number_;
    std::vector<ReplyCourse::Settled> settled;
    if (!message.header.isControl()) {
        if (message.direction == Direction::Unknown)
            message.direction = replies_.directionOf(message);
        if (message.direction == Direction::Unknown)
            message.direction = interpreter_.directionOf(message.header);
        interpret(verdict, message);
        replies_.add(verdict.number, message, verdict.findings, settled);
    }
    const bool waits = !message.header.isControl() && message.header.wait && message.header.function % 2 == 1;
    verdict.message = std::move(message);
    held_.push_back({std::move(verdict), waits});
    settle(settled);
}

void Rehearsal::interpret(Verdict& verdict, const RecordedMessage& message) {
    verdict.interpretation = interpreter_.interpret(message);
    verdict.findings = verdict.interpretation.findings;
    if (verdict.interpretation.transaction == nullptr)
        return;
    SequenceAdvance advance =
        sequences_.add(message.link, verdict.interpretation.transaction->Name(), verdict.findings);
    verdict.sequence = std::move(advance.place);
    verdict.steps = std::move(advance.steps);
}

Verdict Rehearsal::judge(RecordedMessage message) {
    Verdict verdict;
    interpret(verdict, message);
    verdict.message = std::move(message);
    return verdict;
}

void Rehearsal::settle(const std::vector<ReplyCourse::Settled>& settled) {
    for (const ReplyCourse::Settled& wait : settled) {
        const std::size_t first = held_.empty() ? number_ + 1 : held_.front().verdict.number;
        if (wait.number >= first) {
            Held& primary = held_[wait.number - first];
            primary.waits = false;
            if (wait.finding)
                primary.verdict.findings.push_back(*wait.finding);
        } else if (wait.finding && !held_.empty()) {
            // The primary was given away already; the last message is where its fault became known.
            held_.back().verdict.findings.push_back(*wait.finding);
        }
    }
}

void Rehearsal::finish() {
    std::vector<ReplyCourse::Settled> settled;
    replies_.finish(settled);
    settle(settled);
    ended_ = true;
}

std::optional<Verdict> Rehearsal::take() {
    if (held_.empty() || (held_.front().waits && !ended_ && held_.size() <= kMostHeldBack))
        return std::nullopt;
    Verdict verdict = std::move(held_.front().verdict);
    held_.pop_front();
    return verdict;
}

} // namespace zb::rehearsal
