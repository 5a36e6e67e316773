#pragma once

#include "controls/undo_history.h"
#include "modeler/sequence_view.h"

#include <memory>
#include <vector>

namespace zb {

/// What one step changed in the sequences: the rows as they were before, or after it while it is undone.
class SequencePart final : public StepPart {
public:
    explicit SequencePart(SequenceView& view) : view_(view) {}

    /// `count` rows are now in the place of the old ones.
    void record(std::size_t at, std::size_t count, SequenceRows old, bool onlyMarks);

    void undo() override;
    void redo() override;
    bool changesDocument() const override { return changesRows_; }
    std::size_t bytes() const override { return bytes_; }
    void append(std::unique_ptr<StepPart> later) override;

    /// The index of the first changed row.
    std::size_t affected() const;

private:
    struct Edit {
        std::size_t at;
        std::size_t count; ///< rows that are there now
        SequenceRows other;
        bool onlyMarks;
    };
    void swap(Edit& edit);

    SequenceView& view_;
    std::vector<Edit> edits_;
    std::size_t bytes_ = sizeof(SequencePart);
    bool changesRows_ = false;
};

/// Records what changes in the sequences.
class SequenceJournal final : public StepSource, private SequenceRecorder {
public:
    explicit SequenceJournal(SequenceView& view) : view_(view) {}
    ~SequenceJournal() override;
    SequenceJournal(const SequenceJournal&) = delete;
    SequenceJournal& operator=(const SequenceJournal&) = delete;

    bool hasChanged() const override { return part_ != nullptr; }
    std::unique_ptr<StepPart> take() override;
    void drop() noexcept override { part_.reset(); }
    void setRecording(bool on) override;

private:
    void afterChange(std::size_t at, std::size_t count, SequenceRows old) override;
    void beforeMark(std::size_t at) override;
    SequencePart& part();

    SequenceView& view_;
    std::unique_ptr<SequencePart> part_; // what has changed since the last step
};

} // namespace zb
