#include "workbench/tree_more.h"

#include "editor/frm_sec_editor.h"

namespace zb {

TreeMore::TreeMore(Window& window, frmSECSEditor& editor)
    : mnuTreeMore(window, "mnuTreeMore"), mnuNewMessage(window, "mnuNewMessage", "New Message", &mnuTreeMore),
      mnuInsertAndEdit(window, "mnuInsertAndEdit", "Insert Item and Edit", &mnuTreeMore),
      mnuAddChildAndEdit(window, "mnuAddChildAndEdit", "Add Child Item and Edit", &mnuTreeMore),
      mnuEditName(window, "mnuEditName", "Edit", &mnuTreeMore),
      mnuEditNext(window, "mnuEditNext", "Edit Next Item", &mnuTreeMore),
      mnuMoveUp(window, "mnuMoveUp", "Move Up", &mnuTreeMore),
      mnuMoveDown(window, "mnuMoveDown", "Move Down", &mnuTreeMore),
      mnuMoveOut(window, "mnuMoveOut", "Move Out", &mnuTreeMore),
      mnuMoveIn(window, "mnuMoveIn", "Move In", &mnuTreeMore),
      mnuCopyBare(window, "mnuCopyBare", "Copy as Bare SML", &mnuTreeMore),
      mnuPasteShared(window, "mnuPasteShared", "Paste from Clipboard", &mnuTreeMore),
      mnuToggleMark(window, "mnuToggleMark", "Mark", &mnuTreeMore),
      mnuShowMarks(window, "mnuShowMarks", "Change All Marked", &mnuTreeMore), editor_(editor) {
    editor_.mnuPopup.setCompanion(mnuTreeMore);
    mnuTreeMore.onOpen = [this] { enableEntries(); };
    mnuNewMessage.setShortcut("Ctrl+M");
    mnuNewMessage.onClick = [this] { editor_.messageEntry.begin(); };
    mnuInsertAndEdit.setShortcut("Ins");
    mnuAddChildAndEdit.setShortcut("Shift+Ins");
    mnuEditName.setShortcut("Enter");
    mnuInsertAndEdit.onClick = [this] { editor_.itemEntry.insertAfter(); };
    mnuAddChildAndEdit.onClick = [this] { editor_.itemEntry.addChild(); };
    mnuEditName.onClick = [this] { editor_.itemEntry.edit(); };
    mnuEditNext.onClick = [this] { editor_.itemEntry.editNext(); };
    mnuPasteShared.setShortcut("Ctrl+Shift+V");
    mnuPasteShared.onClick = [this] { editor_.sharedNodes.paste(); };
    mnuCopyBare.setShortcut("Ctrl+Shift+C");
    mnuCopyBare.onClick = [this] { editor_.sharedNodes.copyBare(); };
    mnuCopyBare.withSeparatorAbove();
    mnuToggleMark.setShortcut("Ctrl+Space");
    mnuToggleMark.onClick = [this] { editor_.markedNodes.toggleSelected(); };
    mnuToggleMark.withSeparatorAbove();
    mnuMoveUp.withSeparatorAbove();
    const struct {
        MenuEntry& entry;
        NodeMove way;
        const char* key;
    } moves[] = {{mnuMoveUp, NodeMove::Up, "Alt+Up"},
                 {mnuMoveDown, NodeMove::Down, "Alt+Down"},
                 {mnuMoveOut, NodeMove::Out, "Alt+Left"},
                 {mnuMoveIn, NodeMove::In, "Alt+Right"}};
    for (const auto& move : moves) {
        move.entry.setShortcut(move.key);
        move.entry.onClick = [this, way = move.way] { editor_.nodeMoves.move(way); };
    }
}

void TreeMore::enableEntries() {
    const Node* selected = editor_.liveTree().selected();
    const bool isMarked = selected != nullptr && editor_.tvwEdit.marks().holds(*selected);
    mnuToggleMark.setCaption(isMarked ? "Unmark" : "Mark");
    mnuEditNext.setEnabled(selected != nullptr && selected->parent() != nullptr &&
                           selected->next() != nullptr);
    mnuCopyBare.setEnabled(selected != nullptr);
    mnuMoveUp.setEnabled(editor_.nodeMoves.isPossible(NodeMove::Up));
    mnuMoveDown.setEnabled(editor_.nodeMoves.isPossible(NodeMove::Down));
    mnuMoveOut.setEnabled(editor_.nodeMoves.isPossible(NodeMove::Out));
    mnuMoveIn.setEnabled(editor_.nodeMoves.isPossible(NodeMove::In));
}

} // namespace zb
