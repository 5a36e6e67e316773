#include "modeler/model_nodes.h"

#include "controls/tree.h"
#include "model/tr_message_record.h"

namespace zb {

namespace {

bool isChild(const Node* node, const Node& parent, std::string_view text) {
    return node != nullptr && node->parent() == &parent && node->text() == text;
}

Node* findChild(Node& parent, std::string_view key, std::string_view text, const NodeTree& nodes) {
    if (Node* node = nodes.find(key); isChild(node, parent, text))
        return node;
    // Its Key may belong to another node: Keys are compared without case, names with case.
    for (Node* node = parent.child(); node != nullptr; node = node->next()) {
        if (node->text() == text)
            return node;
    }
    return nullptr;
}

Node* addChild(Tree& tree, Node& parent, std::string_view key, std::string_view text, const char* picture) {
    if (tree.nodes().find(key) != nullptr && findChild(parent, key, text, tree.nodes()) != nullptr)
        return nullptr;
    Node& node = tree.nodes().add(&parent, Relation::Child, std::string(text));
    tree.nodes().setKey(node, key);
    node.setImage(picture);
    return &node;
}

} // namespace

std::string itemKey(std::string_view message, std::string_view item) {
    return std::string(message) + "_" + std::string(item);
}

const char* itemPicture(std::string_view item) {
    const bool isDefault = item == "PORT" || item == "LOT" || item == "CST";
    return isDefault ? kDefaultItemPicture : kUserItemPicture;
}

ModelLevel levelOf(const Node& node) {
    if (node.parent() == nullptr)
        return ModelLevel::Root;
    return node.parent()->parent() == nullptr ? ModelLevel::Message : ModelLevel::Item;
}

bool isErrorMark(const OptionalColor& color) {
    constexpr Color kMagenta{255, 0, 255};
    return color == kErrorForeColor || color == kMagenta;
}

bool hasMarkedMessage(const Tree& tree) {
    const Node* root = tree.nodes().firstRoot();
    for (const Node* node = root == nullptr ? nullptr : root->child(); node != nullptr; node = node->next()) {
        if (isErrorMark(node->foreColor()))
            return true;
    }
    return false;
}

Node* findMessageNode(const Tree& tree, std::string_view name) {
    Node* root = tree.nodes().firstRoot();
    return root == nullptr ? nullptr : findChild(*root, name, name, tree.nodes());
}

Node* findItemNode(const Tree& tree, std::string_view message, std::string_view item) {
    Node* parent = findMessageNode(tree, message);
    return parent == nullptr ? nullptr : findChild(*parent, itemKey(message, item), item, tree.nodes());
}

void plantRoot(Tree& tree, std::string_view root) {
    tree.nodes().clear();
    Node& node = tree.nodes().add(nullptr, Relation::Last, std::string(root));
    tree.nodes().setKey(node, root);
    node.setImage(kRootPicture);
    node.setBold(true);
    node.setForeColor(kModelRootColor);
    tree.nodes().select(&node);
}

Node* addMessageNode(Tree& tree, std::string_view name, const char* picture) {
    Node* root = tree.nodes().firstRoot();
    if (root == nullptr)
        return nullptr;
    root->setExpanded(true);
    return addChild(tree, *root, name, name, picture);
}

Node* addItemNode(Tree& tree, Node& message, std::string_view item, const char* picture) {
    return addChild(tree, message, itemKey(message.text(), item), item, picture);
}

void addTRItemNodes(Tree& tree, Node& message, const TRMessageRecord& record) {
    for (const auto& item : record.TRItems())
        addItemNode(tree, message, item->Name(), itemPicture(item->Name()));
}

bool showsMessage(const Node& node, const TRMessageRecord& record, bool withItems) {
    if (node.text() != record.Name())
        return false;
    const Node* shown = node.child();
    for (const auto& item : record.TRItems()) {
        if (!withItems)
            break;
        if (shown == nullptr || shown->text() != item->Name())
            return false;
        shown = shown->next();
    }
    return shown == nullptr;
}

void reveal(Tree& tree, Node& node) {
    for (Node* above = node.parent(); above != nullptr; above = above->parent())
        above->setExpanded(true);
    tree.nodes().select(&node);
}

void removeChildNodes(Tree& tree, const Node& node) {
    NodeTree& nodes = tree.nodes();
    const int position = node.index();
    if (const Node* sibling = node.next(); sibling != nullptr) {
        for (int count = sibling->index() - position - 1; count > 0; --count) {
            Node* child = nodes.at(position + 1);
            if (child == nullptr)
                return;
            nodes.remove(*child);
        }
        return;
    }
    for (int last = static_cast<int>(nodes.count()); last > position; last = static_cast<int>(nodes.count()))
        nodes.remove(*nodes.at(last));
}

} // namespace zb
