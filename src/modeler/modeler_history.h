#pragma once

#include "controls/tree_journal.h"
#include "controls/undo_history.h"
#include "modeler/model_journal.h"
#include "modeler/sequence_journal.h"

namespace zb {

class frmTRModeler;

/// The undoable steps of the transaction model and the sequences, with all that is seen of them.
class ModelerHistory {
public:
    explicit ModelerHistory(frmTRModeler& window);

    UndoHistory steps;

private:
    void show(const UndoHistory::Step& step, UndoHistory::Way way);
    bool showInTrees(const UndoHistory::Step& step, UndoHistory::Way way);

    frmTRModeler& window_;
    // In the order of the parts of a step.
    TreeJournal received_;
    TreeJournal sent_;
    ModelJournal model_;
    SequenceJournal sequences_;
};

} // namespace zb
