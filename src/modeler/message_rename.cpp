#include "modeler/message_rename.h"

#include "controls/tree.h"
#include "modeler/model_nodes.h"
#include "modeler/sequence_view.h"

#include <cstddef>
#include <utility>

namespace zb {

namespace {

// A Key that another node has is not given twice; such a node is found by its text.
void setKeyIfFree(NodeTree& nodes, Node& node, std::string_view key) {
    if (!nodes.setKey(node, key))
        nodes.setKey(node, {});
}

} // namespace

void renameMessageNode(Tree& tree, Node& message, std::string_view name) {
    message.setText(std::string(name));
    setKeyIfFree(tree.nodes(), message, name);
    for (Node* item = message.child(); item != nullptr; item = item->next())
        setKeyIfFree(tree.nodes(), *item, itemKey(name, item->text()));
}

void renameInSequences(SequenceView& view, std::string_view from, const std::string& to) {
    const std::size_t count = view.sequences().rows().size();
    for (std::size_t at = 0; at < count; ++at) {
        const SequenceRow& row = view.sequences().rows()[at];
        if (row.isHead() || row.transactionName != from)
            continue;
        SequenceRows renamed = view.rows(at, 1);
        renamed.front().row.transactionName = to;
        view.exchange(at, 1, std::move(renamed));
    }
}

} // namespace zb
