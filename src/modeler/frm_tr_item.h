#pragma once

#include "modeler/condition_controls.h"
#include "modeler/frm_array_info.h"
#include "modeler/frm_set_tr_item_value.h"
#include "platform/stores/menu.h"
#include "platform/stores/tree.h"

#include <string>
#include <string_view>

namespace zb {

class ModelViews;
struct ModelerState;

/// The dialog in which an item of a received TR message is created or changed.
class frmTRItem final : public Window {
public:
    frmTRItem(ModelerState& state, ModelViews& views);

    Label lblTRItemName{*this, "lblTRItemName", "TRItemName"};
    TextField txtTRItemName{*this, "txtTRItemName"};
    Pane fraTRItemType{*this, "fraTRItemType", "ItemType"};
    OptionGroup types;
    Option optString{*this, "optString", "String", types, &fraTRItemType};
    Option optNumeric{*this, "optNumeric", "Numeric", types, &fraTRItemType};
    Label lblSECSMessage{*this, "lblSECSMessage", "SECSMessage"};
    TextField txtSECSMessage{*this, "txtSECSMessage"};
    Label lblItemValue{*this, "lblItemValue", "Value"};
    Combo cmbItemValue{*this, "cmbItemValue"};
    Label lblABSValue{*this, "lblABSValue", "ABSValue"};
    TextField txtABSValue{*this, "txtABSValue"};
    Pane fraStatement{*this, "fraStatement", "Statement"};
    Pane picIF{*this, "picIF", "if", &fraStatement};
    Pane picELIF{*this, "picELIF", "elif", &fraStatement};
    Pane picELSE{*this, "picELSE", "else", &fraStatement};
    Tree tvwStatement{*this, "tvwStatement", &fraStatement};
    ConditionControls builder{*this, "cmdEdit"};
    CheckBox chkKeepVisible{*this, "chkKeepVisible", "Keep Visible State"};
    Button cmdUpdate{*this, "cmdUpdate", "&Add"};
    Button cmdCancel{*this, "cmdCancel", "&Cancel"};
    PopupMenu mnuPopup{*this, "mnuPopup"};
    MenuEntry mnuSetValue{*this, "mnuSetValue", "&Set Value", &mnuPopup};
    MenuEntry mnuDelete{*this, "mnuDelete", "&Delete ", &mnuPopup};

    void addTRItem(std::string_view messageName);
    /// `itemKey` is the message name, "_" and the item name.
    void updateTRItem(std::string_view messageName, std::string_view itemKey);

private:
    ModelerState& state_;
    ModelViews& views_;
    frmArrayInfo arrayDialog_;
    frmSetTRItemValue valueDialog_;
};

} // namespace zb
