#pragma once

#include "compare/aligned_rows.h"
#include "compare/compatibility.h"
#include "controls/simple_controls.h"
#include "controls/tree.h"
#include "controls/window.h"
#include "workbench/aligned_trees.h"
#include "workbench/conflict_panel.h"
#include "workbench/paired_expansion.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zb {

class OpenProject;

/// Something that the open project is compared with.
struct ComparedVersion {
    std::string name;
    std::shared_ptr<const Project> project;
};

/// What the document `Compare` shows: the open project beside an earlier version on its left, and in a merge
/// also beside another one on its right.
struct Comparison {
    ComparedVersion left;
    std::optional<ComparedVersion> right = std::nullopt;
    CompareScope scope = CompareScope::Whole;
    std::vector<MergeConflict> conflicts = {}; ///< of a merge, whose result the open project is
};

/// The document in which the open project is compared: trees side by side with aligned rows, from which
/// messages, items and fields are taken into the open project.
class frmCompare final : public Window {
public:
    frmCompare(Desktop& desktop, Window& mainWindow, OpenProject& project);

    /// Shows the comparison, at its first difference.
    void compare(Comparison comparison);
    /// Another project is open: what was compared is of no use any more.
    void forget();
    /// The open project may have changed: when it has, it is compared again.
    void follow();

    Label lblLeft{*this, "lblLeft"};
    Tree tvwLeft{*this, "tvwLeft"};
    Label lblProject{*this, "lblProject"};
    Tree tvwProject{*this, "tvwProject"};
    Pane pnlRight{*this, "pnlRight", "Right"};
    Label lblRight{*this, "lblRight", {}, &pnlRight};
    Tree tvwRight{*this, "tvwRight", &pnlRight};
    /// What differs in the selected row, and what that does to the other side.
    Label lblDifference{*this, "lblDifference"};
    CheckBox chkOnlyDifferences{*this, "chkOnlyDifferences", "&Only differences"};
    Button cmdPrevious{*this, "cmdPrevious", "Pre&vious"};
    Button cmdNext{*this, "cmdNext", "&Next"};
    /// The place of the selected row among the differences: "2 of 5".
    Label lblCount{*this, "lblCount"};
    Button cmdTakeLeft{*this, "cmdTakeLeft", "Take &left"};
    Button cmdTakeRight{*this, "cmdTakeRight", "Take &right"};
    ConflictPanel conflicts{*this};

private:
    enum class Way { Back, On };

    void wire();
    std::size_t others() const { return comparison_->right ? 2 : 1; }
    const ComparedVersion& other(std::size_t at) const;
    void refresh();
    bool align();
    std::vector<CompatibilityFinding> judge(const Project& open, const Differences& toLeft) const;
    void showOtherRows();
    void fillTrees();
    void select(std::size_t row);
    void showRow();
    std::string describeRow() const;
    std::string describe(std::size_t other, std::size_t difference) const;
    void go(Way way);
    void take(std::size_t other);
    bool solve(const MergeConflict& conflict, const std::optional<std::string>& value);
    Differences differencesOf(const MergeConflict& conflict) const;
    void showConflict(const MergeConflict& conflict);
    Differences differencesBelow(std::size_t other) const;
    std::string nameOfRow() const;

    OpenProject& project_;
    std::optional<Comparison> comparison_;
    std::string openText_; // of the open project, as it was compared
    Project open_;
    AlignedProjects aligned_;
    std::vector<CompatibilityFinding> effects_; // of the differences to the left
    UrgentRows urgent_;
    std::vector<std::size_t> stops_; // rows in which something differs
    std::optional<std::size_t> row_; // the selected one
    PairedExpansion expansion_;
};

} // namespace zb
