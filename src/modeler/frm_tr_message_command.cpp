// The command of the message dialog: what it refuses, and how it changes the model.
#include "controls/desktop.h"
#include "modeler/frm_tr_message.h"
#include "modeler/message_names.h"
#include "modeler/model_views.h"
#include "platform/text.h"
#include "project/module_state.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace zb {

bool frmTRMessage::refuse(std::string text) {
    desktop().showBox(std::move(text), BoxIcon::Critical);
    return false;
}

void frmTRMessage::command() {
    const std::string name = trim(txtTRName.text());
    const std::string message = trim(cmbSECSMessage.text());
    if (name.empty()) {
        refuse("Insert TRMessage Name!");
        return;
    }
    if (message.empty()) {
        refuse("Select SECS Messge!");
        return;
    }
    // Before the first project there is no model to write to.
    if (state_.TRModelStore == nullptr)
        return;
    if (isConditionDuplicated(name, message, trim(txtResultCondition.text()))) {
        refuse("Condition was duplicated!");
        return;
    }
    const bool adds = cmdUpdate.caption() == "&Add";
    const std::optional<UnsetValue> unset = values_.unsetValue();
    if (!(adds ? addTRMessageFromDialog(name) : updateTRMessageFromDialog(name)))
        return;
    unfinished_.finish();
    if (unset)
        offerToSet(name, *unset);
    if (adds && isReceivedMode())
        addRcvTRMessage();
    else if (adds)
        addSndTRMessage();
    if (!chkKeepVisible.checked())
        hide();
    else if (!adds)
        unfinished_.begin();
}

/// Two defaults of one SECS message are detected by the checks of the build.
bool frmTRMessage::isConditionDuplicated(std::string_view name, std::string_view message,
                                         std::string_view condition) const {
    if (condition.empty() || condition == "NONE")
        return false;
    const auto& messages = state_.TRModelStore->TRMessages();
    return std::any_of(messages.begin(), messages.end(), [&](const auto& record) {
        return record->Condition() == condition && record->SECSMessage() == message && record->Name() != name;
    });
}

void frmTRMessage::refuseName(std::string text) {
    refuse(std::move(text));
    // The name is locked in an update that became an add.
    txtTRName.setEnabled(true);
    txtTRName.setFocus();
    txtTRName.selectAll();
}

bool frmTRMessage::checkTRMessageName() {
    if (cmdUpdate.caption() != "&Add")
        return false;
    if (const std::string fault = faultOfTRMessageName(txtTRName.text(), state_); !fault.empty()) {
        refuseName(fault);
        return false;
    }
    return true;
}

/// The message that the tree shows; nothing when there is none, or when it is not correct, which a box says.
std::optional<SECSMessageRecord> frmTRMessage::composeDataBlock() {
    auto block = writer_.composeSingleMessage(tvwSelSECSMsg.nodes());
    if (block)
        return std::move(block).value();
    desktop().showBox(block.error());
    return std::nullopt;
}

/// A message can be sent only when each of its lists has a count.
bool frmTRMessage::checkDataBlock() {
    const auto block = composeDataBlock();
    if (!block)
        return refuse("SECSMessage Format Error!");
    for (const SECSItemRecord& item : block->getItems()) {
        if (item.getType() == "L" && !item.isFixed()) {
            refuse("Not Defined List Count!");
            selectListWithoutCount(item);
            return false;
        }
    }
    return true;
}

void frmTRMessage::selectListWithoutCount(const SECSItemRecord& list) {
    const std::string text = list.getType() + " " + std::to_string(list.getCount()) + "V " + list.getName();
    NodeTree& nodes = tvwSelSECSMsg.nodes();
    for (int index = 1; Node* node = nodes.at(index); ++index) {
        if (node->text() != text)
            continue;
        // An entered value belongs to the node that was clicked for it.
        if (nodes.selected() != node)
            values_.forget();
        nodes.select(node);
        return;
    }
}

bool frmTRMessage::addTRMessageFromDialog(const std::string& name) {
    if (!checkTRMessageName() || (!isReceivedMode() && !checkDataBlock()))
        return false;
    desktop().steps().name("Add TR message " + name);
    auto record = std::make_unique<TRMessageRecord>();
    record->setName(name);
    record->setSECSMessage(trim(cmbSECSMessage.text()));
    storeDirection(*record);
    if (!isReceivedMode())
        record->newDataBlock();
    storeContent(*record);
    state_.TRModelStore->addTRMessage(std::move(record));
    views_.displayAddedTRMessage(name);
    return true;
}

bool frmTRMessage::updateTRMessageFromDialog(const std::string& name) {
    if (!isReceivedMode() && !checkDataBlock())
        return false;
    TRMessageRecord* record = state_.TRModelStore->changeTRMessage(name);
    if (record == nullptr) {
        // The message was deleted meanwhile: the contents of the dialog become a new one.
        cmdUpdate.setCaption("&Add");
        command();
        return false;
    }
    desktop().steps().name("Change TR message " + name);
    const std::string message = trim(cmbSECSMessage.text());
    if (message != record->SECSMessage())
        clearTRItemSources(*record);
    record->setSECSMessage(message);
    storeDirection(*record);
    storeContent(*record);
    views_.displayUpdatedTRMessage(name);
    return true;
}

/// The items took their values from another message.
void frmTRMessage::clearTRItemSources(TRMessageRecord& record) {
    for (const auto& item : record.TRItems()) {
        item->setValue("");
        item->setABSValue("");
        item->setStatementText("");
    }
}

void frmTRMessage::storeContent(TRMessageRecord& record) {
    if (isReceivedMode())
        record.setCondition(trim(txtResultCondition.text()));
    else
        record.setDataBlock(composeDataBlock());
    record.setReport(chkReport.checked());
}

// A value that was entered

void frmTRMessage::offerToSet(const std::string& name, const UnsetValue& unset) {
    const std::string item = unset.item.empty() ? unset.itemText : unset.item;
    desktop().post({"The value " + unset.value + " for " + item + " of " + name + " was not set",
                    {{"Set it", [this, name, unset] { setLater(name, unset); }}},
                    kUnsetTopic,
                    Notice::Stays::UntilClosed});
}

void frmTRMessage::setLater(const std::string& name, const UnsetValue& unset) {
    TRModelStore* model = state_.TRModelStore.get();
    const TRMessageRecord* record = model == nullptr ? nullptr : model->getTRMessage(name);
    std::optional<SECSMessageRecord> block = record == nullptr || !record->DataBlock()
                                                 ? std::nullopt
                                                 : withValue(*record->DataBlock(), unset, state_.codePage);
    if (!block) {
        desktop().post({name + " is not as it was when the value was entered; nothing was set"});
        return;
    }
    desktop().steps().name("Set value in TR message " + name);
    model->changeTRMessage(name)->setDataBlock(std::move(block));
    views_.displayUpdatedTRMessage(name);
    if (isChanging(name))
        updateSndTRMessage(name);
}

bool frmTRMessage::isChanging(std::string_view name) const {
    return visible() && !isReceivedMode() && cmdUpdate.caption() == "&Update" && txtTRName.text() == name;
}

} // namespace zb
