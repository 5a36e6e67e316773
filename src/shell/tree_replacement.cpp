#include "shell/tree_replacement.h"

#include "compare/alignment.h"
#include "platform/tree/node_tree.h"
#include "platform/tree/node_walk.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zb {

namespace {

using Nodes = std::vector<Node*>;
using ConstNodes = std::vector<const Node*>;

/// Below so many levels nodes are not compared one by one: trees may have any depth.
constexpr int kComparedLevels = 8;

template<typename List>
List slice(const List& list, std::size_t from, std::size_t to) {
    return List(list.begin() + static_cast<std::ptrdiff_t>(from),
                list.begin() + static_cast<std::ptrdiff_t>(to));
}

/// Equal numbers for equal nodes.
class Numbers {
public:
    /// The node alone.
    std::uint64_t ofNode(const Node& node) { return of(describe(node)); }
    /// The node with all nodes below it.
    std::uint64_t ofBranch(const Node& node) {
        std::string text = describe(node);
        for (NodeWalk walk(node); const Node* below = walk.node(); walk.next())
            text += std::to_string(walk.depth()) + describe(*below);
        return of(std::move(text));
    }

private:
    static std::string describe(const Node& node) {
        std::string text = node.bold() ? "b" : "p";
        for (const std::string_view part :
             {std::string_view(node.text()), node.key(), std::string_view(node.image())})
            text.append(std::to_string(part.size())).append(":").append(part);
        return text;
    }
    std::uint64_t of(std::string text) {
        return numbers_.emplace(std::move(text), numbers_.size() + 1).first->second;
    }

    std::unordered_map<std::string, std::uint64_t> numbers_;
};

/// The children of a node that stays, as they should be: each with the node of the tree that stays for it,
/// or null for one that has to be added.
struct Children {
    Node* parent = nullptr; ///< null for the roots
    int level = 0;
    std::vector<std::pair<const Node*, Node*>> wanted;
};

/// What has to be done. Removals come first, since Keys of theirs may come back.
class Plan {
public:
    Plan(NodeTree& tree, const NodeTree& wanted) : tree_(tree) {
        compare({}, tree.firstRoot(), wanted.firstRoot());
    }

    void carryOut() {
        const NodeTree::ManyChanges many(tree_, removed_.size() + texts_.size() + added_);
        for (Node* node : removed_)
            tree_.remove(*node);
        for (const auto& [node, wanted] : texts_) {
            node->setText(wanted->text());
            node->setBackColor(std::nullopt); // a mark is of the old text
        }
        for (const Children& children : children_)
            arrange(children);
    }

private:
    static Nodes listOf(Node* first) {
        Nodes nodes;
        for (; first != nullptr; first = first->next())
            nodes.push_back(first);
        return nodes;
    }

    /// Nodes from one that is equal to the next one, or to the end.
    struct Gap {
        Nodes nodes;
        ConstNodes wanted;
        /// The equal nodes after them; null at the end.
        /// @{
        Node* same = nullptr;
        const Node* sameWanted = nullptr;
        /// @}
    };

    /// Aligns the nodes that have the same number.
    template<typename NumberOf>
    static std::vector<Gap> gapsBetween(const Nodes& nodes, const ConstNodes& wanted, NumberOf numberOf) {
        const auto numbersOf = [&numberOf](const auto& list) {
            std::vector<std::uint64_t> numbers;
            numbers.reserve(list.size());
            for (const Node* node : list)
                numbers.push_back(numberOf(*node));
            return numbers;
        };
        auto pairs = alignEqual(numbersOf(nodes), numbersOf(wanted));
        pairs.emplace_back(nodes.size(), wanted.size());
        std::vector<Gap> gaps;
        std::size_t at = 0;
        std::size_t atWanted = 0;
        for (const auto& [same, sameWanted] : pairs) {
            Gap gap{slice(nodes, at, same), slice(wanted, atWanted, sameWanted)};
            if (same < nodes.size()) {
                gap.same = nodes[same];
                gap.sameWanted = wanted[sameWanted];
            }
            gaps.push_back(std::move(gap));
            at = same + 1;
            atWanted = sameWanted + 1;
        }
        return gaps;
    }

