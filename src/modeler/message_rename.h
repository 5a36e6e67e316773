#pragma once

#include <string>
#include <string_view>

namespace zb {

class Node;
class SequenceView;
class Tree;

/// Gives a message's node and the Keys of its items the new name.
void renameMessageNode(Tree& tree, Node& message, std::string_view name);
/// Gives the new name to all rows that have the old one.
void renameInSequences(SequenceView& view, std::string_view from, const std::string& to);

} // namespace zb
