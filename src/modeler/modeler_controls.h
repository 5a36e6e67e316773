#pragma once

#include "controls/list.h"
#include "controls/menu.h"
#include "controls/standard_menus.h"
#include "controls/tree.h"
#include "controls/window.h"

namespace zb {

/// All controls of the modeler window, in tab order.
class ModelerControls : public Window {
public:
    ModelerControls(Desktop& desktop, ProjectCommands& commands);

    StandardMenus menus;

    Tree tvwRcvTRMsg{*this, "tvwRcvTRMsg"};
    Tree tvwSndTRMsg{*this, "tvwSndTRMsg"};
    /// The selection of a tree, as a table.
    List lvwTRObject{*this, "lvwTRObject"};
    /// The sequences; see SequenceView.
    List lvwSequence{*this, "lvwSequence", nullptr, List::Selection::Many};

    PopupMenu mnuRcvTRMsgPopup{*this, "mnuRcvTRMsgPopup"};
    MenuEntry mnuAddRcvTRMsg{*this, "mnuAddRcvTRMsg", "&Add TRMsg", &mnuRcvTRMsgPopup};
    MenuEntry mnuUpdateRcvTRMsg{*this, "mnuUpdateRcvTRMsg", "&Update TRMsg", &mnuRcvTRMsgPopup};
    MenuEntry mnuDeleteRcvTRMsg{*this, "mnuDeleteRcvTRMsg", "&Delete TRMsg", &mnuRcvTRMsgPopup};
    MenuEntry mnuAddTRItem{*this, "mnuAddTRItem", "Add &TRItem", &mnuRcvTRMsgPopup};
    MenuEntry mnuUpdateTRItem{*this, "mnuUpdateTRItem", "Update TR&Item", &mnuRcvTRMsgPopup};
    MenuEntry mnuDeleteTRItem{*this, "mnuDeleteTRItem", "De&lete TRItem", &mnuRcvTRMsgPopup};
    MenuEntry mnuRemoveErrorsRcvTRMsg{*this, "mnuRemoveErrorsRcvTRMsg", "&Remove Errors", &mnuRcvTRMsgPopup};
    MenuEntry mnuClearAllRcvTRMsg{*this, "mnuClearAllRcvTRMsg", "&Clear All", &mnuRcvTRMsgPopup};

    PopupMenu mnuSndTRMsgPopup{*this, "mnuSndTRMsgPopup"};
    MenuEntry mnuAddSndTRMsg{*this, "mnuAddSndTRMsg", "&Add TRMsg", &mnuSndTRMsgPopup};
    MenuEntry mnuUpdateSndTRMsg{*this, "mnuUpdateSndTRMsg", "&UpdateTRMsg", &mnuSndTRMsgPopup};
    MenuEntry mnuDeleteSndTRMsg{*this, "mnuDeleteSndTRMsg", "&Delete TRMsg", &mnuSndTRMsgPopup};
    MenuEntry mnuRemoveErrorsSndTRMsg{*this, "mnuRemoveErrorsSndTRMsg", "&Remove Errors", &mnuSndTRMsgPopup};
    MenuEntry mnuClearAllSndTRMsg{*this, "mnuClearAllSndTRMsg", "&Clear All", &mnuSndTRMsgPopup};

    PopupMenu mnuTRObjectPopup{*this, "mnuTRObjectPopup"};
    MenuEntry mnuAddTRObjTRMsg{*this, "mnuAddTRObjTRMsg", "&Add TRMsg", &mnuTRObjectPopup};
    MenuEntry mnuUpdateTRObjTRMsg{*this, "mnuUpdateTRObjTRMsg", "&Update TRMsg", &mnuTRObjectPopup};
    MenuEntry mnuDeleteTRObjTRMsg{*this, "mnuDeleteTRObjTRMsg", "&Delete TRMsg", &mnuTRObjectPopup};
    MenuEntry mnuAddTRObjTRItem{*this, "mnuAddTRObjTRItem", "Add &TRItem", &mnuTRObjectPopup};
    MenuEntry mnuUpdateTRObjTRItem{*this, "mnuUpdateTRObjTRItem", "Update TR&Item", &mnuTRObjectPopup};
    MenuEntry mnuDeleteTRObjTRItem{*this, "mnuDeleteTRObjTRItem", "De&lete TRItem", &mnuTRObjectPopup};

    PopupMenu mnuSeqPopup{*this, "mnuSeqPopup"};
    MenuEntry mnuSeqAddSequence{*this, "mnuSeqAddSequence", "&Add Sequence", &mnuSeqPopup};
    MenuEntry mnuSeqDelete{*this, "mnuSeqDelete", "&Delete", &mnuSeqPopup};
    MenuEntry mnuSeqClearAll{*this, "mnuSeqClearAll", "&ClearAll", &mnuSeqPopup};
};

} // namespace zb
