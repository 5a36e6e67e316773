#pragma once

#include "controls/menu.h"
#include "lint/cures.h"
#include "workbench/problem_watch.h"

#include <functional>
#include <optional>
#include <string>

namespace zb {

class frmWorkbench;
class Silencings;

/// The commands of a problem: its cure where there is exactly one, and silencing. They are the pop-up of its
/// row.
class ProblemCommands {
public:
    /// `watch` gets the silencings that the commands write.
    ProblemCommands(frmWorkbench& workbench, ProblemWatch& watch);

    /// Opens the pop-up for a problem.
    void open(const Problem& problem);
    /// Reads the silencings of the open project.
    void readSilencings();
    /// Notes beside the project whether it asks for the standards check. A project that has no file yet
    /// forgets it.
    void askForStandard(bool ask);

    /// Goes to the place of the problem.
    std::function<void(const Problem& problem)> onGo;

    PopupMenu mnuProblem;
    MenuEntry mnuProblemGo;
    MenuEntry mnuProblemCure;
    MenuEntry mnuSilencePlace;
    MenuEntry mnuSilenceKind;
    MenuEntry mnuReportAgain;

private:
    void cure();
    void change(const std::function<void(Silencings&)>& change);
    /// Empty for a project that has no file yet.
    std::string projectFile() const;
    void showEntry(MenuEntry& entry, const std::string& caption, const std::string& obstacle);

    frmWorkbench& workbench_;
    ProblemWatch& watch_;
    std::optional<Problem> problem_; // that the pop-up was opened for
};

} // namespace zb
