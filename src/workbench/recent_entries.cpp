#include "workbench/recent_entries.h"

#include "controls/desktop.h"
#include "platform/text.h"
#include "project/module_state.h"
#include "project/recent_projects.h"
#include "workbench/frm_workbench.h"

#include <filesystem>

namespace zb {

namespace {

/// "&1 Etcher (/projects/Etcher)": an ampersand of a name is not the mark of a key.
std::string captionOf(std::size_t number, const std::string& path) {
    const std::filesystem::path file(path);
    const std::string text = file.stem().string() + " (" + file.parent_path().string() + ")";
    return "&" + std::to_string(number) + " " + replaceAll(text, "&", "&&");
}

} // namespace

RecentEntries::RecentEntries(frmWorkbench& workbench)
    : mnuRecent(workbench, "mnuRecent"), workbench_(workbench) {
    mnuRecent.setLeavesFocus();
    mnuRecent.onOpen = [this] { opened(); };
    mnuRecent.setToolTip("Recent projects");
    for (std::size_t i = 0; i < RecentProjects::kMost; ++i) {
        entries_.push_back(std::make_unique<MenuEntry>(workbench, "mnuRecent[" + std::to_string(i + 1) + "]",
                                                       std::string(), &mnuRecent));
        entries_.back()->onClick = [this, i] { workbench_.services().openProject(std::string(paths_[i])); };
    }
    opened();
}

void RecentEntries::opened() {
    paths_ = RecentProjects(workbench_.services().state.settings).all();
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        entries_[i]->setVisible(i < paths_.size() || i == 0);
        entries_[i]->setEnabled(i < paths_.size());
        entries_[i]->setCaption(i < paths_.size() ? captionOf(i + 1, paths_[i]) : "No recent projects");
    }
}

} // namespace zb
