#pragma once

#include "controls/list.h"
#include "controls/text_field.h"
#include "editor/marked_changes.h"
#include "workbench/workbench_pane.h"

#include <string>

namespace zb {

/// The marked messages or items of the editor's tree, or the selected one, and the commands that change all
/// of them: direction, flags, and names by a pattern. The list shows what a rename would make.
class MarksPane final : public WorkbenchPane {
public:
    explicit MarksPane(frmWorkbench& workbench);

    List lvwMarks{window(), "lvwMarks", &pane};
    Label lblPattern{window(), "lblPattern", "New names", &pane};
    TextField txtPattern{window(), "txtPattern", &pane};
    Button cmdRenameMarked{window(), "cmdRenameMarked", "Rename", &pane};
    Label lblRefusal{window(), "lblRefusal", {}, &pane};
    Button cmdToEquip{window(), "cmdToEquip", "To Equip", &pane};
    Button cmdToHost{window(), "cmdToHost", "To Host", &pane};
    Button cmdBoth{window(), "cmdBoth", "Both", &pane};
    Button cmdWait{window(), "cmdWait", "Wait", &pane};
    Button cmdNoWait{window(), "cmdNoWait", "No Wait", &pane};
    Button cmdReply{window(), "cmdReply", "Auto Reply", &pane};
    Button cmdNoReply{window(), "cmdNoReply", "No Auto Reply", &pane};
    Button cmdNoLogging{window(), "cmdNoLogging", "No Logging", &pane};
    Button cmdLogging{window(), "cmdLogging", "Logging", &pane};

private:
    void opened() override { refresh(); }
    void refresh();
    void rename();
    void wireButtons();
    MarkedChanges& changes() const;
};

} // namespace zb
