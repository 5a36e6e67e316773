#pragma once

#include "compare/merge_context.h"
#include "workbench/compare_door.h"
#include "workbench/open_project.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zb {

class Application;

/// Comparisons of the open project with files, versions and other projects, and what is taken from them.
class Comparisons final : public CompareDoor, public OpenProject {
public:
    explicit Comparisons(Application& application) : app_(application) {}

    void compareWithFile(const std::string& path, const std::string& name) override;
    void compareWithVersion(int number) override;
    void compareWithProject(const std::string& name, Project other, CompareScope scope) override;
    void compareWithLibrary(const std::string& name,
                            const std::vector<const SECSMessageRecord*>& messages) override;
    void compareWithMessages(const std::string& name,
                             const std::vector<const SECSMessageRecord*>& messages) override;

    /// The open project is the result of a merge of these files: shows the conflicts that its own file of
    /// conflicts lists, or without one merges them again, and shows the result as unsaved work.
    void solveMerge(const std::string& base, const std::string& ours, const std::string& theirs);
    /// Shows the conflicts that the file beside the open project lists.
    void solveConflicts();
    /// The project was opened: conflicts beside it are offered.
    void projectOpened();
    /// The project was saved: its file of conflicts keeps those that are not decided, or goes.
    void projectSaved();
    /// Whether a conflict of the open project is not solved and saved yet.
    bool hasConflicts() const;

    std::string name() const override;
    std::string text() const override;
    void change(Project after, const std::string& step) override;

private:
    using Conflicts = std::vector<MergeConflict>;

    bool isOpen() const;
    std::string conflictsFile() const;
    std::optional<Conflicts> readConflictsFile() const;
    void showConflicts(const Conflicts& conflicts);
    void compareWithVersionOf(const std::string& path, int number, const std::string& shown);
    void report(const std::string& what, const std::string& why);

    Application& app_;
};

} // namespace zb
