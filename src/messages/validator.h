#pragma once

#include "messages/definition_rules.h"
#include "messages/item_normalizer.h"

#include <optional>
#include <string>

namespace zb {

class CodePage;
class Node;

/// Checks the items of a message one after the other. Nothing is changed.
class Validator {
public:
    struct Checked {
        OptionalFault fault;
        /// The canonical Text of an item whose name is good, where its Text is another one.
        std::optional<std::string> canonicalText;
    };

    explicit Validator(const CodePage& codePage) : codePage_(codePage) {}

    /// Forgets the names of the previous message.
    void beginMessage() { itemNames_.clear(); }
    /// The name of the item, and then the values of its canonical Text.
    Checked check(const Node& item);

private:
    const CodePage& codePage_;
    NameSet itemNames_;
    SECSItemRecord item_; ///< the last one; it keeps its memory
};

} // namespace zb
