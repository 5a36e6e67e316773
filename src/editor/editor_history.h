#pragma once

#include "controls/combo_journal.h"
#include "controls/tree_journal.h"
#include "controls/undo_history.h"
#include "editor/marks_journal.h"

#include <functional>
#include <optional>

namespace zb {

class MenuEntry;
class frmSECSEditor;

/// The undoable steps of the message tree: its nodes with all that is seen of them, its marks, and the names
/// in the list of messages.
class EditorHistory {
public:
    explicit EditorHistory(frmSECSEditor& window);

    UndoHistory steps;

    /// The window has begun to show another project, and the steps of this one are gone.
    std::function<void()> onReplaced;

private:
    /// Whether the check mark of the entry Expand has changed, which says what its next click does.
    class CheckJournal final : public StepSource {
    public:
        explicit CheckJournal(MenuEntry& entry) : entry_(entry) {}
        bool hasChanged() const override;
        std::unique_ptr<StepPart> take() override;
        void drop() noexcept override {}
        void setRecording(bool on) override;

    private:
        MenuEntry& entry_;
        std::optional<bool> before_; // none while nothing is recorded
    };

    void show(const UndoHistory::Step& step, UndoHistory::Way way);

    frmSECSEditor& window_;
    TreeJournal tree_;
    ComboJournal names_;
    CheckJournal expands_;
    MarksJournal marks_;
};

} // namespace zb
