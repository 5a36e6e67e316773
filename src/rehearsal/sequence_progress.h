#pragma once

#include "rehearsal/timeline.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zb::rehearsal {

/// A sequence as far as a recording has come in it.
struct SequenceProgress {
    enum class State {
        Expected,
        Done,
        Here,   ///< taken by the message itself
        Missed, ///< a later step came without it
    };
    struct Step {
        std::string transaction;
        bool isToHost = false;
        State state = State::Expected;
        std::optional<std::size_t> message; ///< that took it, from 0 in the timeline
    };
    std::string name;
    std::vector<Step> steps;
    std::size_t done = 0; ///< the last step that was taken, from 1
};

/// The sequence that the message advances, or the one of its connection that was advanced last before it, as
/// it is after the message. Nothing when there is none.
std::optional<SequenceProgress> sequenceAt(const Timeline& timeline, std::size_t message);

} // namespace zb::rehearsal
