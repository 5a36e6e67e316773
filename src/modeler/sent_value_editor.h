#pragma once

#include "messages/item_record.h"
#include "modeler/unset_value.h"

#include <optional>
#include <string>
#include <string_view>

namespace zb {

class frmTRMessage;
class Node;

/// Sets the values and the list counts of a message to be sent, item by item in the tree of its dialog.
class SentValueEditor {
public:
    explicit SentValueEditor(frmTRMessage& window) : window_(window) {}

    /// Asks for the value of the clicked item. The tree of a received message is there to be read, so that
    /// nothing may be set in it.
    void itemClicked(const Node& node, bool maySet);
    /// Writes the value that was asked for to the node that is selected now.
    void setSelectedItem();
    /// The same when the value was edited; a list gets its count in any case. Then asks for the value of the
    /// next item that can be set, or moves on to the button of the dialog after the last one.
    void setAndGoOn();
    /// The user has entered something for the item.
    bool isEdited() const;
    /// What was entered for the item and not written to its node.
    std::optional<UnsetValue> unsetValue() const;
    /// Leaves the item whose value is being set.
    void forget() { selectedItem_.reset(); }
    /// The item whose value is being set; null for none.
    const SECSItemRecord* selectedItem() const { return selectedItem_ ? &*selectedItem_ : nullptr; }
    /// Goes on with an item as another editor of the same window has left it.
    void goOnWith(const SentValueEditor& other) {
        selectedItem_ = other.selectedItem_;
        asked_ = other.asked_;
    }

private:
    void askForItem(const SECSItemRecord& item);
    void askForText(std::string_view what, const std::string& text);
    void setSelectedList(Node* list);
    void updateItemNodeText(Node* node, std::string_view value);
    void removeItemNode(Node& node);
    void copyItemNode(const Node& source, Node& parent);

    std::string entered() const;
    void leaveItem();
    /// Null after the last one.
    static Node* nextToSet(const Node& node);

    frmTRMessage& window_;
    std::string asked_; ///< what the field showed at first
    std::optional<SECSItemRecord> selectedItem_;
};

} // namespace zb
