#include "workbench/modeler_more.h"

#include "modeler/frm_tr_item.h"
#include "modeler/frm_tr_message.h"
#include "modeler/frm_tr_modeler.h"
#include "modeler/model_nodes.h"

namespace zb {

ModelerMore::ModelerMore(Window& window, frmTRModeler& modeler)
    : mnuReceivedMore(window, "mnuReceivedMore"),
      mnuRenameReceived(window, "mnuRenameReceived", "Rename TRMsg", &mnuReceivedMore),
      mnuReceivedWhereUsed(window, "mnuReceivedWhereUsed", "Where Used", &mnuReceivedMore),
      mnuReceivedMessageUsed(window, "mnuReceivedMessageUsed", "Where SECS Message Used", &mnuReceivedMore),
      mnuSentMore(window, "mnuSentMore"),
      mnuRenameSent(window, "mnuRenameSent", "Rename TRMsg", &mnuSentMore),
      mnuSentWhereUsed(window, "mnuSentWhereUsed", "Where Used", &mnuSentMore),
      mnuSentMessageUsed(window, "mnuSentMessageUsed", "Where SECS Message Used", &mnuSentMore),
      mnuSequenceMore(window, "mnuSequenceMore"),
      mnuRenameSequence(window, "mnuRenameSequence", "Rename Sequence", &mnuSequenceMore),
      mnuDuplicateRows(window, "mnuDuplicateRows", "Duplicate", &mnuSequenceMore),
      mnuMoveRowsUp(window, "mnuMoveRowsUp", "Move Up", &mnuSequenceMore),
      mnuMoveRowsDown(window, "mnuMoveRowsDown", "Move Down", &mnuSequenceMore),
      mnuRowWhereUsed(window, "mnuRowWhereUsed", "Where Used", &mnuSequenceMore),
      mnuResultMore(window, "mnuResultMore"),
      mnuTakeApart(window, "mnuTakeApart", "Take Apart", &mnuResultMore),
      mnuMessageConditionMore(window, "mnuMessageConditionMore"),
      mnuTakeMessageCondition(window, "mnuTakeMessageCondition", "Edit in the Fields",
                              &mnuMessageConditionMore),
      mnuReplaceMessageCondition(window, "mnuReplaceMessageCondition", "Replace by the Fields",
                                 &mnuMessageConditionMore),
      mnuItemConditionMore(window, "mnuItemConditionMore"),
      mnuTakeItemCondition(window, "mnuTakeItemCondition", "Edit in the Fields", &mnuItemConditionMore),
      mnuReplaceItemCondition(window, "mnuReplaceItemCondition", "Replace by the Fields",
                              &mnuItemConditionMore),
      modeler_(modeler) {
    for (PopupMenu* menu : {&mnuResultMore, &mnuMessageConditionMore, &mnuItemConditionMore})
        menu->setLeavesFocus();
    wireTrees();
    wireSequences();
}

void ModelerMore::wireTrees() {
    struct Entries {
        MenuEntry& rename;
        MenuEntry& whereUsed;
        MenuEntry& messageUsed;
    };
    const auto wire = [this](PopupMenu& popup, PopupMenu& more, Entries entries, Tree& tree) {
        popup.setCompanion(more);
        entries.rename.setShortcut("F2");
        more.onOpen = [entries, &tree] {
            const Node* selected = tree.nodes().selected();
            const bool isMessage = selected != nullptr && levelOf(*selected) == ModelLevel::Message;
            entries.rename.setEnabled(isMessage);
            entries.whereUsed.setEnabled(selected != nullptr && selected->parent() != nullptr);
            entries.messageUsed.setEnabled(isMessage);
        };
        entries.rename.onClick = [this, &tree] { modeler_.renameSelected(tree); };
        entries.whereUsed.withSeparatorAbove();
        entries.whereUsed.onClick = [this] { fire(onWhereUsed, UsesOf::Selected); };
        entries.messageUsed.onClick = [this] { fire(onWhereUsed, UsesOf::Message); };
    };
    wire(modeler_.mnuRcvTRMsgPopup, mnuReceivedMore,
         {mnuRenameReceived, mnuReceivedWhereUsed, mnuReceivedMessageUsed}, modeler_.tvwRcvTRMsg);
    wire(modeler_.mnuSndTRMsgPopup, mnuSentMore, {mnuRenameSent, mnuSentWhereUsed, mnuSentMessageUsed},
         modeler_.tvwSndTRMsg);
}

void ModelerMore::wireSequences() {
    SequenceCommands& commands = modeler_.sequenceCommands();
    modeler_.mnuSeqPopup.setCompanion(mnuSequenceMore);
    mnuSequenceMore.onOpen = [this, &commands] {
        mnuRenameSequence.setEnabled(commands.hasSelectedSequence());
        for (MenuEntry* entry : {&mnuDuplicateRows, &mnuMoveRowsUp, &mnuMoveRowsDown})
            entry->setEnabled(commands.hasSelection());
        mnuRowWhereUsed.setEnabled(commands.hasSelection() && !commands.hasSelectedSequence());
    };
    mnuRowWhereUsed.withSeparatorAbove();
    mnuRowWhereUsed.onClick = [this] { fire(onWhereUsed, UsesOf::Row); };
    mnuRenameSequence.setShortcut("F2");
    mnuDuplicateRows.setShortcut("Ctrl+D");
    mnuMoveRowsUp.setShortcut("Alt+Up");
    mnuMoveRowsDown.setShortcut("Alt+Down");
    mnuRenameSequence.onClick = [&commands] { commands.renameSequence(); };
    mnuDuplicateRows.onClick = [&commands] { commands.duplicateRows(); };
    mnuMoveRowsUp.onClick = [&commands] { commands.moveRows(Step::Up); };
    mnuMoveRowsDown.onClick = [&commands] { commands.moveRows(Step::Down); };
}

void ModelerMore::useDialogs(frmTRMessage& messages, frmTRItem& items) {
    messages.txtResultCondition.setContextMenu(&mnuResultMore);
    mnuResultMore.onOpen = [this, &messages] {
        mnuTakeApart.setEnabled(!messages.txtResultCondition.text().empty());
    };
    mnuTakeApart.onClick = [&messages] { messages.takeConditionApart(); };
    const auto wire = [](ConditionControls& controls, ConditionBuilder& builder, PopupMenu& more,
                         MenuEntry& take, MenuEntry& replace) {
        List& list = controls.lvwSimpleCondition;
        list.setContextMenu(&more);
        // A press with the right button selects nothing by itself.
        list.onMouseDown = [&list](int, ListRow* row) {
            if (row != nullptr)
                list.select(row);
        };
        more.onOpen = [&list, &take, &replace] {
            take.setEnabled(list.selected() != nullptr);
            replace.setEnabled(list.selected() != nullptr);
        };
        take.onClick = [&builder] { builder.takeIntoFields(); };
        replace.onClick = [&builder] { builder.replaceByFields(); };
    };
    wire(messages.builder, messages.conditions(), mnuMessageConditionMore, mnuTakeMessageCondition,
         mnuReplaceMessageCondition);
    wire(items.builder, items.conditions(), mnuItemConditionMore, mnuTakeItemCondition,
         mnuReplaceItemCondition);
}

} // namespace zb
