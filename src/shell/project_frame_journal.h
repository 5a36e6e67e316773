#pragma once

#include "controls/undo_history.h"
#include "project/foreign_sections.h"

#include <functional>
#include <memory>

namespace zb {

/// What belongs to a project as a whole.
struct ProjectFrame {
    int type = 1; ///< 1 is a host project, 2 an equipment project
    ForeignSections foreign;

    bool operator==(const ProjectFrame&) const = default;
};

/// Records when the frame of the open project changes. It changes only through this class, or together with
/// the project.
class ProjectFrameJournal final : public StepSource {
public:
    /// Puts a frame in the place of the one of the open project, and returns that one.
    using Exchange = std::function<ProjectFrame(ProjectFrame)>;
    explicit ProjectFrameJournal(Exchange exchange) : exchange_(std::move(exchange)) {}

    void change(const ProjectFrame& frame);

    bool hasChanged() const override { return part_ != nullptr; }
    std::unique_ptr<StepPart> take() override { return std::move(part_); }
    void drop() noexcept override { part_.reset(); }
    void setRecording(bool on) override { recording_ = on; }

private:
    Exchange exchange_;
    std::unique_ptr<StepPart> part_; // what has changed since the last step
    bool recording_ = false;
};

} // namespace zb