    void compare(Children children, Node* first, const Node* firstWanted) {
        ConstNodes wanted;
        for (; firstWanted != nullptr; firstWanted = firstWanted->next())
            wanted.push_back(firstWanted);
        const auto branch = [this](const Node& node) { return numbers_.ofBranch(node); };
        for (const Gap& gap : gapsBetween(listOf(first), wanted, branch)) {
            compareGap(gap.nodes, gap.wanted, children);
            if (gap.same != nullptr)
                children.wanted.emplace_back(gap.sameWanted, gap.same);
        }
        children_.push_back(std::move(children));
    }

    /// Nodes between equal ones: those that look the same stay, and what is below them is compared.
    void compareGap(const Nodes& nodes, const ConstNodes& wanted, Children& children) {
        const auto alone = [this](const Node& node) { return numbers_.ofNode(node); };
        for (const Gap& gap : gapsBetween(nodes, wanted, alone)) {
            const std::size_t exchanged = gap.nodes.size() == gap.wanted.size() ? gap.nodes.size() : 0;
            for (std::size_t at = 0; at < exchanged; ++at)
                exchange(*gap.nodes[at], *gap.wanted[at], children);
            for (std::size_t at = exchanged; at < gap.nodes.size(); ++at)
                removed_.push_back(gap.nodes[at]);
            for (std::size_t at = exchanged; at < gap.wanted.size(); ++at)
                add(*gap.wanted[at], children);
            if (gap.same != nullptr)
                keep(*gap.same, *gap.sameWanted, children);
        }
    }

    /// A node in the place of another one: with another text it can stay, but no node gets another Key.
    void exchange(Node& node, const Node& wanted, Children& children) {
        const bool fits =
            node.key() == wanted.key() && node.bold() == wanted.bold() && node.image() == wanted.image();
        if (fits && keep(node, wanted, children))
            texts_.emplace_back(&node, &wanted);
        else if (!fits)
            removeAndAdd(node, wanted, children);
    }
    /// False when the node has to be replaced with all that is below it.
    bool keep(Node& node, const Node& wanted, Children& children) {
        const bool isLeaf = node.child() == nullptr && wanted.child() == nullptr;
        if (!isLeaf && children.level == kComparedLevels) {
            removeAndAdd(node, wanted, children);
            return false;
        }
        children.wanted.emplace_back(&wanted, &node);
        if (!isLeaf)
            compare({&node, children.level + 1, {}}, node.child(), wanted.child());
        return true;
    }
    void removeAndAdd(Node& node, const Node& wanted, Children& children) {
        removed_.push_back(&node);
        add(wanted, children);
    }
    void add(const Node& wanted, Children& children) {
        children.wanted.emplace_back(&wanted, nullptr);
        ++added_;
    }

    void arrange(const Children& children) {
        Node* previous = nullptr;
        for (const auto& [wanted, node] : children.wanted) {
            previous = node != nullptr ? node : &addBranch(*wanted, children.parent, previous);
        }
    }

    Node& addNode(const Node& wanted, Node* parent, Node* previous) {
        Node* first = parent != nullptr ? parent->child() : tree_.firstRoot();
        Node* relative = previous != nullptr ? previous : first != nullptr ? first : parent;
        const Relation relation = previous != nullptr ? Relation::Next
                                  : first != nullptr  ? Relation::First
                                                      : Relation::Child;
        Node& node = tree_.add(relative, relation, wanted.text());
        tree_.setKey(node, wanted.key());
        node.setImage(wanted.image());
        node.setBold(wanted.bold());
        node.setExpanded(wanted.expanded());
        return node;
    }

    /// Without recursion, for trees of any depth.
    Node& addBranch(const Node& wanted, Node* parent, Node* previous) {
        Node& top = addNode(wanted, parent, previous);
        std::vector<Node*> path = {&top}; // the nodes above the next one
        for (NodeWalk walk(wanted); const Node* below = walk.node(); walk.next()) {
            path.resize(static_cast<std::size_t>(walk.depth()) + 1);
            Node* above = path.back();
            path.push_back(&addNode(*below, above, above->lastChild()));
        }
        return top;
    }

    NodeTree& tree_;
    Numbers numbers_;
    Nodes removed_;
    std::vector<std::pair<Node*, const Node*>> texts_;
    std::vector<Children> children_;
    std::size_t added_ = 0;
};

} // namespace

void replaceNodes(NodeTree& tree, const NodeTree& wanted) {
    Plan(tree, wanted).carryOut();
}

} // namespace zb
