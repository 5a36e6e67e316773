#pragma once

#include "controls/menu.h"
#include "controls/tree.h"
#include "messages/message_record.h"
#include "modeler/condition_builder.h"
#include "modeler/frm_array_info.h"
#include "modeler/frm_set_tr_item_value.h"
#include "modeler/statement_tree.h"
#include "modeler/unfinished_work.h"

#include <optional>
#include <string>
#include <string_view>

namespace zb {

class ModelViews;
class TRItemRecord;
class TRMessageRecord;
struct ModuleState;

/// The dialog that creates or changes an item of a received TR message.
class frmTRItem final : public Window {
public:
    frmTRItem(Desktop& desktop, ModuleState& state, ModelViews& views);

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

    /// Opens for a new item of the message. No effect for an unknown message.
    void addTRItem(std::string_view messageName);
    /// Opens for an item. `itemKey` is the message name, "_" and the item name. For an unknown item only its
    /// name is shown, and it is added when the dialog is accepted.
    void updateTRItem(std::string_view messageName, std::string_view itemKey);

    ConditionBuilder& conditions() { return conditions_; }

    /// The dialog is about to be hidden: changes are kept.
    void keepWork() { unfinished_.putAside(); }
    /// The message of the item has another name now.
    void messageRenamed(std::string_view from, std::string_view to);
    /// Another project is open: what was put aside belongs to the one before.
    void forgetWork() { unfinished_.forget(); }

private:
    void connectStatements();
    /// Clears the dialog and loads the message with its SECS message; false when it has none to offer.
    bool begin(std::string_view messageName);
    void clearTRItemDialog();
    void fillItemCombos(const SECSMessageRecord& message);
    void showItem(const TRItemRecord& item);

    void update();
    bool addItem(TRMessageRecord& message, const std::string& name);
    void fillRecord(TRItemRecord& item) const;
    /// "STRING" or "NUMERIC".
    std::string itemType() const;
    void cancel();
    void leave();

    std::optional<DragData> dragStatement(Pane& picture, std::string_view type);
    void clickStatement(std::string_view type);
    void dropOnStatement(const DragData& data, Node& node);
    void dropPicture();
    void dropCondition(const std::string& id);
    void openPopup(Node& node);
    void setValue();
    void deleteStatement();
    /// False when there is nothing to delete.
    bool deleteSelected();

    ConditionHome conditionHome();
    UnfinishedWork::Dialog keptWork();
    const SECSMessageRecord* selectedMessage() const;
    /// The message that owns the item; null when it was deleted meanwhile.
    const TRMessageRecord* trMessage() const;

    ModuleState& state_;
    ModelViews& views_;
    bool keepVisible_ = false;
    std::string messageName_;
    /// As it was when the dialog was opened.
    std::optional<SECSMessageRecord> selectedMessage_;
    frmArrayInfo arrayDialog_;
    frmSetTRItemValue valueDialog_;
    StatementTree statements_{tvwStatement};
    ConditionBuilder conditions_;
    /// The statement that is being dragged.
    std::string statementType_;
    /// The node of the last drop or pop-up.
    Node* currentNode_ = nullptr;
    UnfinishedWork unfinished_{*this, keptWork()};
};

} // namespace zb
