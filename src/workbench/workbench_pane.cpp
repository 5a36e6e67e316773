#include "workbench/workbench_pane.h"

#include "workbench/frm_workbench.h"

namespace zb {

WorkbenchPane::WorkbenchPane(frmWorkbench& workbench, const std::string& word, const std::string& toolTip)
    : pane(workbench, "pnl" + word, word), button(workbench, "chk" + word, word), workbench_(workbench),
      title_(word) {
    pane.setVisible(false);
    button.setLeavesFocus();
    button.onChange = [this] { follow(); };
    button.setToolTip(toolTip + " (Alt+" + std::to_string(workbench_.add(*this)) + ")");
}

void WorkbenchPane::setCount(const std::string& count) {
    button.setCaption(count.empty() ? title_ : title_ + " (" + count + ")");
}

void WorkbenchPane::follow() {
    if (button.checked() == isOpen())
        return;
    if (!button.checked()) {
        pane.setVisible(false);
        workbench_.closed();
        return;
    }
    workbench_.makeRoomFor(*this);
    pane.setVisible(true);
    opened();
}

} // namespace zb
