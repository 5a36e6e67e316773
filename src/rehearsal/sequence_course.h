#pragma once

#include "model/sequences.h"
#include "rehearsal/interpretation.h"
#include "rehearsal/recorded_message.h"

#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace zb::rehearsal {

/// A place in a sequence.
struct SequencePlace {
    std::string name;
    std::size_t step = 0; ///< from 1
    std::size_t steps = 0;
};

/// A step of a sequence that a TR message takes.
struct SequenceStep {
    std::size_t sequence = 0; ///< its position in the project, from 0
    std::size_t step = 0;     ///< from 1

    bool operator==(const SequenceStep&) const = default;
};

/// Where a TR message is in the sequences.
struct SequenceAdvance {
    /// Of the sequence that was active last; nothing when the TR message is in no sequence, or out of order.
    std::optional<SequencePlace> place;
    /// Of all sequences that it advances, that of `place` first.
    std::vector<SequenceStep> steps;
};

/// Follows the sequences of a project along the TR messages of a recording, for each connection separately.
class SequenceCourse {
public:
    explicit SequenceCourse(const Sequences& sequences);

    /// The places that the TR message takes. One that comes out of order is added to the findings.
    SequenceAdvance add(std::size_t link, const std::string& transaction,
                        std::vector<RehearsalFinding>& findings);
    /// Sequences that have begun and are not complete, with their last step.
    std::vector<SequencePlace> unfinished() const;

private:
    struct Sequence {
        std::string name;
        std::vector<std::string> steps;
    };
    struct Progress {
        std::size_t done = 0;
        std::size_t lastTurn = 0;
    };
    using Progresses = std::map<std::size_t, Progress>; // by the index of the sequence
    SequencePlace placeOf(std::size_t sequence, std::size_t step) const;
    std::vector<SequenceStep> advance(Progresses& open, const std::string& transaction);
    std::vector<SequenceStep> skipTo(Progresses& open, const std::string& transaction,
                                     std::vector<RehearsalFinding>& findings);
    std::vector<SequenceStep> start(Progresses& open, const std::string& transaction,
                                    std::vector<RehearsalFinding>& findings);

    std::vector<Sequence> sequences_;
    std::unordered_map<std::string, std::vector<std::size_t>> using_; ///< the sequences with the TR message
    std::map<std::size_t, Progresses> links_;
    std::size_t turn_ = 0;
};

} // namespace zb::rehearsal
