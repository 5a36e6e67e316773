#include "modeler/statement_tree.h"

#include "model/statement_text.h"
#include "platform/text.h"

namespace zb {

namespace {

constexpr Color kStatementBackColor{224, 224, 224};
constexpr std::string_view kRootName = "Conditions";

bool hasFirstIf(const Node& parent) {
    return parent.child() != nullptr && parent.child()->image() == kIfImage;
}

// The first child of a chain is its "if".
bool hasElse(const Node& parent) {
    for (const Node* node = parent.child()->next(); node != nullptr; node = node->next()) {
        if (node->image() == kElseImage)
            return true;
    }
    return false;
}

// Removes a character, not a byte.
std::string withoutFirstCharacter(std::string_view line) {
    return std::string(line.empty() ? line : line.substr(decodeCharacter(line, 0).length));
}

} // namespace

StatementTree::StatementTree(Tree& tree) : tree_(tree) {
    tree_.setBackColor(kStatementBackColor);
}

void StatementTree::initStatementTree() {
    NodeTree& nodes = tree_.nodes();
    nodes.clear();
    keyCounter_ = 0;
    Node& root = nodes.add(nullptr, Relation::Last, std::string(kRootName));
    nodes.setKey(root, kRootName);
    root.setImage("Statement");
    root.setBold(true);
}

StatementTree::Added StatementTree::addStatement(Node& parent, std::string_view type) {
    if (parent.child() == nullptr) {
        if (type != kIfImage)
            addStatementNode(parent, kIfImage);
        return {&addStatementNode(parent, type), {}};
    }
    if (!hasFirstIf(parent))
        return {};
    if (type == kIfImage)
        return {nullptr, "\"IF\" statement already exists."};
    if (hasElse(parent))
        return {nullptr, "\"ELSE\" statement already exists."};
    return {&addStatementNode(parent, type), {}};
}

Node& StatementTree::addStatementNode(Node& parent, std::string_view type) {
    return addNode(parent, std::string(type) + (type == kElseImage ? ":" : ""), type);
}

Node& StatementTree::addValueNode(Node& parent, std::string text) {
    return addNode(parent, std::move(text), kItemValueImage);
}

void StatementTree::showStatementText(std::string_view text) {
    Node* current = root();
    // The root is one level above the lines of depth 0.
    std::size_t level = 0;
    for (const std::string& line : split(text, "\r\n")) {
        const std::size_t depth = lineDepth(line);
        std::string nodeText;
        if (depth + 1 == level) {
            current = current->parent();
            nodeText = withoutFirstCharacter(line);
        } else {
            for (std::size_t up = level; up > depth && current->parent() != nullptr; --up)
                current = current->parent();
            nodeText = line.substr(depth);
        }
        current = &addNode(*current, std::move(nodeText), lineImage(line));
        level = depth + 1;
    }
}

Node& StatementTree::addNode(Node& parent, std::string text, std::string_view image) {
    Node& node = tree_.nodes().add(&parent, Relation::Child, std::move(text));
    tree_.nodes().setKey(node, newNodeKey());
    node.setImage(std::string(image));
    markStatementNode(node);
    return node;
}

void StatementTree::markStatementNode(Node& node) {
    node.setBold(node.image() != kItemValueImage);
    node.setBackColor(kStatementBackColor);
    for (Node* above = node.parent(); above != nullptr; above = above->parent())
        above->setExpanded(true);
    tree_.nodes().select(&node);
}

std::string StatementTree::newNodeKey() {
    return "TVW_KEY" + std::to_string(++keyCounter_);
}

} // namespace zb
