#pragma once

#include <string>

namespace zb {

class Node;

/// What the names of steps call a node of the message tree: the name of its message, or that of the item; an
/// item without a name is called after its type.
std::string nameForSteps(Node& node);
/// The same for the copy of an item, which has no message above it.
std::string nameOfItem(const Node& item);

} // namespace zb
