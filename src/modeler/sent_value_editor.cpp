#include "modeler/sent_value_editor.h"

#include "controls/desktop.h"
#include "modeler/frm_tr_message.h"
#include "modeler/sent_values.h"
#include "platform/text.h"
#include "platform/tree/node_walk.h"

namespace zb {

namespace {

/// More nodes than these would exhaust memory before they could be used.
constexpr long kMostCopiedNodes = 200'000;

long nodesIn(const Node& root) {
    long count = 1;
    for (const Node* node = root.child(); node != nullptr; node = nextBelow(*node, root))
        ++count;
    return count;
}

void makeVisible(const Node& node) {
    for (Node* above = node.parent(); above != nullptr; above = above->parent()) {
        if (!above->expanded())
            above->setExpanded(true);
    }
}

} // namespace

void SentValueEditor::itemClicked(const Node& node, bool maySet) {
    window_.lblItemDsc.setText("");
    window_.txtItemValue.setText("");
    window_.txtItemValue.setEnabled(false);
    window_.cmdSetValue.setEnabled(false);
    // The message node has no value, and the tree of a received message is read-only.
    if (!maySet || node.parent() == nullptr)
        return;
    selectedItem_.emplace();
    selectedItem_->parseText(node.text());
    window_.txtItemValue.setVisible(true);
    window_.cmbItemValue.setVisible(false);
    if (selectedItem_->getType() == "L" && selectedItem_->isFixed())
        return;
    askForItem(*selectedItem_);
    asked_ = entered();
    window_.cmdSetValue.setEnabled(true);
}

void SentValueEditor::setAndGoOn() {
    const Node* node = window_.tvwSelSECSMsg.nodes().selected();
    if (!selectedItem_ || node == nullptr)
        return;
    // A value that stays as it is keeps its form.
    if (selectedItem_->getType() == "L" || entered() != asked_)
        setSelectedItem();
    else
        leaveItem();
    if (selectedItem_)
        return;
    Node* next = nextToSet(*node);
    if (next == nullptr) {
        window_.cmdUpdate.setFocus();
        return;
    }
    window_.tvwSelSECSMsg.nodes().select(next);
    itemClicked(*next, true);
    if (window_.cmbItemValue.visible())
        window_.cmbItemValue.setFocus();
}

Node* SentValueEditor::nextToSet(const Node& node) {
    const Node* root = &node;
    while (root->parent() != nullptr)
        root = root->parent();
    for (Node* next = nextBelow(node, *root); next != nullptr; next = nextBelow(*next, *root)) {
        SECSItemRecord item;
        item.parseText(next->text());
        if (item.getType() != "L" || !item.isFixed())
            return next;
    }
    return nullptr;
}

std::string SentValueEditor::entered() const {
    return selectedItem_ && selectedItem_->getType() == "BOOLEAN" ? window_.cmbItemValue.text()
                                                                  : trim(window_.txtItemValue.text());
}

// A click on a node without a value asks for none, but the item before it is still the selected one.
bool SentValueEditor::isEdited() const {
    return selectedItem_ && window_.cmdSetValue.enabled() && entered() != asked_;
}

std::optional<UnsetValue> SentValueEditor::unsetValue() const {
    const Node* node = window_.tvwSelSECSMsg.nodes().selected();
    if (!isEdited() || node == nullptr || selectedItem_->getType() == "L")
        return std::nullopt;
    return UnsetValue{placeOfItem(*node), node->text(), selectedItem_->getName(), entered()};
}

void SentValueEditor::leaveItem() {
    window_.txtItemValue.setText("");
    selectedItem_.reset();
}

void SentValueEditor::askForItem(const SECSItemRecord& item) {
    if (item.getType() == "L") {
        askForText("Input ListItem's Count", std::to_string(item.getCount()));
    } else if (item.getType() == "BOOLEAN") {
        window_.lblItemDsc.setText("Select Boolean Value");
        window_.txtItemValue.setVisible(false);
        window_.cmbItemValue.setVisible(true);
        const bool off = item.getValue() == "0" || equalsIgnoringCase(item.getValue(), "FALSE");
        window_.cmbItemValue.setText(off ? "False" : "True");
    } else {
        askForText("Input DataItem's Value", item.getValue());
    }
}

void SentValueEditor::askForText(std::string_view what, const std::string& text) {
    window_.lblItemDsc.setText(what);
    window_.txtItemValue.setText(text);
    window_.txtItemValue.setEnabled(true);
    window_.txtItemValue.setFocus();
    window_.txtItemValue.selectAll();
}

void SentValueEditor::setSelectedItem() {
    if (!selectedItem_)
        return;
    Node* node = window_.tvwSelSECSMsg.nodes().selected();
    const std::string& type = selectedItem_->getType();
    if (type == "L") {
        setSelectedList(node);
        return;
    }
    updateItemNodeText(node, entered());
    leaveItem();
}

/// The first child is the template of all. An invalid count leaves list and field unchanged.
void SentValueEditor::setSelectedList(Node* list) {
    const std::string text = trim(window_.txtItemValue.text());
    const std::optional<int> count = listCountOf(text);
    if (!count)
        return;
    const Node* first = list == nullptr ? nullptr : list->child();
    if (first != nullptr && nodesIn(*first) * (*count - 1) > kMostCopiedNodes) {
        window_.desktop().showBox("A list of this length has too many items!", BoxIcon::Critical);
        return;
    }
    updateItemNodeText(list, text);
    if (list != nullptr && *count == 0) {
        while (list->lastChild() != nullptr)
            removeItemNode(*list->lastChild());
    }
    if (first != nullptr && *count > 0) {
        for (int copies = *count - 1; copies > 0; --copies)
            copyItemNode(*first, *list);
    }
    leaveItem();
}

void SentValueEditor::updateItemNodeText(Node* node, std::string_view value) {
    if (node != nullptr && selectedItem_)
        node->setText(setItemValue(*selectedItem_, value));
}

void SentValueEditor::removeItemNode(Node& node) {
    window_.tvwSelSECSMsg.nodes().remove(node);
}

void SentValueEditor::copyItemNode(const Node& source, Node& parent) {
    Node& copy = window_.tvwSelSECSMsg.nodes().add(&parent, Relation::Child, source.text());
    makeVisible(copy);
    for (const Node* child = source.child(); child != nullptr; child = child->next())
        copyItemNode(*child, copy);
}

} // namespace zb
