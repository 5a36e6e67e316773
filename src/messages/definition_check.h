#pragma once

#include "platform/finding.h"

namespace zb {

class CodePage;
class NodeTree;

/// Every fault of every message and item, in tree order, by the rules of the checked walk; values are judged
/// as they stand after normalization. The tree stays as it is.
Findings checkDefinitions(const NodeTree& tree, const CodePage& codePage);

} // namespace zb
