#pragma once

#include "controls/list.h"
#include "workbench/workbench_pane.h"

namespace zb {

/// All notices since the start, the latest at the end.
class LogPane final : public WorkbenchPane {
public:
    explicit LogPane(frmWorkbench& workbench);

    void add(const std::string& time, const std::string& text);

    List lvwLog{window(), "lvwLog", &pane};
};

} // namespace zb
