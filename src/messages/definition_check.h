#pragma once

#include "platform/finding.h"

namespace zb {

class CodePage;
class Node;
class NodeTree;

/// Every fault of every message and item, in tree order, by the rules of the checked walk; values are checked
/// in their normalized form. The tree is not changed.
Findings checkDefinitions(const NodeTree& tree, const CodePage& codePage);

/// The same of one root node and its items. Whether another message has its name is not checked.
Findings checkDefinition(const Node& root, const CodePage& codePage);

} // namespace zb
