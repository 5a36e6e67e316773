#include "messages/item_key.h"

#include "messages/item_record.h"
#include "messages/message_nodes.h"
#include "platform/text.h"
#include "platform/tree/node_walk.h"

namespace zb {

namespace {

bool isVariableList(const SECSItemRecord& record) {
    return record.getType() == "L" && !record.isFixed();
}

SECSItemRecord recordOf(const Node& node) {
    SECSItemRecord record;
    record.parseText(node.text());
    return record;
}

} // namespace

bool isKeyForbidden(const Node& item) {
    const SECSItemRecord record = recordOf(item);
    if (record.getType() == "L")
        return !record.isFixed();
    // The topmost node is the message, not an item.
    for (const Node* above = item.parent(); above != nullptr && above->parent() != nullptr;
         above = above->parent()) {
        if (isVariableList(recordOf(*above)))
            return true;
    }
    return false;
}

void removeKeyMark(Node& node) {
    for (Node* item = &node; item != nullptr; item = nextBelow(*item, node)) {
        if (contains(item->text(), kKeyMark))
            item->setText(replaceAll(item->text(), kKeyMark, ""));
    }
}

void clearKeysInMessage(Node& node) {
    for (Node* item = rootOf(node).child(); item != nullptr; item = item->next())
        removeKeyMark(*item);
}

} // namespace zb
