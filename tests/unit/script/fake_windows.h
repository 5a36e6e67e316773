#pragma once

#include "controls/bars.h"
#include "controls/combo.h"
#include "controls/desktop.h"
#include "controls/list.h"
#include "controls/menu.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "controls/tree.h"
#include "controls/window.h"

namespace zb {

/// A window with a control of each kind. Events of the controls are written into `lblLog`.
class TestWindow final : public Window {
public:
    explicit TestWindow(Desktop& desktop);

    void closeByFrame() override { fire(onClose); }
    std::function<void()> onClose;

    TextField txtName{*this, "txtName"};
    TextField txtDigits{*this, "txtDigits"};
    TextField txtNotes{*this, "txtNotes", nullptr, TextField::Lines::Many};
    CheckBox chkWait{*this, "chkWait", "&Wait"};
    OptionGroup types;
    Option optType1{*this, "optType[1]", "&Host", types};
    Option optType2{*this, "optType[2]", "&Equipment", types};
    Button cmdAsk{*this, "cmdAsk", "&Ask"};
    Button cmdTell{*this, "cmdTell", "&Tell"};
    Button cmdPick{*this, "cmdPick", "&Pick"};
    Button cmdDialog{*this, "cmdDialog", "&Dialog"};
    Button cmdThrow{*this, "cmdThrow", "Throw"};
    Button cmdHush{*this, "cmdHush", "Hush"};
    Button cmdLoop{*this, "cmdLoop", "Loop"};
    Pane picPane{*this, "picPane", "Pane"};
    Button cmdInPane{*this, "cmdInPane", "In pane", &picPane};
    Label lblLog{*this, "lblLog"};
    Combo cboKind{*this, "cboKind"};
    FolderField dirFolder{*this, "dirFolder"};
    List lvwRows{*this, "lvwRows", nullptr, List::Selection::Many};
    Tree tvwTree{*this, "tvwTree"};
    Tree tvwEmpty{*this, "tvwEmpty"};
    MenuEntry mnuEdit{*this, "mnuEdit", "Edit(&E)"};
    MenuEntry mnuClear{*this, "mnuClear", "Clear(&C)", &mnuEdit};
    MenuEntry mnuMore{*this, "mnuMore", "More(&M)", &mnuEdit};
    MenuEntry mnuInMore{*this, "mnuInMore", "In more", &mnuMore};
    PopupMenu mnuPopup{*this, "mnuPopup"};
    MenuEntry mnuDelete{*this, "mnuDelete", "Delete(&D)", &mnuPopup};
    MenuEntry mnuDialog{*this, "mnuDialog", "Dialog", &mnuPopup};
    Toolbar tbrMain{*this, "tbrMain"};
    StatusBar stbMain{*this, "stbMain"};

    void log(const std::string& what) {
        lblLog.setText(lblLog.text().empty() ? what : lblLog.text() + " " + what);
    }

private:
    void wireFields();
    void wireButtons();
    void wireMenus();
    void wireList();
    void wireTree();
    void fillTree();
    void wireFocus(Control& control);
};

/// A small modal dialog.
class TestDialog final : public Window {
public:
    explicit TestDialog(Desktop& desktop);

    TextField txtValue{*this, "txtValue"};
    Button cmdOK{*this, "cmdOK", "&OK"};
    Button cmdCancel{*this, "cmdCancel", "&Cancel"};
};

} // namespace zb
