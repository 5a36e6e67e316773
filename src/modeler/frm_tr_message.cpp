#include "modeler/frm_tr_message.h"

#include "controls/desktop.h"
#include "messages/smd/smd_reader.h"
#include "modeler/sent_values.h"
#include "modeler/tool_tips.h"
#include "platform/text.h"
#include "project/module_state.h"

namespace zb {

namespace {

constexpr std::string_view kTowardsHost = "H <- E";
constexpr std::string_view kTowardsEquipment = "H -> E";

} // namespace

frmTRMessage::frmTRMessage(Desktop& desktop, ModuleState& state, ModelViews& views)
    : Window(desktop, "frmTRMessage"), state_(state), views_(views), arrayDialog_(desktop),
      conditions_(builder, arrayDialog_,
                  {ConditionHome::OperatorReading::FirstPressed, ConditionHome::AfterDuplicate::PressFirst,
                   ConditionHome::EnterInValue::AddsCondition,
                   [this] { return selectedMessage_ ? &*selectedMessage_ : nullptr; },
                   [this] { return state_.SECSMessageStore->getByName(trim(cmbSECSMessage.text())); }}),
      writer_(state.codePage) {
    connectConditions();
    connectValues();
    connectFrame();
}

void frmTRMessage::connectConditions() {
    txtResultCondition.setReadOnly(true);
    for (List* list : {&builder.lvwSimpleCondition, &builder.lvwComplexCondition}) {
        list->onDoubleClick = [this, list](const ListRow& /*row*/) {
            if (const ListRow* selected = list->selected(); selected != nullptr)
                takeResult(selected->text());
        };
    }
    acceptTextDrops(txtResultCondition, [this](const std::string& id) { takeResult(id); });
    cmdClearCondition.onClick = [this] { txtResultCondition.setText(""); };
}

void frmTRMessage::connectValues() {
    cmbItemValue.add("true");
    cmbItemValue.add("false");
    cmbItemValue.setVisible(false);
    tvwSelSECSMsg.onNodeClick = [this](Node& node) { values_.itemClicked(node, !isReceivedMode()); };
    txtItemValue.onKeyDown = [this](KeyEvent key) {
        const std::size_t length = state_.codePage.ansiByteLength(trim(txtItemValue.text()));
        applyKeyEffect(txtItemValue, filterSentValueKey(values_.selectedItem(), key, length));
        if (key == KeyEvent{kKeyEnter, 0})
            values_.setAndGoOn();
    };
    cmbItemValue.onKeyDown = [this](KeyEvent key) {
        if (key == KeyEvent{kKeyEnter, 0})
            values_.setAndGoOn();
    };
    cmdSetValue.onClick = [this] { values_.setSelectedItem(); };
}

void frmTRMessage::connectFrame() {
    for (Combo* combo : {&cmbSECSMessage, &cmbItemValue, &builder.cmbDataItem})
        combo->setKeys(Combo::Keys::Ignored);
    cmbSECSMessage.noteOf = [this](const std::string& name) {
        return streamAndFunction(*state_.SECSMessageStore, name);
    };
    cmbSECSMessage.onChoose = [this] { chooseSECSMessage(); };
    chkKeepVisible.onChange = [this] { keepVisible_ = chkKeepVisible.checked(); };
    cmdUpdate.onClick = [this] { command(); };
    cmdCancel.onClick = [this] {
        keepVisible_ = false;
        hide();
    };
    setCancelButton(cmdCancel);
    onActivate = [this] { chkKeepVisible.setChecked(keepVisible_); };
    onDeactivate = [this] {
        if (keepVisible_ || arrayDialog_.visible())
            return;
        unfinished_.putAside();
        hide();
    };
}

UnfinishedWork::Dialog frmTRMessage::keptWork() {
    UnfinishedWork::Dialog work;
    work.leftOut = {&chkKeepVisible};
    work.filledIn = {&txtItemValue, &cmbItemValue};
    work.isTypedIn = [this] { return values_.isEdited(); };
    work.subject = [this] {
        const std::string name = trim(txtTRName.text());
        return (cmdUpdate.caption() == "&Add" ? "new TR message" : "TR message") +
               (name.empty() ? "" : " " + name);
    };
    work.keepState = [this]() -> std::function<void()> {
        return [this, message = selectedMessage_, values = values_] {
            selectedMessage_ = message;
            values_.goOnWith(values);
        };
    };
    return work;
}

void frmTRMessage::forgetWork() {
    unfinished_.forget();
    desktop().withdraw(kUnsetTopic);
}

// Opening

void frmTRMessage::addRcvTRMessage() {
    unfinished_.putAside();
    setCaption("Add RcvTRMessage");
    openForAdding(DialogMode::Received);
}

void frmTRMessage::addSndTRMessage() {
    unfinished_.putAside();
    setCaption("Add SndTRMessage");
    openForAdding(DialogMode::Sent);
}

void frmTRMessage::updateRcvTRMessage(std::string_view name) {
    unfinished_.putAside();
    setCaption("Update RcvTRMessage - " + std::string(name));
    openForUpdate(DialogMode::Received, name);
}

void frmTRMessage::updateSndTRMessage(std::string_view name) {
    unfinished_.putAside();
    setCaption("Update SndTRMessage - " + std::string(name));
    openForUpdate(DialogMode::Sent, name);
}

void frmTRMessage::openForAdding(DialogMode mode) {
    show();
    cmdUpdate.setCaption("&Add");
    clearDialog();
    setDialogMode(mode);
    showMessagesOf(mode);
    chkReport.setChecked(false);
    txtTRName.setEnabled(true);
    txtTRName.setFocus();
    unfinished_.begin();
}

void frmTRMessage::openForUpdate(DialogMode mode, std::string_view name) {
    show();
    cmdUpdate.setCaption("&Update");
    const TRMessageRecord* record =
        state_.TRModelStore == nullptr ? nullptr : state_.TRModelStore->getTRMessage(name);
    if (record == nullptr)
        return;
    clearDialog();
    setDialogMode(mode);
    showMessagesOf(mode);
    showTRMessage(*record);
    txtTRName.setEnabled(false);
    unfinished_.begin();
}

void frmTRMessage::setDialogMode(DialogMode mode) {
    const bool received = mode == DialogMode::Received;
    for (Control* control : std::initializer_list<Control*>{
             &chkReport, &builder.cmbDataItem, &builder.tlbOperator1, &builder.txtDataItemValue,
             &builder.cmdAddCondition, &builder.lvwSimpleCondition, &builder.txtOperand1,
             &builder.tlbOperator2, &builder.txtOperand2, &builder.cmdEdit, &builder.lvwComplexCondition,
             &txtResultCondition})
        control->setEnabled(received);
    txtItemValue.setEnabled(!received);
    cmdSetValue.setEnabled(!received);
}

/// A host receives messages to the host; an equipment sends them.
void frmTRMessage::showMessagesOf(DialogMode mode) {
    const bool towardsHost = (mode == DialogMode::Received) == (state_.ProjectType == 1);
    fillSECSMessageCombo(towardsHost ? Partner::Host : Partner::Equipment);
    lblMsgDirection.setText(towardsHost ? kTowardsHost : kTowardsEquipment);
}

/// The dialog stores its mode only here.
bool frmTRMessage::isReceivedMode() const {
    return (lblMsgDirection.text() == kTowardsHost) == (state_.ProjectType == 1);
}

void frmTRMessage::storeDirection(TRMessageRecord& record) const {
    record.setDirection(lblMsgDirection.text() == kTowardsHost ? kToHost : kToEquip);
}

void frmTRMessage::clearDialog() {
    txtTRName.setText("");
    cmbSECSMessage.clear();
    tvwSelSECSMsg.replaceNodes();
    values_.forget();
    lblItemDsc.setText("");
    txtItemValue.setText("");
    builder.cmbDataItem.clear();
    resetConditions();
}

void frmTRMessage::resetConditions() {
    conditions_.reset();
    txtResultCondition.setText("");
}

// SECS messages

void frmTRMessage::fillSECSMessageCombo(Partner partner) {
    cmbSECSMessage.clear();
    for (const SECSMessageRecord* message : state_.SECSMessageStore->getMessages()) {
        if (isOffered(*message, partner))
            cmbSECSMessage.add(std::string(message->getName()));
    }
}

/// A reply to equipment is offered when its primary message exists and the driver does not answer it. Replies
/// to the host are offered without that test.
bool frmTRMessage::isOffered(const SECSMessageRecord& message, Partner partner) const {
    if (partner == Partner::Host)
        return message.getDirection() != "H->E";
    if (message.getDirection() == "H<-E")
        return false;
    if (message.getFunction() % 2 != 0)
        return true;
    const auto primaries = state_.SECSMessageStore->getByStreamFunction(
        "S" + std::to_string(message.getStream()) + " F" + std::to_string(message.getFunction() - 1));
    return !primaries.empty() && !primaries.front()->autoreply();
}

void frmTRMessage::fillDataItemCombo(const SECSMessageRecord& message) {
    builder.cmbDataItem.clear();
    for (const SECSItemRecord& item : message.getItems()) {
        if (!isBlank(item.getName()) && item.getType() != "L")
            builder.cmbDataItem.add(item.getName());
    }
}

void frmTRMessage::chooseSECSMessage() {
    if (isBlank(cmbSECSMessage.text()))
        return;
    const SECSMessageRecord* message = state_.SECSMessageStore->getByName(cmbSECSMessage.text());
    if (message == nullptr) {
        selectedMessage_.reset();
        return;
    }
    selectedMessage_ = *message;
    showSECSMessage(*selectedMessage_);
    fillDataItemCombo(*selectedMessage_);
    resetConditions();
    txtItemValue.setText("");
}

void frmTRMessage::showSECSMessage(const SECSMessageRecord& message) {
    tvwSelSECSMsg.replaceNodes();
    values_.forget();
    static_cast<void>(addMessageToTree(tvwSelSECSMsg.nodes(), message)); // the tree is empty
}

// The contents of an existing record

void frmTRMessage::showTRMessage(const TRMessageRecord& record) {
    txtTRName.setText(record.Name());
    chkReport.setChecked(record.Report());
    if (!record.SECSMessage().empty()) {
        cmbSECSMessage.setText(record.SECSMessage());
        if (record.DataBlock())
            showSECSMessage(*record.DataBlock());
        else
            chooseSECSMessage();
    }
    showCondition(record);
}

/// The text is not parsed again: the lists start empty.
void frmTRMessage::showCondition(const TRMessageRecord& record) {
    txtResultCondition.setText(record.Condition());
}

void frmTRMessage::takeConditionApart() {
    if (!conditions_.takeApart(txtResultCondition.text()))
        desktop().post({"This condition cannot be taken apart: it was not made by the lists"});
}

void frmTRMessage::takeResult(std::string_view id) {
    if (const auto condition = conditions_.finishedConditionOf(id))
        txtResultCondition.setText(*condition);
}

} // namespace zb
