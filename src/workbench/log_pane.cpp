#include "workbench/log_pane.h"

#include "workbench/frm_workbench.h"

namespace zb {

namespace {

// Days of work; older lines go first.
constexpr std::size_t kMostLines = 1000;

} // namespace

LogPane::LogPane(frmWorkbench& workbench) : WorkbenchPane(workbench, "Log", "All notices since the start") {
    lvwLog.addColumn("Time", 900);
    lvwLog.addColumn("Notice", 9000);
}

void LogPane::add(const std::string& time, const std::string& text) {
    if (lvwLog.count() == kMostLines)
        lvwLog.remove(*lvwLog.rows().front());
    ListRow& row = lvwLog.add(time);
    row.setCell(1, text);
}

} // namespace zb
