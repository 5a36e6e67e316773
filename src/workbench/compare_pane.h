#pragma once

#include "controls/text_field.h"
#include "workbench/workbench_pane.h"

namespace zb {

/// Compares the open project with any other one: a project, a library, a kept version, or one of these in a
/// git revision.
class ComparePane final : public WorkbenchPane {
public:
    explicit ComparePane(frmWorkbench& workbench);

    Label lblComparedWith{window(), "lblComparedWith", "Compare the open project with", &pane};
    TextField txtComparedWith{window(), "txtComparedWith", &pane};
    Button cmdChooseCompared{window(), "cmdChooseCompared", "&File...", &pane};
    Button cmdCompareWith{window(), "cmdCompareWith", "&Compare", &pane};
    Button cmdCompareLibrary{window(), "cmdCompareLibrary", "With the librar&y", &pane};

private:
    void choose();
    void compare();
};

} // namespace zb
