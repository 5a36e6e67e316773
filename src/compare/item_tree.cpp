#include "compare/item_tree.h"

#include "messages/message_nodes.h"

#include <algorithm>

namespace zb {

namespace {

/// No text of a file contains it: control characters within a line are kept, but NUL never comes from one.
constexpr std::string_view kFollowingCount{"L \0", 3};

} // namespace

std::size_t ItemTree::add(std::size_t parent, std::string text) {
    const std::size_t node = nodes_.size();
    nodes_[parent].children.push_back(node);
    const std::size_t depth = nodes_[parent].depth + 1;
    nodes_.push_back({std::move(text), parent, depth, {}});
    return node;
}

std::size_t ItemTree::addAtLevel(std::size_t level, std::string text) {
    std::size_t parent = nodes_.size() - 1;
    while (parent != kRoot && nodes_[parent].depth >= level)
        parent = nodes_[parent].parent;
    return add(parent, std::move(text));
}

std::vector<std::size_t> ItemTree::subtreeEnds() const {
    std::vector<std::size_t> ends(nodes_.size());
    for (std::size_t node = nodes_.size(); node-- > 0;) {
        ends[node] = std::max(ends[node], node + 1);
        if (node != kRoot)
            ends[nodes_[node].parent] = std::max(ends[nodes_[node].parent], ends[node]);
    }
    return ends;
}

std::string ItemTree::path(std::size_t node) const {
    std::vector<std::size_t> positions;
    for (; node != kRoot; node = nodes_[node].parent) {
        const std::vector<std::size_t>& siblings = nodes_[nodes_[node].parent].children;
        // Nodes are numbered in their order.
        const auto found = std::lower_bound(siblings.begin(), siblings.end(), node);
        positions.push_back(static_cast<std::size_t>(found - siblings.begin()) + 1);
    }
    std::reverse(positions.begin(), positions.end());
    std::string path;
    for (const std::size_t position : positions)
        path.append(path.empty() ? "" : "/").append(std::to_string(position));
    return path;
}

std::string ItemTree::subtreeText(std::size_t node) const {
    std::string text = nodes_[node].text;
    for (std::size_t at = node + 1; at < nodes_.size() && nodes_[at].depth > nodes_[node].depth; ++at) {
        text += '\n';
        text.append((nodes_[at].depth - nodes_[node].depth) * 4, ' ').append(nodes_[at].text);
    }
    return text;
}

std::string shownItems(const ItemTree& tree) {
    std::string text;
    for (const std::size_t child : tree.at(ItemTree::kRoot).children)
        text.append(text.empty() ? "" : "\n").append(tree.subtreeText(child));
    return text;
}

bool countFollowsItems(const ItemTree& tree, std::size_t node) {
    const std::string_view text = tree.at(node).text;
    return wordAt(text, 0) == "L" && wordAt(text, 1) == std::to_string(tree.at(node).children.size());
}

std::string textWithoutFollowingCount(const ItemTree& tree, std::size_t node) {
    const std::string& text = tree.at(node).text;
    if (!countFollowsItems(tree, node))
        return text;
    return std::string(kFollowingCount).append(text.substr(2 + wordAt(text, 1).size()));
}

std::string textWithCount(std::string_view text, std::size_t subItems) {
    if (!text.starts_with(kFollowingCount))
        return std::string(text);
    return "L " + std::to_string(subItems) + std::string(text.substr(kFollowingCount.size()));
}

} // namespace zb
