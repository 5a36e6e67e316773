#pragma once

#include "rehearsal/interpreter.h"
#include "rehearsal/reply_course.h"
#include "rehearsal/sequence_course.h"

#include <deque>
#include <optional>
#include <vector>

namespace zb::rehearsal {

/// A message of the recording with everything that is known of it.
struct Verdict {
    std::size_t number = 0; ///< in the recording, from 1, with control messages
    RecordedMessage message;
    Interpretation interpretation;
    std::optional<SequencePlace> sequence;
    std::vector<SequenceStep> steps;        ///< of all sequences that it advances, that of `sequence` first
    std::vector<RehearsalFinding> findings; ///< those of the interpretation, then those of the course
};

/// Runs the messages of a recording through the model of a project, one after the other. A primary is held
/// back until its reply has come or can no longer come, and so are the messages after it; at most
/// kMostHeldBack.
class Rehearsal {
public:
    static constexpr std::size_t kMostHeldBack = 10'000;

    /// The project must live as long as the rehearsal and its verdicts.
    Rehearsal(const Project& project, CodePage codePage, std::int64_t replyTimeout = kUsualReplyTimeout);

    /// The next message of the recording.
    void add(RecordedMessage message);
    /// The recording has ended.
    void finish();
    /// A message by itself, such as one that was typed: its place in the sequences is after all messages so
    /// far, and it is no reply and waits for none. Its number is 0.
    Verdict judge(RecordedMessage message);
    /// The next verdict that is complete, in the order of the messages.
    std::optional<Verdict> take();

    const Interpreter& interpreter() const { return interpreter_; }
    /// Sequences that have begun and are not complete.
    std::vector<SequencePlace> unfinishedSequences() const { return sequences_.unfinished(); }

private:
    struct Held {
        Verdict verdict;
        bool waits = false;
    };
    void interpret(Verdict& verdict, const RecordedMessage& message);
    void settle(const std::vector<ReplyCourse::Settled>& settled);

    Interpreter interpreter_;
    SequenceCourse sequences_;
    ReplyCourse replies_;
    std::deque<Held> held_;
    std::size_t number_ = 0;
    bool ended_ = false;
};

} // namespace zb::rehearsal
