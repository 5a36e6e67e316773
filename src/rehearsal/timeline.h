#pragma once

#include "rehearsal/rehearsal.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace zb::rehearsal {

/// What is kept of the verdict on a message; the rest is worked out again when it is asked for. Names are
/// null where there is none, and live as long as the timeline.
struct TimelineVerdict {
    bool isKnown = false; ///< the message has been judged
    Direction direction = Direction::Unknown;
    const std::string* definition = nullptr;
    const std::string* transaction = nullptr;
    std::optional<SequencePlace> sequence;
    std::vector<SequenceStep> steps;
    std::vector<RehearsalFinding> findings;

    bool deviates() const { return !findings.empty(); }
    /// Whether a user sees the same; the place in a sequence and all findings with their texts count.
    bool looksLike(const TimelineVerdict& other) const;
};

/// The messages of a recording in memory and the verdicts on them, which are worked out piece by piece: after
/// each change of the project all are judged anew. Messages that the user has typed follow those of the
/// recording.
class Timeline {
public:
    /// Takes the messages of a recording in place of all that was there.
    void open(std::vector<RecordedMessage> messages);
    /// Adds a message after all others; it is judged as if it came then.
    void addTyped(RecordedMessage message);
    void removeTyped();
    void clear();

    /// Judges all messages anew by this project, from the first. Until it has come to a message, its verdict
    /// is the former one.
    void judgeBy(Project project, CodePage codePage);
    bool isDone() const;
    /// Judges some messages, in some 10 microseconds. Returns the messages whose verdict has changed, in
    /// their order; the vector is valid until the next call.
    const std::vector<std::size_t>& judgeNext();

    /// Positions count from 0.
    /// @{
    std::size_t size() const { return messages_.size(); }
    const RecordedMessage& message(std::size_t at) const { return messages_[at]; }
    const TimelineVerdict& verdict(std::size_t at) const { return verdicts_[at]; }
    bool isTyped(std::size_t at) const { return at >= recorded_; }
    /// What a driver makes of the message by itself; valid until the project is changed. Empty before the
    /// first project.
    Interpretation interpret(std::size_t at) const;
    /// @}
    /// Messages that are not as modelled, as far as they have been judged.
    std::size_t deviations() const { return deviations_; }
    /// The messages that have been judged since `judgeBy`.
    std::size_t judged() const { return taken_; }
    /// By which the messages are judged; null before the first.
    const Project* project() const { return project_.get(); }

private:
    void restart();
    void judgeRecorded();
    void judgeTyped();
    void takeVerdicts(std::size_t most);
    void take(std::size_t at, Verdict verdict);
    const std::string* nameOf(std::string_view name);

    std::vector<RecordedMessage> messages_;
    std::vector<TimelineVerdict> verdicts_;
    std::size_t recorded_ = 0; ///< messages of the recording
    std::size_t deviations_ = 0;
    std::unique_ptr<Project> project_;
    CodePage codePage_{1252};
    std::unique_ptr<Rehearsal> rehearsal_;
    std::size_t given_ = 0; ///< messages that the rehearsal has
    std::size_t taken_ = 0; ///< verdicts that it has given
    bool isFinished_ = false;
    std::vector<std::size_t> changed_;
    std::unordered_set<std::string> names_;
};

} // namespace zb::rehearsal
