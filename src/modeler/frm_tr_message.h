#pragma once

#include "controls/menu.h"
#include "controls/tree.h"
#include "messages/message_record.h"
#include "messages/smd/smd_writer.h"
#include "modeler/condition_builder.h"
#include "modeler/condition_controls.h"
#include "modeler/frm_array_info.h"
#include "modeler/sent_value_editor.h"
#include "modeler/unfinished_work.h"

#include <optional>
#include <string>
#include <string_view>

namespace zb {

class ModelViews;
class TRMessageRecord;
struct ModuleState;

/// The dialog that creates or changes a TR message, received or sent. For a received one its condition is
/// built; for a sent one the values and the list counts are entered.
class frmTRMessage final : public Window {
public:
    frmTRMessage(Desktop& desktop, ModuleState& state, ModelViews& views);

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
    /// Replaces `txtItemValue` for a BOOLEAN.
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
    /// A name that is not in the model leaves the dialog open and unchanged.
    void updateRcvTRMessage(std::string_view name);
    void updateSndTRMessage(std::string_view name);

    /// Fills the condition lists from the result; a notice says when it cannot be understood.
    void takeConditionApart();
    ConditionBuilder& conditions() { return conditions_; }

    /// The dialog is about to be hidden: changes are kept.
    void keepWork() { unfinished_.putAside(); }
    /// Another project is open: what was put aside or not set belongs to the one before.
    void forgetWork();

private:
    /// Of the notice about a value that was not set.
    static constexpr const char* kUnsetTopic = "value not set";

    enum class DialogMode { Received, Sent };
    enum class Partner { Host, Equipment };

    void connectConditions();
    void connectValues();
    void connectFrame();

    void openForAdding(DialogMode mode);
    void openForUpdate(DialogMode mode, std::string_view name);
    void setDialogMode(DialogMode mode);
    void showMessagesOf(DialogMode mode);
    void clearDialog();
    void resetConditions();
    /// All messages to the partner.
    void fillSECSMessageCombo(Partner partner);
    bool isOffered(const SECSMessageRecord& message, Partner partner) const;
    void fillDataItemCombo(const SECSMessageRecord& message);
    void chooseSECSMessage();
    void showSECSMessage(const SECSMessageRecord& message);
    void showTRMessage(const TRMessageRecord& record);
    void showCondition(const TRMessageRecord& record);
    void takeResult(std::string_view id);
    bool isReceivedMode() const;

    void command();
    bool refuse(std::string text);
    void refuseName(std::string text);
    bool isConditionDuplicated(std::string_view name, std::string_view message,
                               std::string_view condition) const;
    bool checkTRMessageName();
    std::optional<SECSMessageRecord> composeDataBlock();
    bool checkDataBlock();
    void selectListWithoutCount(const SECSItemRecord& list);
    bool addTRMessageFromDialog(const std::string& name);
    bool updateTRMessageFromDialog(const std::string& name);
    static void clearTRItemSources(TRMessageRecord& record);
    void storeDirection(TRMessageRecord& record) const;
    void storeContent(TRMessageRecord& record);
    void offerToSet(const std::string& name, const UnsetValue& unset);
    void setLater(const std::string& name, const UnsetValue& unset);
    /// Whether the dialog is about to change that sent message.
    bool isChanging(std::string_view name) const;
    UnfinishedWork::Dialog keptWork();

    ModuleState& state_;
    ModelViews& views_;
    frmArrayInfo arrayDialog_;
    ConditionBuilder conditions_;
    SmdWriter writer_;
    bool keepVisible_ = false;
    /// A copy: the store of the messages is refilled by each save and build.
    std::optional<SECSMessageRecord> selectedMessage_;
    SentValueEditor values_{*this};
    UnfinishedWork unfinished_{*this, keptWork()};
};

} // namespace zb
