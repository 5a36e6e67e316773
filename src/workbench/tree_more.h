#pragma once

#include "controls/menu.h"

namespace zb {

class frmSECSEditor;

/// Our entries in the pop-up of the message tree.
class TreeMore {
public:
    /// The stores become part of the window.
    TreeMore(Window& window, frmSECSEditor& editor);

    PopupMenu mnuTreeMore;
    MenuEntry mnuNewMessage;
    MenuEntry mnuInsertAndEdit;
    MenuEntry mnuAddChildAndEdit;
    MenuEntry mnuEditName;
    MenuEntry mnuEditNext;
    MenuEntry mnuMoveUp;
    MenuEntry mnuMoveDown;
    MenuEntry mnuMoveOut;
    MenuEntry mnuMoveIn;
    MenuEntry mnuCopyBare;
    MenuEntry mnuPasteShared;
    MenuEntry mnuToggleMark;
    MenuEntry mnuShowMarks;

private:
    void enableEntries();

    frmSECSEditor& editor_;
};

} // namespace zb
