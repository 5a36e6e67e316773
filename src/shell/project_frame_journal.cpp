#include "shell/project_frame_journal.h"

#include <string>
#include <utility>

namespace zb {

namespace {

class FramePart final : public StepPart {
public:
    FramePart(ProjectFrameJournal::Exchange exchange, ProjectFrame other)
        : exchange_(std::move(exchange)), other_(std::move(other)) {}

    void undo() override { other_ = exchange_(std::move(other_)); }
    void redo() override { undo(); }
    bool changesDocument() const override { return true; }
    std::size_t bytes() const override {
        std::size_t sum = sizeof *this;
        for (const std::string& line : other_.foreign.lines())
            sum += sizeof(std::string) + line.size();
        return sum;
    }
    // The frame before the first change is known already.
    void append(std::unique_ptr<StepPart> /*later*/) override {}

private:
    ProjectFrameJournal::Exchange exchange_;
    ProjectFrame other_; // the frame before the step, or after it while it is undone
};

} // namespace

void ProjectFrameJournal::change(const ProjectFrame& frame) {
    ProjectFrame before = exchange_(frame);
    if (recording_ && part_ == nullptr && before != frame)
        part_ = std::make_unique<FramePart>(exchange_, std::move(before));
}

} // namespace zb
