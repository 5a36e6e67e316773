#pragma once

#include "controls/list.h"
#include "controls/text_field.h"
#include "lint/finding_tally.h"
#include "workbench/problem_commands.h"
#include "workbench/problem_rows.h"
#include "workbench/problem_watch.h"
#include "workbench/workbench_pane.h"

#include <array>
#include <cstddef>
#include <string>

namespace zb {

/// All findings of the open project, with a filter and toggles. A double click, Enter, F8 and Shift+F8 go to
/// the place of a finding.
class ProblemsPane final : public WorkbenchPane {
public:
    explicit ProblemsPane(frmWorkbench& workbench);

    /// Another project is open.
    void projectShown();
    /// Checks all that is left to check, and shows it.
    void finish() { watch.finish(); }

    enum class Way { Next, Previous };
    /// Goes to the place of the next or previous problem in the list, whether or not the pane is open.
    void goOn(Way way);

    ProblemWatch watch;

    TextField txtProblemFilter{window(), "txtProblemFilter", &pane};
    std::array<CheckBox, kSeverities> chkSeverity; ///< `chkSeverity[1]` to `[3]`: errors, warnings, notes
    std::array<CheckBox, kFindingKinds> chkKind;   ///< `chkKind[1]` to `[5]`: in the order of FindingKind
    CheckBox chkCheckStandard{window(), "chkCheckStandard", "Check the &standards", &pane};
    CheckBox chkShowSilenced{window(), "chkShowSilenced", "Show s&ilenced", &pane};
    Button cmdDocument{window(), "cmdDocument", "&Document...", &pane};
    Label lblProblemCount{window(), "lblProblemCount", {}, &pane};
    List lvwProblems{window(), "lvwProblems", &pane};
    ProblemCommands commands{workbench(), watch};

private:
    void opened() override { show(); }
    void wireList();
    void wireKeys();
    void showImport();
    void show();
    void showCounts();
    void showRows();
    void showProgress();
    void sortBy(std::size_t column);
    void openCommands(ListRow* row);
    void goTo(const ListRow* row);
    void go(const Problem& problem);
    ProblemFilter filter() const;

    ProblemRows rows_{lvwProblems};
    bool rowsAreOld_ = true;
};

} // namespace zb
