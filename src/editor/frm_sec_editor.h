#pragma once

#include "editor/editor_controls.h"
#include "editor/item_entry.h"
#include "editor/item_pane.h"
#include "editor/library_pane.h"
#include "editor/marked_changes.h"
#include "editor/marked_nodes.h"
#include "editor/message_entry.h"
#include "editor/message_pane.h"
#include "editor/node_moves.h"
#include "editor/shared_nodes.h"
#include "editor/shown_message.h"
#include "editor/splitter.h"
#include "editor/tree_commands.h"
#include "editor/tree_interaction.h"
#include "editor/type_ahead.h"
#include "messages/smd/smd_writer.h"

#include <functional>
#include <string>
#include <string_view>

namespace zb {

struct MessageTree;
struct ModuleState;
class ProjectCommands;

/// The window that edits the SECS messages of a project. It owns the live message tree, the clipboard and the
/// panes; it is created once and exists for the whole run.
class frmSECSEditor final : public EditorControls {
public:
    frmSECSEditor(Desktop& desktop, ModuleState& state, ProjectCommands& commands);

    /// Which of the two trees is the live one, 1 or 2; it changes whenever a new tree replaces the old one.
    int currentTreeIndex = 1;
    /// The live tree. New and open replace it.
    NodeTree& liveTree() { return tvwEdit.nodes(); }
    NodeTree& clipboard() { return tvwTemp.nodes(); }

    /// Empties the editor for a new project.
    void newEditorProject();
    /// Shows the messages of another project.
    void openEditorProject(MessageTree messages);
    /// The walk over the live tree that writes the messages and refills the store of messages. The status is
    /// empty on success, otherwise the text of the first fault, whose node is selected and marked after a box
    /// has shown it.
    std::string buildMessageText(WalkMode mode);
    /// The same in two steps. The first changes nothing and touches no control, so that another thread may do
    /// it; the tree must not change before the second, which shows what was found.
    /// @{
    PreparedWalk prepareWalk(WalkMode mode, const Progress& progress);
    std::string takeWalk(PreparedWalk walk);
    /// @}
    /// Not supported: nothing is printed.
    std::string printEditorProject() { return {}; }

    void InsertCbo(std::string_view name) { messagePane.InsertCbo(name); }
    void TreeView_ForeColor();
    void InitMsg() { messagePane.InitMsg(); }
    void display_DefSECSMsg(const SECSMessageRecord& record) { messagePane.display(record); }
    /// Until the next click on an item.
    void hideItemPane() { picItem.setVisible(false); }

    void InitItem() { itemPane.InitItem(); }
    void cboFirstSelect() { messagePane.cboFirstSelect(); }
    void cboSelectWithKey(std::string_view name) { messagePane.cboSelectWithKey(name); }

    ModuleState& state() { return state_; }

    /// The Find entry was chosen.
    std::function<void()> onFind;

    /// The splitter's events: the screen lays the column out and reports the mouse, with positions in the
    /// window's units.
    /// @{
    void placeTreeColumn(const Splitter::Column& column) { splitter_.place(column); }
    int treeWidth() const { return splitter_.width(); }
    void mouseMove(int x, int y, bool leftButtonDown);
    void leftButtonDown(int x, int y) { splitter_.leftButtonDown(x, y); }
    void buttonUp() { splitter_.buttonUp(); }
    /// @}

private:
    static constexpr int kFirstTreeWidth = 4500;

    void replaceTree();
    void reportLosses(const PreparedWalk& walk);
    void showFault(const NodeFault& fault);
    void toggleExpand();
    void wireTreeWidth();
    void takeTypedWidth();
    void showTreeWidth();

    ModuleState& state_;
    Splitter splitter_{kFirstTreeWidth};

public:
    /// The parts of the window. They set handlers of its controls, so they are declared last.
    MessagePane messagePane{*this};
    ItemPane itemPane;
    TreeCommands treeCommands{*this};
    TreeInteraction treeInteraction{*this};
    ShownMessage shownMessage{*this};
    MarkedNodes markedNodes{*this};
    MarkedChanges markedChanges{*this};
    NodeMoves nodeMoves{*this};
    ItemEntry itemEntry{*this};
    MessageEntry messageEntry{*this};
    LibraryPane libraryPane{*this};
    SharedNodes sharedNodes{*this};
    TypeAhead typeAhead{*this};
};

} // namespace zb
