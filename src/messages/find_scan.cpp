#include "messages/find_scan.h"

#include "platform/text.h"
#include "platform/tree/node_tree.h"
#include "platform/tree/node_walk.h"
#include "platform/wildcard.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace zb {

namespace {

class Matcher {
public:
    static std::optional<Matcher> compile(const FindRequest& request) {
        const std::string what = request.letterCase == FindCase::Exact ? request.what : lower(request.what);
        auto pattern = WildcardPattern::compile("*" + what + "*");
        if (!pattern)
            return std::nullopt;
        return Matcher(std::move(*pattern), request.letterCase);
    }

    bool matches(const Node& node) const {
        return letterCase_ == FindCase::Exact ? pattern_.matches(node.text())
                                              : pattern_.matches(lower(node.text()));
    }

private:
    Matcher(WildcardPattern pattern, FindCase letterCase)
        : pattern_(std::move(pattern)), letterCase_(letterCase) {}

    WildcardPattern pattern_;
    FindCase letterCase_;
};

Node* stepUp(const Node& start) {
    return start.previous() != nullptr ? start.previous() : start.parent();
}

Node* stepDown(const Node& start) {
    for (const Node* node = &start; node != nullptr; node = node->parent()) {
        if (node->next() != nullptr)
            return node->next();
    }
    return nullptr;
}

Node* firstStep(const NodeTree& tree, const Node& start, FindDirection direction) {
    if (direction == FindDirection::Up)
        return stepUp(start);
    const bool wraps =
        direction == FindDirection::All && start.parent() == nullptr && start.next() == nullptr;
    return wraps ? tree.at(1) : stepDown(start);
}

FindResult found(Node* node) {
    return {FindOutcome::Found, node};
}

/// The first match among the positions from..to, which are searched downwards when `from` is after `to`.
Node* firstMatch(const NodeTree& tree, const Matcher& matcher, int from, int to) {
    const int direction = from <= to ? 1 : -1;
    for (int position = from; position != to + direction; position += direction) {
        Node* node = tree.at(position);
        if (node != nullptr && matcher.matches(*node))
            return node;
    }
    return nullptr;
}

Node* scan(const NodeTree& tree, const Matcher& matcher, int from, const FindRequest& request) {
    if (request.direction == FindDirection::Up)
        return firstMatch(tree, matcher, from, 1);
    const int last = static_cast<int>(tree.count());
    Node* match = firstMatch(tree, matcher, from, last);
    const bool goesRound =
        request.direction == FindDirection::All && from > request.origin && request.origin > 1;
    if (match != nullptr || !goesRound)
        return match;
    return firstMatch(tree, matcher, 1, request.origin - 1);
}

} // namespace

FindResult findNext(const NodeTree& tree, const FindRequest& request) {
    const Node* start = tree.selected() != nullptr ? tree.selected() : tree.at(1);
    if (start == nullptr)
        return {};
    const Node* first = firstStep(tree, *start, request.direction);
    if (first == nullptr)
        return {FindOutcome::EndOfFile, nullptr};
    const auto matcher = Matcher::compile(request);
    if (!matcher)
        return {};
    Node* match = scan(tree, *matcher, first->index(), request);
    return match != nullptr ? found(match) : FindResult{FindOutcome::EndOfFile, nullptr};
}

std::optional<std::vector<Node*>> findAll(const NodeTree& tree, const std::string& what,
                                          FindCase letterCase) {
    const auto matcher = Matcher::compile({what, letterCase, FindDirection::Down, 1});
    if (!matcher)
        return std::nullopt;
    std::vector<Node*> found;
    for (Node* root = tree.firstRoot(); root != nullptr; root = root->next()) {
        if (matcher->matches(*root))
            found.push_back(root);
        for (NodeWalk walk(*root); Node* node = walk.node(); walk.next()) {
            if (matcher->matches(*node))
                found.push_back(node);
        }
    }
    return found;
}

} // namespace zb
