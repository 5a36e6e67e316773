#include "modeler/unset_value.h"

#include "messages/smd/smd_reader.h"
#include "messages/smd/smd_writer.h"
#include "modeler/sent_values.h"
#include "platform/tree/node_tree.h"
#include "platform/tree/node_walk.h"

#include <utility>

namespace zb {

std::size_t placeOfItem(const Node& item) {
    const Node* message = &item;
    while (message->parent() != nullptr)
        message = message->parent();
    std::size_t place = 0;
    for (const Node* node = message; node != nullptr && node != &item; node = nextBelow(*node, *message))
        ++place;
    return place;
}

std::optional<SECSMessageRecord> withValue(const SECSMessageRecord& message, const UnsetValue& value,
                                           const CodePage& codePage) {
    NodeTree tree;
    if (!addMessageToTree(tree, message).empty())
        return std::nullopt;
    Node* node = tree.lastRoot();
    if (node == nullptr)
        return std::nullopt;
    const Node& top = *node;
    for (std::size_t place = 0; place < value.place && node != nullptr; ++place)
        node = nextBelow(*node, top);
    if (node == nullptr || node->text() != value.itemText)
        return std::nullopt;
    SECSItemRecord item;
    item.parseText(node->text());
    node->setText(setItemValue(item, value.value));
    auto composed = SmdWriter(codePage).composeSingleMessage(tree);
    return composed ? std::move(composed).value() : std::nullopt;
}

} // namespace zb
