#pragma once

#include "platform/folder_lock.h"
#include "platform/result.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

class FileLayer;

/// What a program has open, or had open when it was killed.
struct SessionTrace {
    std::filesystem::path folder;
    std::string project; ///< the path of the project file, which need not exist yet
    std::string host;
    long process = 0;
    bool isRunning = false; ///< the program runs, and has the project open
    /// The unsaved work that it keeps, as the bytes of a project file; empty when it has none.
    std::filesystem::path work;
    std::filesystem::file_time_type workTime;
};

/// The trace that this program leaves in the state folder while it has a project open: who it is, and its
/// unsaved work. The trace is removed when the project is closed. One that a killed program left is
/// recognised by its lock, which goes with the process, or by its process where folders cannot be locked.
/// Only the user can read it.
class ProjectSession {
public:
    /// An empty folder leaves no trace.
    ProjectSession(FileLayer& files, const std::filesystem::path& stateFolder);

    /// The program has opened this project, and closed the one before.
    Result<void> enter(const std::string& project);
    /// Call this once a minute, or more often: for other machines the program no longer runs when it is
    /// silent.
    void refresh();
    /// The project is closed in the regular way: nothing of it is left.
    void leave();
    /// The project is closed although its work could not be saved: what was kept stays, as if the program had
    /// been killed.
    void abandon() { lock_.reset(); }
    /// True between `enter` and `leave`, unless no trace could be left.
    bool isEntered() const { return lock_ != nullptr; }

    /// Keeps the work in place of what was kept before.
    Result<void> keepWork(std::string_view bytes);
    /// The work is saved.
    void dropWork();

    /// The traces of all other programs, those of one project together, the newest first. Traces of killed
    /// programs without work are removed on the way, and of several with work on one project all but the
    /// newest.
    std::vector<SessionTrace> others();
    /// Removes what a killed program has left.
    void remove(const SessionTrace& trace);

private:
    std::optional<SessionTrace> readTrace(const std::filesystem::path& folder) const;
    void removeFolder(const std::filesystem::path& folder);

    FileLayer& files_;
    std::filesystem::path root_;
    std::filesystem::path folder_; // of this program
    std::string project_;
    std::unique_ptr<FolderLock> lock_;
};

} // namespace zb
