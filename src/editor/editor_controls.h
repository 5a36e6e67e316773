#pragma once

#include "controls/bars.h"
#include "controls/combo.h"
#include "controls/list.h"
#include "controls/simple_controls.h"
#include "controls/standard_menus.h"
#include "controls/text_field.h"
#include "controls/tree.h"
#include "controls/window.h"
#include "editor/editor_menus.h"

namespace zb {

/// All controls of the editor window, in tab order. Their behaviour is described by the panes and command
/// groups that set the handlers.
class EditorControls : public Window {
public:
    EditorControls(Desktop& desktop, ProjectCommands& commands);

    ProjectMenu projectMenu;
    MenuEntry mnuEdit{*this, "mnuEdit", "Edit(&E)"};
    MenuEntry mnuView{*this, "mnuView", "View(&V)"};
    MenuEntry mnuInsert{*this, "mnuInsert", "Insert(&I)"};
    StructureEntries editEntries{*this, "mnu", mnuEdit, mnuInsert};
    MenuEntry mnuFind{*this, "mnuFind", "Find(&F)", &mnuEdit};
    MenuEntry mnuExpand{*this, "mnuExpand", "Expand(&N)", &mnuView};
    LibraryMenu libraryMenu{*this, mnuView};
    CommandMenus commandMenus;
    PopupMenu mnuPopup{*this, "mnuPopup"};
    StructureEntries popEntries{*this, "mnuPop", mnuPopup, mnuPopup};

    /// Shows only the messages of the library that contain its text.
    TextField txtSourceFilter{*this, "txtSourceFilter"};
    /// The file of the loaded library, and what of it could not be read. Hidden while there is nothing to
    /// say.
    /// @{
    Label lblLibraryFile{*this, "lblLibraryFile"};
    Label lblLibraryNotice{*this, "lblLibraryNotice"};
    Button cmdLibraryFindings{*this, "cmdLibraryFindings", "Show"};
    /// @}
    /// The messages of the loaded library.
    List lvwSource{*this, "lvwSource", nullptr, List::Selection::Many};
    Combo cboSECSMessage{*this, "cboSECSMessage"};
    Tree tvwEdit{*this, "tvwEdit"};

    Pane picMsg{*this, "picMsg"};
    Label lblStream{*this, "lblStream", "Stream", &picMsg};
    TextField txtStream{*this, "txtStream", &picMsg};
    Label lblFunction{*this, "lblFunction", "Function", &picMsg};
    TextField txtFunction{*this, "txtFunction", &picMsg};
    Label lblMsgName{*this, "lblMsgName", "Msg Name", &picMsg};
    TextField txtMsgName{*this, "txtMsgName", &picMsg};
    Label lblDescription{*this, "lblDescription", "Description", &picMsg};
    TextField txtDescription{*this, "txtDescription", &picMsg};
    CheckBox chkWait{*this, "chkWait", "Wait", &picMsg};
    CheckBox chkReply{*this, "chkReply", "Auto Reply", &picMsg};
    CheckBox chkNoLogging{*this, "chkNoLogging", "No Logging", &picMsg};
    OptionGroup directions;
    Option optHost{*this, "optHost", "To Equip", directions, &picMsg};
    Option optEqp{*this, "optEqp", "To Host", directions, &picMsg};
    Option optBoth{*this, "optBoth", "Both", directions, &picMsg};
    Button cmdMsgAdd{*this, "cmdMsgAdd", "&Add", &picMsg};
    Button cmdMsgChange{*this, "cmdMsgChange", "&Change", &picMsg};
    /// Says which message the pane shows while another one is selected; hidden otherwise.
    Label lblStale{*this, "lblStale", {}, &picMsg};

    Pane picItem{*this, "picItem"};
    Label lblItemName{*this, "lblItemName", "Item Name", &picItem};
    TextField txtItemName{*this, "txtItemName", &picItem};
    Label lblItemCount{*this, "lblItemCount", "Item Count", &picItem};
    TextField txtItemCount{*this, "txtItemCount", &picItem};
    CheckBox chkFix{*this, "chkFix", "Fixed Count", &picItem};
    CheckBox chkIsItemKey{*this, "chkIsItemKey", "ItemKey", &picItem};
    Label lblTypes{*this, "lblTypes", "Types", &picItem};
    Toolbar tbritemType{*this, "tbritemType", &picItem};
    Label lblInit{*this, "lblInit", "Initial Value", &picItem};
    TextField txtInit{*this, "txtInit", &picItem};

    /// The splitter as a number, for the keyboard and for scripts: the width of the tree column in the
    /// window's units. A typed width takes effect when the field is left or Enter is pressed; one that the
    /// splitter refuses is replaced by the old one.
    Label lblTreeWidth{*this, "lblTreeWidth", "Tree Width"};
    TextField txtTreeWidth{*this, "txtTreeWidth"};

    /// The clipboard, which remains when another project is opened.
    Tree tvwTemp{*this, "tvwTemp"};
    /// The rows of a drag from lvwSource.
    List List1{*this, "List1"};

private:
    void addTypeButtons();
    void setToolTips();
    void setShortcuts();
};

} // namespace zb
