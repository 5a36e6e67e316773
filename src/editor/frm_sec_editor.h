#pragma once

#include "editor/editor_controls.h"
#include "editor/item_pane.h"
#include "editor/library_pane.h"
#include "editor/message_pane.h"
#include "editor/splitter.h"
#include "editor/tree_commands.h"
#include "editor/tree_interaction.h"
#include "messages/editor_pane.h"

#include <functional>
#include <string>
#include <string_view>

namespace zb {

struct ModuleState;
class ProjectCommands;

/// The window in which the SECS messages of a project are edited. It owns the live message tree, the
/// clipboard and the panes; it is built once and stays for the whole run.
class frmSECSEditor final : public EditorControls, public EditorPane {
public:
    frmSECSEditor(ModuleState& state, ProjectCommands& commands);

    /// Which of two trees is the live one, 1 or 2; it changes whenever a fresh tree takes the old one's
    /// place.
    int currentTreeIndex = 1;
    /// The live tree. New and open put another one in its place.
    NodeTree& liveTree() { return tvwEdit.nodes(); }
    NodeTree& clipboard() { return tvwTemp.nodes(); }

    /// Empties the editor for a new project.
    void newEditorProject();
    /// Empties the editor and reads the messages of the project file; a file that cannot be opened leaves it
    /// empty.
    void openEditorProject();
    /// Writes the messages to the end of the sections that the save gathers. The status is empty on success.
    std::string saveEditorProject();
    /// Checks all messages as the way to the modeler asks for; the status is empty when they are sound.
    std::string walkForModeler();
    /// The system does not print.
    std::string printEditorProject() { return {}; }

    void InsertCbo(std::string_view name) override { messagePane.InsertCbo(name); }
    void TreeView_ForeColor() override;
    void InitMsg() override { messagePane.InitMsg(); }
    void display_DefSECSMsg(const SECSMessageRecord& record) override { messagePane.display(record); }
    /// Until the next click on an item.
    void hideItemPane() override { picItem.setVisible(false); }

    void InitItem() { itemPane.InitItem(); }
    void cboFirstSelect() { messagePane.cboFirstSelect(); }
    void cboSelectWithKey(std::string_view name) { messagePane.cboSelectWithKey(name); }

    ModuleState& state() { return state_; }

    /// The Find entry was chosen.
    std::function<void()> onFind;

    /// The splitter's hands: the screen lays the column out and tells of the mouse, positions in the window's
    /// units.
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
    void toggleExpand();
    void wireTreeWidth();
    void takeTypedWidth();
    void showTreeWidth();

    ModuleState& state_;
    Splitter splitter_{kFirstTreeWidth};

public:
    /// The rooms of the window. They hang their handlers on its controls, so they come last.
    MessagePane messagePane{*this};
    ItemPane itemPane;
    TreeCommands treeCommands{*this};
    TreeInteraction treeInteraction{*this};
    LibraryPane libraryPane{*this};
};

} // namespace zb
