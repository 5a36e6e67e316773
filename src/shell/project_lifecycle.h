#pragma once

#include "platform/result.h"
#include "project/project_files.h"
#include "shell/disk_watch.h"
#include "shell/work_keeper.h"

#include <optional>
#include <string>

namespace zb {

class Application;

/// The project commands: what New, Open, Save, Save As and Exit do, whichever window they come from.
class ProjectLifecycle {
public:
    explicit ProjectLifecycle(Application& application) : app_(application) {}

    /// True when a project was created. After a cancel no project has a name any more, though its messages
    /// stay.
    bool newProject();

    /// With a blank path it asks for one. True when a project was opened. When the user cancels the reading
    /// of a large one, the project that was open before stays open.
    bool openProject(const std::string& path = {});
    /// Opens the project file at this path and shows it. False, with what was open before, when the user
    /// cancels the reading.
    bool openFile(const std::string& path);
    /// Opens one of the recent projects, after the question what becomes of the open one. A file that is gone
    /// leaves the list, and nothing is opened.
    bool openRecent(const std::string& path);
    /// Shows unsaved work on the project file at this path, in place of the open project.
    void openRecovered(const std::string& path, Project project);
    /// Where the versions of the open project are kept; empty for one that goes with its folder.
    std::string historyFolder() const;
    /// Takes a path from a command line or from the settings. True when `ProjectName` and `ProjectPath` were
    /// set from it and the file exists.
    bool parseProjectPath(std::string path);

    /// The file is replaced in one step, or stays unchanged. False when it could not be written.
    bool saveProject();
    void saveProjectAs();

    /// Keeps the open project, as it is in the windows, in a new file below the state folder, and returns its
    /// path. The project file is not changed.
    Result<std::string> keepRecoveryCopy();
    /// A command has run out of memory: keeps a copy of the project and shows where.
    void reportOutOfMemory();

    /// Asks what becomes of the open project, as before another one is opened. False when the user cancels.
    bool mayGoOn();
    enum class Exit { Leave, Stay };
    Exit confirmExit();

private:
    enum class Goes { On, Nowhere };
    /// "Do you want to save current project"; Yes saves, and after a failed save the command continues.
    Goes askToSave();
    bool askWhatToOpen();
    /// How a project and its file were when it was opened, for comparisons later on.
    struct Opened {
        WorkKeeper::OptionalFingerprint work;
        std::optional<DiskWatch> file;
    };
    /// Nothing when the user has cancelled.
    std::optional<Result<LoadedProject>> load(const ProjectPlace& place, Opened& opened);
    void showProject(LoadedProject loaded);
    /// The project has its name and folder from this path.
    void takePlace(const std::string& path);
    void noteOpened(const Opened& opened = {});
    void noteRecent();
    /// Makes the folders of the open project. Shows why when it cannot, and returns false.
    bool makeFolders();
    void dropModel();

    void reportUnkeptVersion(const FileError& error);
    std::string projectText();

    struct UnreadFile {
        std::string path;
        FileError error;
    };

    Application& app_;
    std::optional<UnreadFile> unread_; // the open project is not what is in this file
    bool unkeptReported_ = false;
};

} // namespace zb
