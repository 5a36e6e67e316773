#include "editor/editor_history.h"

#include "controls/menu.h"
#include "editor/frm_sec_editor.h"

#include <memory>

namespace zb {

namespace {

class CheckPart final : public StepPart {
public:
    CheckPart(MenuEntry& entry, bool before) : entry_(entry), other_(before) {}
    void undo() override {
        const bool now = entry_.checked();
        entry_.setChecked(other_);
        other_ = now;
    }
    void redo() override { undo(); }
    bool changesDocument() const override { return false; }
    std::size_t bytes() const override { return sizeof *this; }
    // The value before the first change is known already.
    void append(std::unique_ptr<StepPart> /*later*/) override {}

private:
    MenuEntry& entry_;
    bool other_; // the value before the step, or after it while it is undone
};

} // namespace

EditorHistory::EditorHistory(frmSECSEditor& window)
    : window_(window), tree_(window.tvwEdit), names_(window.cboSECSMessage), expands_(window.mnuExpand),
      marks_(window.markedNodes) {
    steps.add(tree_);
    steps.add(names_);
    steps.add(expands_);
    steps.add(marks_);
    tree_.onReplaced = [this] {
        steps.stop();
        if (onReplaced)
            onReplaced();
    };
    steps.onMoved = [this](const UndoHistory::Step& step, UndoHistory::Way way) { show(step, way); };
    steps.clear();
}

void EditorHistory::show(const UndoHistory::Step& step, UndoHistory::Way way) {
    // The parts of `tree_`, which was added first, and of `marks_`, which was added last.
    const auto* tree = static_cast<const TreePart*>(step.parts.front().get());
    const auto* marks = static_cast<const MarksPart*>(step.parts.back().get());
    if (tree == nullptr)
        return;
    window_.treeInteraction.showAgain(tree->affected(way));
    window_.markedNodes.set(marks == nullptr ? marks_.last() : marks->marks(way));
}

bool EditorHistory::CheckJournal::hasChanged() const {
    return before_ && *before_ != entry_.checked();
}

std::unique_ptr<StepPart> EditorHistory::CheckJournal::take() {
    if (!hasChanged())
        return nullptr;
    const bool before = *before_;
    before_ = entry_.checked();
    return std::make_unique<CheckPart>(entry_, before);
}

void EditorHistory::CheckJournal::setRecording(bool on) {
    before_ = on ? std::optional(entry_.checked()) : std::nullopt;
}

} // namespace zb
