#pragma once

#include <string_view>

namespace zb {

class Node;

/// Ends the Text of the item that is the key of its message.
inline constexpr std::string_view kKeyMark = " [K]";

/// Whether the position of an item in its message can vary, so that it cannot be the key. For a list its own
/// count decides, for other items the lists around it.
bool isKeyForbidden(const Node& item);

/// Takes the mark off the node and all below it.
void removeKeyMark(Node& node);
/// Takes the mark off all items of the message that the node belongs to.
void clearKeysInMessage(Node& node);

} // namespace zb
