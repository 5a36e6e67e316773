#pragma once

#include "controls/list.h"
#include "project/project_history.h"
#include "workbench/workbench_pane.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace zb {

/// The kept versions of the open project, the newest first, with what each changed against the one before.
class HistoryPane final : public WorkbenchPane {
public:
    explicit HistoryPane(frmWorkbench& workbench);

    /// Another project is open, or a version was kept.
    void refresh();

    List lvwHistory{window(), "lvwHistory", &pane};
    Button cmdRestore{window(), "cmdRestore", "&Restore", &pane};
    Button cmdOpenBeside{window(), "cmdOpenBeside", "Open &beside", &pane};
    Button cmdCompareVersion{window(), "cmdCompareVersion", "&Compare", &pane};

private:
    void opened() override { refresh(); }
    void enableCommands();
    const ProjectHistory::Version* chosen() const;
    void describeNext();
    void describe(std::size_t position);

    std::vector<ProjectHistory::Version> versions_; // the oldest first
    std::map<std::string, std::string> described_;  // by the path of the version
    std::size_t toDescribe_ = 0;                    // how many are still without their changes
    int filling_ = 0;
};

} // namespace zb
