#include "editor/step_names.h"

#include "messages/item_record.h"
#include "messages/message_nodes.h"
#include "platform/text.h"

namespace zb {

std::string nameForSteps(Node& node) {
    if (node.parent() == nullptr) {
        const Node* message = messageOf(node).message;
        const std::string name = message == nullptr ? std::string() : trim(nameInText(message->text()));
        return name.empty() ? "a message" : name;
    }
    return nameOfItem(node);
}

std::string nameOfItem(const Node& item) {
    SECSItemRecord record;
    record.parseText(item.text());
    if (!isBlank(record.getName()))
        return trim(record.getName());
    return isBlank(record.getType()) ? "an item" : "an item " + trim(record.getType());
}

} // namespace zb
