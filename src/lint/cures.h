#pragma once

#include "messages/message_record.h"
#include "platform/finding.h"

#include <optional>
#include <string>
#include <variant>

namespace zb {

class Node;
class NodeTree;

/// A node gets another Text.
struct TextCure {
    int nodeIndex = 0;
    std::string text;
};

/// A message is added after another one.
struct AddedMessageCure {
    int nodeIndex = 0; ///< of the message node before it
    SECSMessageRecord message;
};

/// The one thing that cures a finding, for a window to do as an ordinary step.
struct Cure {
    std::string title; ///< "Set the count to 3"
    std::variant<TextCure, AddedMessageCure> step;
};

/// The cure of a finding in the messages, where there is exactly one: the count of a list, a name used twice,
/// W, a missing reply. Nothing for other findings, and for one that the tree does not show any more.
std::optional<Cure> cureOf(const Finding& finding, const NodeTree& tree);

/// Does a cure to a tree.
void apply(const Cure& cure, NodeTree& tree);

} // namespace zb
