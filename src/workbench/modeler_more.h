#pragma once

#include "controls/menu.h"

#include <functional>

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

    /// What the user asks for the uses of: what is selected in the tree, the SECS message of the selected
    /// message, or the message that the selected row of the sequences names.
    enum class UsesOf { Selected, Message, Row };
    std::function<void(UsesOf what)> onWhereUsed;

    /// The dialogs are made after the window.
    void useDialogs(frmTRMessage& messages, frmTRItem& items);

    PopupMenu mnuReceivedMore;
    MenuEntry mnuRenameReceived;
    MenuEntry mnuReceivedWhereUsed;
    MenuEntry mnuReceivedMessageUsed;
    PopupMenu mnuSentMore;
    MenuEntry mnuRenameSent;
    MenuEntry mnuSentWhereUsed;
    MenuEntry mnuSentMessageUsed;
    PopupMenu mnuSequenceMore;
    MenuEntry mnuRenameSequence;
    MenuEntry mnuDuplicateRows;
    MenuEntry mnuMoveRowsUp;
    MenuEntry mnuMoveRowsDown;
    MenuEntry mnuRowWhereUsed;
    PopupMenu mnuResultMore;
    MenuEntry mnuTakeApart;
    PopupMenu mnuMessageConditionMore;
    MenuEntry mnuTakeMessageCondition;
    MenuEntry mnuReplaceMessageCondition;
    PopupMenu mnuItemConditionMore;
    MenuEntry mnuTakeItemCondition;
    MenuEntry mnuReplaceItemCondition;

private:
    void wireTrees();
    void wireSequences();

    frmTRModeler& modeler_;
};

} // namespace zb
