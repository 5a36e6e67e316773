#pragma once

#include "lint/finding_tally.h"
#include "lint/live_messages.h"
#include "lint/live_model.h"
#include "lint/silencings.h"
#include "platform/tree/node_tree.h"
#include "workbench/idle_slices.h"

#include <cstddef>
#include <functional>

namespace zb {

class Desktop;
class Tree;
class TRModelStore;
struct ModuleState;

/// A finding, and the root node of the message that it is about; null for findings of anything else.
struct Problem {
    Finding finding;
    const Node* root = nullptr;
    bool isSilenced = false;

    bool operator==(const Problem&) const = default;
};

/// The same without a copy. The finding of a message is where the checks keep it, until they go on; any other
/// only until the visit of the next one.
struct ProblemView {
    const Finding& finding;
    const Node* root;
    bool isSilenced;

    Problem copy() const { return {finding, root, isSilenced}; }
};

/// Checks the open project between the actions of the user, in slices of some milliseconds: all of it after
/// it was opened, and then what an action has changed. It changes nothing in the project.
class ProblemWatch final : private NodeTreeListener {
public:
    /// `messages` is the tree of the editor.
    ProblemWatch(Desktop& desktop, ModuleState& state, Tree& messages);
    ~ProblemWatch() override;

    /// Another project is open: begins anew.
    void restart();
    /// The modeler has done, undone or redone a step.
    void modelStepped();
    /// Does all that is left to do. For users who wait until it is done.
    void finish();
    bool isDone() const { return messages_.isDone() && model_.isDone(); }
    /// How much of the work is done, in percent, from 0 to 99; 100 when all is.
    int percentDone() const;

    /// Whether the rules of the standards check are checked, too.
    bool checksStandard() const { return standard_; }
    void setStandard(bool on);

    const Silencings& silencings() const { return silencings_; }
    void setSilencings(Silencings silencings);
    /// What was found in the file that was read last, and in the text that was pasted last.
    /// @{
    void setImport(Findings findings) { takeFrom(import_, std::move(findings)); }
    void setPasted(Findings findings) { takeFrom(pasted_, std::move(findings)); }
    /// @}

    /// Without the silenced ones; those of the file are among them.
    const FindingTally& tally() const { return tally_; }
    /// The messages in tree order, the model, the file, the pasted text, until `visit` returns false.
    void visit(const std::function<bool(const ProblemView& problem)>& visit) const;

    /// After a slice in which findings have come or gone, or the check has come to its end.
    std::function<void()> onChange;
    /// After any other slice.
    std::function<void()> onProgress;

private:
    void afterInsert(Node& node) override;
    void beforeRemove(Node& node) override;
    void nodeChanged(Node& node) override;
    void afterFill() override;

    void restartModel();
    std::size_t stepsLeft() const { return messages_.stepsLeft() + model_.stepsLeft(); }
    bool work();
    void report();
    void note(const Findings& gone, const Findings& come);
    void countAgain();
    void takeFrom(Findings& kept, Findings findings);

    ModuleState& state_;
    Tree& tree_;
    LiveMessages messages_;
    LiveModel model_;
    Findings import_;
    Findings pasted_;
    Silencings silencings_;
    FindingTally tally_;
    const TRModelStore* modelStore_ = nullptr; // that is being checked
    int projectType_ = 0;
    bool standard_ = false;
    bool hasChanged_ = false;
    std::size_t mostSteps_ = 0; // that were left at once since all was done
    IdleSlices slices_;
};

} // namespace zb
