#pragma once

#include "controls/menu.h"

#include <memory>
#include <string>
#include <vector>

namespace zb {

class frmWorkbench;

/// The projects that were open before, in the pop-up of the arrow beside the button Open.
class RecentEntries {
public:
    explicit RecentEntries(frmWorkbench& workbench);

    PopupMenu mnuRecent;

private:
    void opened();

    frmWorkbench& workbench_;
    std::vector<std::unique_ptr<MenuEntry>> entries_; ///< `mnuRecent[1]` and so on
    std::vector<std::string> paths_;                  // of the shown entries
};

} // namespace zb
