#pragma once

#include "project/project.h"
#include "shell/disk_watch.h"
#include "workbench/project_door.h"

#include <functional>
#include <optional>
#include <string>

namespace zb {

class Application;

/// The versions of the open project: the kept ones, and the one on disk when another program has changed it.
class ProjectVersions final : public ProjectDoor {
public:
    explicit ProjectVersions(Application& application) : app_(application) {}

    std::vector<ProjectHistory::Version> versions() override;
    Project content() const override;
    void replaceContent(Project content, const std::string& step) override;
    /// Those of any project file.
    std::vector<ProjectHistory::Version> versionsOf(const std::string& path) const;
    void restoreVersion(const ProjectHistory::Version& version) override;
    void openBeside(const ProjectHistory::Version& version) override;
    void showEditor() override;
    void showModeler() override;
    /// Opens a project in another window of the program; false when that cannot be done here.
    std::function<bool(const std::string& path)> onOpenBeside;

    /// A project was created or opened. Without `seen` its file is read now.
    void projectOpened(const std::optional<DiskWatch>& seen = {});
    /// The user has come to a window, of this program or from another one: time to look at the file. Nothing
    /// happens while a dialog is open.
    void userReturned();
    /// Whether another program has changed the project file at this path since it was opened or saved. Asked
    /// before a save, which replaces the change.
    bool isChangedOnDisk(const std::string& path) const;
    /// The project was saved; `replaced` says that a change of another program was replaced.
    void saved(const std::string& path, std::string_view text, bool replaced);
    /// A step of all documents was undone: what was said of it is true no more.
    void stepUndone(const std::string& step);

private:
    ProjectHistory history() const;
    void offerReload();
    void reload();
    void compareWithDisk();
    /// The file is as it should be.
    void takeAsSeen();
    void bringBack(int number);
    int keepOpenWork();
    /// What a file takes the place of the open project for.
    struct Replacement {
        std::string step;   ///< "Reload Etcher.zbp"
        std::string notice; ///< what the user reads afterwards
    };
    /// Puts what is in the file into the open project; false when it cannot be read, and nothing has changed.
    bool show(const std::string& path, const Replacement& replacement);

    Application& app_;
    DiskWatch watch_;    // the file as it was opened, saved, or kept by the user's word
    DiskWatch reported_; // the file as the user last heard of it
    std::string watched_;
    std::string shownBy_; // the step that has put the last file in the place of the open project
};

} // namespace zb
