#pragma once

#include "modeler/frm_add_sequence.h"
#include "modeler/frm_rename.h"
#include "modeler/model_tree_commands.h"
#include "modeler/model_views.h"
#include "modeler/modeler_controls.h"
#include "modeler/sequence_commands.h"
#include "modeler/sequence_view.h"
#include "modeler/tr_object_commands.h"
#include "project/module_state.h"
#include "project/project.h"

#include <string>
#include <string_view>

namespace zb {

class frmTRItem;
class frmTRMessage;

/// The last node or row that the user clicked in the modeler window.
struct ModelSelection {
    Tree* tree = nullptr; ///< the tree that was clicked last; may be null
    std::string
        message;      ///< the node key of the root or message; for an item, of the message that it belongs to
    std::string item; ///< empty when no item is selected
};

/// The window in which the transaction model is seen and edited. Its trees and lists are views of the
/// store and of the sequences.
class frmTRModeler final : public ModelerControls, public ModelViews {
public:
    frmTRModeler(Desktop& desktop, ModuleState& state, ProjectCommands& commands);

    /// The dialogs of the commands; they are created after the window and are only used during commands.
    void useDialogs(frmTRMessage& messages, frmTRItem& items);

    void newModelerProject();
    /// Takes the model, the sequences and the foreign sections of another project.
    void openModelerProject(Project project);
    /// The model's sections of the project file.
    std::string saveModelerProject();
    /// Removes all transaction definitions.
    void clearAllTRMsgDef();

    void displayAddedTRMessage(std::string_view name) override;
    void displayUpdatedTRMessage(std::string_view name) override;
    void displayAddedTRItem(std::string_view message, std::string_view item) override;
    void displayUpdatedTRItem(std::string_view message, std::string_view item) override;

    /// Leaves only the root in the tree, selected.
    void initializeTreeView(Tree& tree);
    /// Fills both trees and the table from the store, and selects the root of the received messages.
    void displayModel();
    /// The store has become another one: the trees follow from the first difference on, and the node that is
    /// selected is shown again.
    void followModel();
    /// Shows the contents of a node with that text in the table.
    void showTRObjects(std::string_view name);
    /// Shows a node as a press on it does, but leaves its mark: after an undo. Null shows the root.
    void showAgain(Tree& tree, Node* node) { treeCommands_.showAgain(tree, node); }
    /// Makes the tree the current one, with the message and item of the node; a null node does not change
    /// these two.
    void selectTreeNode(Tree& tree, const Node* node);

    /// Compared exactly.
    bool TRMessageExists(std::string_view name) const;
    /// "ToEquip" or "ToHost"; empty for a name that is not in the store.
    std::string getDirectionText(std::string_view name) const;

    ModelSelection& current() { return current_; }
    /// Null until a project has been created or opened.
    TRModelStore* store() const { return state_.TRModelStore.get(); }
    const ModuleState& state() const { return state_; }
    SequenceView& sequenceView() { return sequenceView_; }
    /// The commands of the two lower lists beside their pop-ups.
    SequenceCommands& sequenceCommands() { return sequenceCommands_; }
    frmRename& renameDialog() { return rename_; }
    /// Asks for another name of the message that the tree has selected, and gives it to the message, to its
    /// nodes and to the rows of the sequences that name it: one undoable step.
    void renameSelected(Tree& tree);
    /// The key of the tree's root.
    std::string_view rootOf(const Tree& tree) const;
    /// Opens the dialog that changes a message of that tree.
    void editMessage(const Tree& tree, std::string_view name);
    frmTRMessage& messageDialog() { return *messageDialog_; }
    frmTRItem& itemDialog() { return *itemDialog_; }
    /// While one of them is open, the panes have no pop-ups.
    bool isDialogVisible() const;

private:
    void makeStore();
    /// What the dialogs have put aside is of another project.
    void forgetWork();
    std::string toolTipOfObject(const ListRow& row) const;
    void followModel(Tree& tree, int direction);
    /// Null when the tree shows a message of that name already.
    Node* addNodeOf(Tree& tree, const TRMessageRecord& record);
    const TRMessageRecord* recordOf(std::string_view name) const;
    bool isSent(const TRMessageRecord& record) const;
    /// Null for a Direction that is neither received nor sent.
    Tree* treeOf(const TRMessageRecord& record);
    /// Shows what was added or changed; a null node means that no tree shows it.
    void showMessage(const TRMessageRecord& record, Node* node);

    ModuleState& state_;
    ModelSelection current_;
    SequenceView sequenceView_;
    frmAddSequence addSequence_;
    frmRename rename_;
    frmTRMessage* messageDialog_ = nullptr;
    frmTRItem* itemDialog_ = nullptr;
    ModelTreeCommands treeCommands_;
    TRObjectCommands tableCommands_;
    SequenceCommands sequenceCommands_;
};

} // namespace zb
