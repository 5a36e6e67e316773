#include "rehearsal/sequence_course.h"

#include <algorithm>
#include <utility>

namespace zb::rehearsal {

SequenceCourse::SequenceCourse(const Sequences& sequences) {
    for (const SequenceRow& row : sequences.rows()) {
        if (row.isHead())
            sequences_.push_back({row.text, {}});
        else if (!sequences_.empty())
            sequences_.back().steps.push_back(row.transactionName);
    }
    for (std::size_t i = 0; i < sequences_.size(); ++i)
        for (const std::string& step : sequences_[i].steps)
            if (std::vector<std::size_t>& users = using_[step]; users.empty() || users.back() != i)
                users.push_back(i);
}

SequencePlace SequenceCourse::placeOf(std::size_t sequence, std::size_t step) const {
    return {sequences_[sequence].name, step, sequences_[sequence].steps.size()};
}

SequenceAdvance SequenceCourse::add(std::size_t link, const std::string& transaction,
                                    std::vector<RehearsalFinding>& findings) {
    if (!using_.contains(transaction))
        return {};
    ++turn_;
    Progresses& open = links_[link];
    SequenceAdvance result;
    result.steps = advance(open, transaction);
    if (result.steps.empty())
        result.steps = start(open, transaction, findings);
    if (result.steps.empty())
        result.steps = skipTo(open, transaction, findings);
    if (!result.steps.empty())
        result.place = placeOf(result.steps.front().sequence, result.steps.front().step);
    return result;
}

/// All sequences that expect the TR message go on; the one that was last active is the first of them.
std::vector<SequenceStep> SequenceCourse::advance(Progresses& open, const std::string& transaction) {
    std::vector<SequenceStep> steps;
    std::size_t latest = 0;
    for (const std::size_t index : using_[transaction]) {
        const auto found = open.find(index);
        if (found == open.end() || sequences_[index].steps[found->second.done] != transaction)
            continue;
        Progress& progress = found->second;
        ++progress.done;
        steps.push_back({index, progress.done});
        if (progress.lastTurn > latest) {
            latest = progress.lastTurn;
            std::swap(steps.front(), steps.back());
        }
        progress.lastTurn = turn_;
        if (progress.done == sequences_[index].steps.size())
            open.erase(found);
    }
    return steps;
}

std::vector<SequenceStep> SequenceCourse::start(Progresses& open, const std::string& transaction,
                                                std::vector<RehearsalFinding>& findings) {
    std::vector<SequenceStep> steps;
    for (const std::size_t index : using_[transaction]) {
        const Sequence& sequence = sequences_[index];
        if (sequence.steps.front() != transaction)
            continue;
        if (const auto found = open.find(index); found != open.end())
            findings.push_back({"sequence", sequence.name + " begins again after step " +
                                                std::to_string(found->second.done) + " of " +
                                                std::to_string(sequence.steps.size())});
        open[index] = {1, turn_};
        steps.push_back({index, 1});
        if (sequence.steps.size() == 1)
            open.erase(index);
    }
    return steps;
}

/// Of the sequences in progress with the TR message, the one that was last active goes on at its next step
/// with it. None in progress is no fault: a recording may begin anywhere, and a message may have other uses.
std::vector<SequenceStep> SequenceCourse::skipTo(Progresses& open, const std::string& transaction,
                                                 std::vector<RehearsalFinding>& findings) {
    auto latest = open.end();
    for (const std::size_t index : using_[transaction])
        if (const auto found = open.find(index);
            found != open.end() && (latest == open.end() || found->second.lastTurn > latest->second.lastTurn))
            latest = found;
    if (latest == open.end())
        return {};
    auto& [index, progress] = *latest;
    const Sequence& sequence = sequences_[index];
    findings.push_back({"sequence", transaction + " comes out of order: " + sequence.name + " expects " +
                                        sequence.steps[progress.done] + " as step " +
                                        std::to_string(progress.done + 1)});
    const auto next = std::find(sequence.steps.begin() + static_cast<std::ptrdiff_t>(progress.done),
                                sequence.steps.end(), transaction);
    if (next == sequence.steps.end())
        return {};
    progress = {static_cast<std::size_t>(next - sequence.steps.begin()) + 1, turn_};
    const SequenceStep step{index, progress.done};
    if (progress.done == sequence.steps.size())
        open.erase(latest);
    return {step};
}

std::vector<SequencePlace> SequenceCourse::unfinished() const {
    std::vector<SequencePlace> places;
    for (const auto& [link, open] : links_)
        for (const auto& [index, progress] : open)
            places.push_back(placeOf(index, progress.done));
    return places;
}

} // namespace zb::rehearsal
