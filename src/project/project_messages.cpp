#include "project/project_messages.h"

#include "platform/tree/node_walk.h"
#include "platform/wildcard.h"

namespace zb {

namespace {

/// The items below a message, one line each, with its level first.
std::string bodyOf(const Node& message) {
    std::string body;
    for (NodeWalk walk(message); const Node* node = walk.node(); walk.next())
        body.append(std::to_string(walk.depth() + 1)).append(" ").append(node->text()).append("\r\n");
    return body;
}

} // namespace

ProjectMessages::ProjectMessages(std::string text) : text_(std::move(text)), hasSection_(true) {}

MessageTree ProjectMessages::tree(const Progress& progress) const {
    MessageTree tree;
    readSmdSection(
        *tree.nodes, text_, [&tree](std::string_view name) { tree.names.emplace_back(name); }, progress);
    return tree;
}

std::vector<SECSMessageRecord> ProjectMessages::records() const {
    NodeTree tree;
    fill(tree);
    std::vector<SECSMessageRecord> records;
    for (const Node* node = tree.firstRoot(); node != nullptr; node = node->next())
        if (isMessageNode(*node))
            records.push_back(messageRecordOf(*node));
    return records;
}

SECSMessageRecord messageRecordOf(const Node& messageNode) {
    const Node* description = messageNode.previous();
    SECSMessageRecord record;
    record.parseTexts(messageNode.text(), description == nullptr ? "" : description->text(),
                      bodyOf(messageNode));
    return record;
}

bool isMessageNode(const Node& node) {
    return node.parent() == nullptr && hasColon(node.text());
}

} // namespace zb
