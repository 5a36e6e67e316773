#pragma once

#include "compare/aligned_rows.h"
#include "compare/compatibility.h"
#include "controls/key.h"
#include "controls/simple_controls.h"
#include "controls/tree.h"
#include "controls/window.h"
#include "platform/result.h"
#include "workbench/aligned_trees.h"
#include "workbench/conflict_panel.h"
#include "workbench/paired_expansion.h"

#include <array>
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
struct ShownComparison {
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
    void compare(ShownComparison comparison);
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

    /// What is shown, made of the open project and of what it is compared with.
    struct Shown {
        bool onlyDifferences = true;
        std::string openText; ///< of the open project, as it was compared
        Project open;
        AlignedProjects aligned;
        std::vector<CompatibilityFinding> effects; ///< of the differences to the left
        UrgentRows urgent;
        std::vector<std::size_t> stops;                             ///< rows in which something differs
        std::array<std::unique_ptr<NodeTree>, kMostVersions> trees; ///< until they are in the controls
    };

    void wire();
    void addKey(KeyEvent key, const char* purpose, Way way);
    std::size_t others() const { return comparison_->right ? 2 : 1; }
    const ComparedVersion& other(std::size_t at) const;
    void showConflicts();
    void refresh();
    bool align();
    void make(Shown& shown, const Progress& progress) const;
    std::vector<CompatibilityFinding> judge(const Project& open, const Differences& toLeft) const;
    void layOut(Shown& shown, const Progress& progress) const;
    void showOtherRows();
    void fillTrees();
    void select(std::size_t row);
    void showRow();
    std::string describeRow() const;
    std::string describe(std::size_t other, std::size_t difference) const;
    void go(Way way);
    void take(std::size_t other);
    bool solve(const ConflictChoice& choice);
    Result<Project, std::string> solved(const ConflictChoice& choice) const;
    Differences differencesOf(const ConflictChoice& choice) const;
    void showConflict(const ValuePlace& place);
    Differences differencesBelow(std::size_t other) const;
    std::string nameOfRow() const;

    OpenProject& project_;
    std::optional<ShownComparison> comparison_;
    Shown shown_;
    std::optional<std::size_t> row_; // the selected one
    PairedExpansion expansion_;
};

} // namespace zb
