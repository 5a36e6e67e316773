#include "rehearsal/sequence_progress.h"

#include <algorithm>

namespace zb::rehearsal {

namespace {

/// The rows of a sequence, by its position in the project.
SequenceProgress planOf(const Sequences& sequences, std::size_t wanted) {
    SequenceProgress plan;
    std::size_t heads = 0;
    for (const SequenceRow& row : sequences.rows()) {
        if (row.isHead() && ++heads > wanted + 1)
            break;
        if (heads != wanted + 1)
            continue;
        if (row.isHead())
            plan.name = row.text;
        else
            plan.steps.push_back({row.transactionName, row.direction == "ToHost", {}, {}});
    }
    return plan;
}

/// The step of the sequence that the message takes; 0 for none.
std::size_t stepIn(const TimelineVerdict& verdict, std::size_t sequence) {
    const auto found = std::find_if(verdict.steps.begin(), verdict.steps.end(),
                                    [sequence](const auto& step) { return step.sequence == sequence; });
    return found == verdict.steps.end() ? 0 : found->step;
}

} // namespace

std::optional<SequenceProgress> sequenceAt(const Timeline& timeline, std::size_t message) {
    const auto isOnLink = [&](std::size_t at) {
        return timeline.isTyped(at) || timeline.isTyped(message) ||
               timeline.message(at).link == timeline.message(message).link;
    };
    std::size_t last = message + 1;
    while (last > 0 && (!isOnLink(last - 1) || timeline.verdict(last - 1).steps.empty()))
        --last;
    if (last == 0 || timeline.project() == nullptr)
        return std::nullopt;
    const std::size_t sequence = timeline.verdict(last - 1).steps.front().sequence;
    SequenceProgress progress = planOf(timeline.project()->sequences, sequence);
    // Back to its first step, with which it began.
    for (std::size_t at = last; at-- > 0;) {
        const std::size_t step = isOnLink(at) ? stepIn(timeline.verdict(at), sequence) : 0;
        if (step == 0 || step > progress.steps.size())
            continue;
        progress.done = std::max(progress.done, step);
        SequenceProgress::Step& taken = progress.steps[step - 1];
        taken.state = at == message ? SequenceProgress::State::Here : SequenceProgress::State::Done;
        taken.message = at;
        if (step == 1)
            break;
    }
    for (std::size_t at = 0; at < progress.done; ++at)
        if (progress.steps[at].state == SequenceProgress::State::Expected)
            progress.steps[at].state = SequenceProgress::State::Missed;
    return progress;
}

} // namespace zb::rehearsal
