#include "workbench/marks_pane.h"

#include "editor/frm_sec_editor.h"
#include "messages/message_nodes.h"
#include "workbench/frm_workbench.h"

#include <utility>

namespace zb {

namespace {

std::string numberOf(const std::string& count) {
    return count.substr(0, count.find(' '));
}

} // namespace

MarksPane::MarksPane(frmWorkbench& workbench)
    : WorkbenchPane(workbench, "Marks", "The marked messages or items, and changes of all of them") {
    lvwMarks.addColumn("Name", 2400);
    lvwMarks.addColumn("Text", 4500);
    lvwMarks.addColumn("New name", 2400);
    txtPattern.setToolTip("Such as S{stream}F{function} or EQ_{name}; {upper} and {lower} are the name in "
                          "another case, {type} is that of an item");
    txtPattern.setText("{name}");
    txtPattern.onChange = [this] { refresh(); };
    cmdRenameMarked.onClick = [this] { rename(); };
    txtPattern.onKeyDown = [this](KeyEvent key) {
        if (key.code == kKeyEnter && cmdRenameMarked.enabled())
            rename();
    };
    wireButtons();
    this->workbench().services().editor.markedNodes.onChange = [this] {
        setCount(numberOf(this->workbench().services().editor.markedNodes.count()));
        refresh();
    };
}

void MarksPane::rename() {
    lblRefusal.setText(changes().rename(txtPattern.text()));
    refresh();
}

MarkedChanges& MarksPane::changes() const {
    return workbench().services().editor.markedChanges;
}

void MarksPane::wireButtons() {
    using Flag = MarkedChanges::Flag;
    for (const auto& [sets, direction] :
         {std::pair{&cmdToEquip, "H->E"}, {&cmdToHost, "H<-E"}, {&cmdBoth, "H<->E"}}) {
        sets->onClick = [this, direction = direction] {
            changes().setDirection(direction);
            refresh();
        };
    }
    const auto wire = [this](Button& sets, Flag flag, bool on) {
        sets.onClick = [this, flag, on] {
            changes().setFlag(flag, on);
            refresh();
        };
    };
    wire(cmdWait, Flag::Wait, true);
    wire(cmdNoWait, Flag::Wait, false);
    wire(cmdReply, Flag::Reply, true);
    wire(cmdNoReply, Flag::Reply, false);
    wire(cmdNoLogging, Flag::NoLogging, true);
    wire(cmdLogging, Flag::NoLogging, false);
}

void MarksPane::refresh() {
    if (!isOpen())
        return;
    lvwMarks.clear();
    bool messages = false;
    for (const MarkedChanges::Renamed& name : changes().preview(txtPattern.text())) {
        messages = name.node->parent() == nullptr;
        ListRow& row = lvwMarks.add(name.oldName);
        row.setCell(1, name.node->text());
        row.setCell(2, name.refusal.empty() ? name.newName : name.refusal);
    }
    cmdRenameMarked.setEnabled(lvwMarks.count() > 0);
    for (Button* sets : {&cmdToEquip, &cmdToHost, &cmdBoth, &cmdWait, &cmdNoWait, &cmdReply, &cmdNoReply,
                         &cmdNoLogging, &cmdLogging})
        sets->setEnabled(messages);
}

} // namespace zb
