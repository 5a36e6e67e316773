#pragma once

#include "controls/undo_history.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace zb {

class MarkedNodes;
class Node;

/// The marks before and after a step. To show a step that was undone or redone selects a node, which ends
/// marks, so that the history puts these back after that.
class MarksPart final : public StepPart {
public:
    using Marks = std::vector<Node*>;

    MarksPart(Marks before, Marks after) : before_(std::move(before)), after_(std::move(after)) {}

    const Marks& marks(UndoHistory::Way way) const {
        return way == UndoHistory::Way::Undone ? before_ : after_;
    }

    void undo() override {}
    void redo() override {}
    bool changesDocument() const override { return false; }
    std::size_t bytes() const override;
    void append(std::unique_ptr<StepPart> later) override;

private:
    Marks before_;
    Marks after_;
};

/// Records which messages or items are marked.
class MarksJournal final : public StepSource {
public:
    explicit MarksJournal(MarkedNodes& nodes) : nodes_(nodes) {}

    bool hasChanged() const override;
    std::unique_ptr<StepPart> take() override;
    void drop() noexcept override;
    void setRecording(bool on) override;

    /// The marks after the last step.
    const MarksPart::Marks& last() const { return last_; }

private:
    void follow();

    MarkedNodes& nodes_;
    bool recording_ = false;
    MarksPart::Marks last_;
    unsigned long seen_ = 0;
};

} // namespace zb
