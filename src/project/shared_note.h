#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace zb {

class FileLayer;

/// A program that has a project open.
struct ProjectHolder {
    std::string host;
    long process = 0;

    bool operator==(const ProjectHolder&) const = default;
};

/// The note beside a project file that says which program has it open, for programs on other machines that
/// share the folder: `.NAME.HOST-PROCESS.lock`. It is written only where the folder is shared; where it
/// cannot be written, there is none. It is no lock: a second program learns of the first one, and may save.
class SharedNote {
public:
    using IsShared = std::function<bool(const std::filesystem::path& folder)>;
    explicit SharedNote(FileLayer& files, IsShared isShared);
    ~SharedNote() { leave(); }
    SharedNote(const SharedNote&) = delete;
    SharedNote& operator=(const SharedNote&) = delete;

    /// The program has opened this project file, and closed the one before.
    void enter(const std::string& project);
    void leave();
    /// The program still runs: notes of other machines count as stale when they were not written for
    /// two minutes.
    void refresh();
    /// The other programs that have the project open. What programs that no longer run have left is
    /// removed on the way.
    std::vector<ProjectHolder> others();

private:
    std::string content() const;
    bool isStale(const std::filesystem::path& note, const ProjectHolder& holder) const;

    FileLayer& files_;
    IsShared isShared_;
    std::filesystem::path project_; // empty while no note is written
    std::filesystem::path note_;
};

} // namespace zb
