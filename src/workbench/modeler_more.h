#pragma once

#include "controls/menu.h"

namespace zb {

class Window;
class frmTRItem;
class frmTRMessage;
class frmTRModeler;

/// Our entries in the pop-ups of the modeler and its dialogs.
class ModelerMore {
public:
    /// The stores become part of the window.
    ModelerMore(Window& window, frmTRModeler& modeler);

    /// The dialogs are made after the window.
    void useDialogs(frmTRMessage& messages, frmTRItem& items);

    PopupMenu mnuReceivedMore;
    MenuEntry mnuRenameReceived;
    PopupMenu mnuSentMore;
    MenuEntry mnuRenameSent;
    PopupMenu mnuSequenceMore;
    MenuEntry mnuRenameSequence;
    MenuEntry mnuDuplicateRows;
    MenuEntry mnuMoveRowsUp;
    MenuEntry mnuMoveRowsDown;
    PopupMenu mnuResultMore;
    MenuEntry mnuTakeApart;
    PopupMenu mnuMessageConditionMore;
    MenuEntry mnuTakeMessageCondition;
    MenuEntry mnuReplaceMessageCondition;
    PopupMenu mnuItemConditionMore;
    MenuEntry mnuTakeItemCondition;
    MenuEntry mnuReplaceItemCondition;

private:
    void wireRenames();
    void wireSequences();

    frmTRModeler& modeler_;
};

} // namespace zb
