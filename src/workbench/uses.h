#pragma once

#include "workbench/destination.h"

#include <string>
#include <string_view>
#include <vector>

namespace zb {

class NodeTree;
class Sequences;
class TRModelStore;

/// A place where something was found: its kind ("Item"), what it belongs to, and its text.
struct FoundPlace {
    std::string kind;
    std::string where;
    std::string text;
    Destination destination;
};
using FoundPlaces = std::vector<FoundPlace>;

/// A node as a found place: "Message", "Description" or "Item". `where` is the name of its message.
FoundPlace placeOfNode(const NodeTree& tree, int index);

/// The TR messages that use a SECS message, and the sequences that use these. Names are compared without
/// case.
FoundPlaces usesOfMessage(const TRModelStore* model, const Sequences& sequences, std::string_view name);
/// The rows of the sequences with a TR message.
FoundPlaces usesOfTRMessage(const Sequences& sequences, std::string_view name);
/// The items of that name in all messages, and the TR messages whose data, conditions, items or statements
/// take it.
FoundPlaces usesOfItem(const NodeTree& messages, const TRModelStore* model, std::string_view name);

} // namespace zb
