#pragma once

#include "modeler/condition_controls.h"
#include "modeler/frm_array_info.h"
#include "platform/stores/menu.h"
#include "platform/stores/tree.h"

#include <string>
#include <string_view>

namespace zb {

class ModelViews;
struct ModelerState;

/// The dialog in which a TR message, received or sent, is created or changed.
class frmTRMessage final : public Window {
public:
    frmTRMessage(ModelerState& state, ModelViews& views);

    Label lblTRName{*this, "lblTRName", "TRName"};
    TextField txtTRName{*this, "txtTRName"};
    Label lblSECSMessage{*this, "lblSECSMessage", "SECSMessage"};
    Combo cmbSECSMessage{*this, "cmbSECSMessage"};
    Label lblDirection{*this, "lblDirection", "Message Direction : "};
    Label lblMsgDirection{*this, "lblMsgDirection"};
    CheckBox chkReport{*this, "chkReport", "&Report"};
    Label lblSelectedMessage{*this, "lblSelectedMessage", "Selected Message"};
    Tree tvwSelSECSMsg{*this, "tvwSelSECSMsg"};
    Label lblItemValue{*this, "lblItemValue", "ItemValue"};
    Label lblItemDsc{*this, "lblItemDsc"};
    TextField txtItemValue{*this, "txtItemValue"};
    Combo cmbItemValue{*this, "cmbItemValue"};
    Button cmdSetValue{*this, "cmdSetValue", "&Set"};
    ConditionControls builder{*this, "cmdEditCondition"};
    Label lblResultCondition{*this, "lblResultCondition", "ResultCondition"};
    TextField txtResultCondition{*this, "txtResultCondition"};
    Button cmdClearCondition{*this, "cmdClearCondition", "C&lear Condition"};
    CheckBox chkKeepVisible{*this, "chkKeepVisible", "Keep Visible State"};
    Button cmdUpdate{*this, "cmdUpdate", "&Add"};
    Button cmdCancel{*this, "cmdCancel", "&Cancel"};
    PopupMenu mnuMsgPopup{*this, "mnuMsgPopup"};
    MenuEntry mnuDuplicate{*this, "mnuDuplicate", "Du&plicate", &mnuMsgPopup};
    MenuEntry mnuDelete{*this, "mnuDelete", "&Delete", &mnuMsgPopup};

    void addRcvTRMessage();
    void addSndTRMessage();
    void updateRcvTRMessage(std::string_view name);
    void updateSndTRMessage(std::string_view name);

private:
    ModelerState& state_;
    ModelViews& views_;
    frmArrayInfo arrayDialog_;
};

} // namespace zb
