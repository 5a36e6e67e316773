#pragma once

#include "controls/list.h"
#include "workbench/workbench_pane.h"

namespace zb {

/// All keys of the program: those of the menus, those that are the same everywhere, and those that commands
/// have added.
class KeysPane final : public WorkbenchPane {
public:
    /// Adds F1, which opens the pane.
    explicit KeysPane(frmWorkbench& workbench);

    List lvwKeys{window(), "lvwKeys", &pane};

private:
    void opened() override;
    void add(const std::string& key, const std::string& where, const std::string& purpose);
    void addMenusOf(const Window& document);
};

} // namespace zb
