#include "editor/tree_interaction.h"

#include "controls/desktop.h"
#include "editor/frm_sec_editor.h"
#include "editor/step_names.h"
#include "editor/value_notice.h"
#include "messages/item_key.h"
#include "messages/item_record.h"
#include "messages/message_nodes.h"
#include "messages/message_record.h"
#include "platform/number.h"
#include "platform/wildcard.h"
#include "project/module_state.h"

#include <cmath>

namespace zb {

namespace {

constexpr int kRightButton = 2;

/// The name of a step that a click makes of an item that is not as the program writes it.
constexpr const char* kNormalize = "Normalize";

/// Replaces a stream or function that is not a number, so that the message can be saved and corrected.
constexpr const char* kStandIn = "90";

/// Fields with larger numbers answer with a box.
constexpr int kMostStream = 128;
constexpr int kMostFunction = 255;

bool isBadNumber(std::string_view text) {
    return !isNumeric(text) || valueOf(text) < 0;
}

SECSMessageRecord recordOf(const MessageParts& parts) {
    SECSMessageRecord record;
    record.parseNodeText(parts.message == nullptr ? "" : parts.message->text(),
                         parts.description == nullptr ? "" : parts.description->text());
    return record;
}

} // namespace

TreeInteraction::TreeInteraction(frmSECSEditor& window) : window_(window) {
    Tree& tree = window_.tvwEdit;
    tree.onGotFocus = [this] { window_.editEntries.remove.setEnabled(true); };
    tree.onLostFocus = [this] { window_.editEntries.remove.setEnabled(false); };
    tree.onMouseUp = [this](int button, Node*) {
        if (button == kRightButton)
            openPopup();
    };
    tree.onNodeClick = [this](Node&) { nodeClick(); };
}

void TreeInteraction::nodeClick() {
    Node* node = window_.liveTree().selected();
    if (node == nullptr)
        return;
    const std::string before = node->text();
    window_.desktop().steps().name(kNormalize);
    node->setBackColor(std::nullopt);
    updateEditMenuState();
    if (node->parent() == nullptr)
        rootClick(*node);
    else
        itemClick(*node);
    window_.shownMessage.isSelected();
    if (window_.desktop().steps().wantsName(kNormalize) && node->text() != before)
        window_.desktop().steps().rename(kNormalize + (" " + nameForSteps(*node)));
}

void TreeInteraction::rootClick(Node& node) {
    window_.picItem.setEnabled(false);
    window_.cmdMsgChange.setEnabled(true);
    const MessageParts parts = messageOf(node);
    const SECSMessageRecord record = recordOf(parts);
    window_.txtDescription.setText(record.getDescription());
    window_.txtMsgName.setText(record.getName());
    window_.chkNoLogging.setChecked(record.getNoLogging());
    showNumber(window_.txtStream, record.getStreamText(), "stream", parts.message);
    showNumber(window_.txtFunction, record.getFunctionText(), "function", parts.message);
    const bool primary = std::fmod(roundHalfEven(valueOf(window_.txtFunction.text())), 2) != 0;
    window_.chkWait.setEnabled(primary);
    window_.chkReply.setEnabled(primary);
    window_.display_DefSECSMsg(record);
}

void TreeInteraction::showAgain(Node* node) {
    const ItemPane::OnlyShows onlyShows(window_.itemPane);
    const Desktop::FocusStays stays(window_.desktop());
    // A node that is selected already comes into view as well.
    window_.liveTree().select(nullptr);
    window_.liveTree().select(node);
    updateEditMenuState();
    if (node == nullptr) {
        window_.InitItem();
        window_.picItem.setEnabled(false);
    } else if (node->parent() == nullptr) {
        showRootAgain(*node);
    } else {
        showItemAgain(*node);
    }
    window_.shownMessage.isSelected();
}

void TreeInteraction::showRootAgain(Node& node) {
    window_.picItem.setEnabled(false);
    window_.cmdMsgChange.setEnabled(true);
    const SECSMessageRecord record = recordOf(messageOf(node));
    const auto good = [](std::string_view number, int most) {
        return isBadNumber(number) || valueOf(number) > most ? std::string_view() : number;
    };
    window_.txtStream.setText(good(record.getStreamText(), kMostStream));
    window_.txtFunction.setText(good(record.getFunctionText(), kMostFunction));
    window_.txtDescription.setText(record.getDescription());
    window_.txtMsgName.setText(record.getName());
    window_.chkNoLogging.setChecked(record.getNoLogging());
    const bool primary = std::fmod(roundHalfEven(valueOf(window_.txtFunction.text())), 2) != 0;
    window_.chkWait.setEnabled(primary);
    window_.chkReply.setEnabled(primary);
    window_.display_DefSECSMsg(record);
}

void TreeInteraction::showItemAgain(Node& node) {
    showMessageOfItem(node);
    window_.cmdMsgChange.setEnabled(false);
    window_.picItem.setEnabled(true);
    window_.picItem.setVisible(true);
    SECSItemRecord record;
    record.parseText(node.text());
    window_.txtItemName.setText(record.getName());
    window_.itemPane.selectTypeButton(record.getType());
    window_.txtItemCount.setText(std::to_string(record.getCount()));
    window_.chkFix.setChecked(record.isFixed());
    showKeyAndValue(node, record);
}

void TreeInteraction::showNumber(TextField& field, std::string_view number, const std::string& what,
                                 const Node* message) {
    if (!isBadNumber(number)) {
        field.setText(number);
        return;
    }
    window_.desktop().showBox("You must fill the " + what + " with numeric values\r\nChange the " + what +
                                  " value",
                              BoxIcon::Information);
    field.setText(kStandIn);
    if (message != nullptr)
        window_.messagePane.applyMessageChange(message->index());
    field.setFocus();
}

void TreeInteraction::itemClick(Node& node) {
    showMessageOfItem(node);
    window_.cmdMsgChange.setEnabled(false);
    window_.picItem.setEnabled(true);
    window_.picItem.setVisible(true);
    SECSItemRecord record;
    record.parseText(node.text());
    normalizeAndReport(window_.desktop(), node, record, window_.state().codePage);
    record.parseText(node.text());
    window_.txtItemName.setText(record.getName());
    window_.itemPane.selectTypeButton(record.getType());
    // The count is set before the other fields: a fixed list that is repaired gets its "V" from the
    // previously shown item.
    showCount(node, record);
    window_.chkFix.setChecked(record.isFixed());
    showKeyAndValue(node, record);
}

// The direction of a message is shown reversed while one of its items is selected.
void TreeInteraction::showMessageOfItem(Node& node) {
    Node& root = rootOf(node);
    const SECSMessageRecord record = recordOf({root.previous(), &root});
    window_.txtMsgName.setText(record.getName());
    window_.txtDescription.setText(record.getDescription());
    window_.txtStream.setText(record.getStreamText());
    window_.txtFunction.setText(record.getFunctionText());
    window_.display_DefSECSMsg(record);
    if (record.getDirection() == "H<-E")
        window_.optHost.setOn(true);
    else if (record.getDirection() == "H->E")
        window_.optEqp.setOn(true);
}

void TreeInteraction::showCount(Node& node, const SECSItemRecord& record) {
    const int children = node.children();
    const bool list = record.getType() == "L";
    if (list && record.isFixed() && record.getCount() != children) {
        window_.txtItemCount.setText(std::to_string(children));
        window_.itemPane.ThisItemChange(node.index(), children);
        return;
    }
    if (list && !record.isFixed() && children >= 2)
        window_.desktop().showBox("There are too many sub items.");
    window_.txtItemCount.setText(std::to_string(record.getCount()));
}

void TreeInteraction::showKeyAndValue(Node& node, const SECSItemRecord& record) {
    const bool list = record.getType() == "L";
    const bool keyAllowed = !list && !isKeyForbidden(node);
    window_.chkIsItemKey.setChecked(keyAllowed && record.isKey());
    window_.chkIsItemKey.setEnabled(keyAllowed);
    window_.txtInit.setEnabled(!list);
    window_.txtInit.setText(list ? std::string() : record.getValue());
}

void TreeInteraction::updateEditMenuState() {
    if (const Node* node = window_.liveTree().selected(); node != nullptr)
        setStates(window_.editEntries, *node);
}

void TreeInteraction::setStates(StructureEntries& entries, const Node& node) {
    entries.item.setEnabled(true);
    if (node.parent() == nullptr) {
        const Node* copied = window_.clipboard().firstRoot();
        const bool message = copied != nullptr && copied->next() != nullptr;
        entries.pastePrevious.setEnabled(message);
        entries.pasteNext.setEnabled(message);
        entries.pasteChild.setEnabled(copied != nullptr && !message);
        entries.duplicate.setEnabled(true);
        entries.child.setEnabled(false);
        return;
    }
    const bool room = node.text().starts_with('L') && (node.child() == nullptr || !hasVariableCount(node));
    entries.child.setEnabled(room);
    entries.pasteChild.setEnabled(room);
    const bool besides = hasColon(node.parent()->text()) || !hasVariableCount(*node.parent());
    entries.duplicate.setEnabled(besides);
    entries.pastePrevious.setEnabled(besides);
    entries.pasteNext.setEnabled(besides);
}

void TreeInteraction::openPopup() {
    const Node* node = window_.liveTree().selected();
    if (node == nullptr)
        return;
    setStates(window_.popEntries, *node);
    window_.mnuPopup.open();
}

} // namespace zb
