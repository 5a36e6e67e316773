#pragma once

#include "messages/definition_rules.h"
#include "messages/item_normalizer.h"

namespace zb {

class CodePage;
class NodeTree;

/// Checks the items of a message one after the other.
class Validator {
public:
    explicit Validator(const CodePage& codePage) : codePage_(codePage) {}

    /// Forgets the names of the previous message.
    void beginMessage() { itemNames_.clear(); }
    /// Normalizes the item when its name is good. An index without a node has no fault.
    OptionalFault checkItemName(int index, NodeTree& tree);
    /// An index without a node has no fault.
    static OptionalFault checkItemValues(const NodeTree& tree, int index);

private:
    const CodePage& codePage_;
    NameSet itemNames_;
    SECSItemRecord item_; ///< the last one; it keeps its memory
};

} // namespace zb
