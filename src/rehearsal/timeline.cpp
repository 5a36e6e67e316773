#include "rehearsal/timeline.h"

#include <algorithm>
#include <utility>

namespace zb::rehearsal {

namespace {

/// Each takes a microsecond or less.
constexpr std::size_t kMostAtOnce = 8;

} // namespace

bool TimelineVerdict::looksLike(const TimelineVerdict& other) const {
    const auto sameFinding = [](const RehearsalFinding& left, const RehearsalFinding& right) {
        return left.id == right.id && left.text == right.text;
    };
    const bool samePlace =
        sequence.has_value() == other.sequence.has_value() &&
        (!sequence || (sequence->name == other.sequence->name && sequence->step == other.sequence->step &&
                       sequence->steps == other.sequence->steps));
    return isKnown == other.isKnown && direction == other.direction && definition == other.definition &&
           transaction == other.transaction && samePlace && steps == other.steps &&
           std::equal(findings.begin(), findings.end(), other.findings.begin(), other.findings.end(),
                      sameFinding);
}

void Timeline::open(std::vector<RecordedMessage> messages) {
    messages_ = std::move(messages);
    recorded_ = messages_.size();
    verdicts_.assign(recorded_, {});
    deviations_ = 0;
    restart();
}

void Timeline::addTyped(RecordedMessage message) {
    messages_.push_back(std::move(message));
    verdicts_.emplace_back();
}

void Timeline::removeTyped() {
    while (messages_.size() > recorded_) {
        deviations_ -= verdicts_.back().deviates() ? 1 : 0;
        messages_.pop_back();
        verdicts_.pop_back();
    }
    taken_ = std::min(taken_, recorded_);
    // The sequences forget what was typed.
    restart();
}

void Timeline::clear() {
    open({});
    rehearsal_.reset();
    project_.reset();
    names_.clear();
}

void Timeline::judgeBy(Project project, CodePage codePage) {
    rehearsal_.reset();
    project_ = std::make_unique<Project>(std::move(project));
    codePage_ = std::move(codePage);
    restart();
}

void Timeline::restart() {
    rehearsal_ = project_ == nullptr ? nullptr : std::make_unique<Rehearsal>(*project_, codePage_);
    given_ = 0;
    taken_ = 0;
    isFinished_ = false;
}

bool Timeline::isDone() const {
    return rehearsal_ == nullptr || taken_ == messages_.size();
}

const std::vector<std::size_t>& Timeline::judgeNext() {
    changed_.clear();
    if (isDone())
        return changed_;
    if (taken_ < recorded_)
        judgeRecorded();
    else
        judgeTyped();
    return changed_;
}

void Timeline::judgeRecorded() {
    for (std::size_t count = 0; given_ < recorded_ && count < kMostAtOnce; ++count)
        rehearsal_->add(messages_[given_++]);
    if (given_ == recorded_ && !std::exchange(isFinished_, true))
        rehearsal_->finish();
    // Messages that were held back for a reply come all at once.
    takeVerdicts(4 * kMostAtOnce);
}

void Timeline::takeVerdicts(std::size_t most) {
    for (; most > 0; --most) {
        auto verdict = rehearsal_->take();
        if (!verdict)
            return;
        take(taken_++, *std::move(verdict));
    }
}

/// What is typed comes to the modeled side, when its definitions do not say otherwise.
void Timeline::judgeTyped() {
    RecordedMessage message = messages_[taken_];
    message.direction = rehearsal_->interpreter().directionOf(message.header);
    if (message.direction == Direction::Unknown)
        message.direction = rehearsal_->interpreter().receivedDirection();
    message.link = recorded_ == 0 ? 0 : messages_[recorded_ - 1].link;
    take(taken_++, rehearsal_->judge(std::move(message)));
}

void Timeline::take(std::size_t at, Verdict verdict) {
    TimelineVerdict fresh;
    fresh.isKnown = true;
    fresh.direction = verdict.message.direction;
    const Interpretation& result = verdict.interpretation;
    fresh.definition = result.definition == nullptr ? nullptr : nameOf(result.definition->getName());
    fresh.transaction = result.transaction == nullptr ? nullptr : nameOf(result.transaction->Name());
    fresh.sequence = std::move(verdict.sequence);
    fresh.steps = std::move(verdict.steps);
    fresh.findings = std::move(verdict.findings);
    if (fresh.looksLike(verdicts_[at]))
        return;
    deviations_ -= verdicts_[at].deviates() ? 1 : 0;
    deviations_ += fresh.deviates() ? 1 : 0;
    verdicts_[at] = std::move(fresh);
    changed_.push_back(at);
}

/// One copy of each name; a recording has few different ones.
const std::string* Timeline::nameOf(std::string_view name) {
    return &*names_.emplace(name).first;
}

Interpretation Timeline::interpret(std::size_t at) const {
    if (rehearsal_ == nullptr || messages_[at].header.isControl())
        return {};
    RecordedMessage message = messages_[at];
    message.direction = verdicts_[at].direction;
    return rehearsal_->interpreter().interpret(message);
}

} // namespace zb::rehearsal
