#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zb {

class Node;
class NodeTree;

enum class FindDirection { Up, Down, All };
enum class FindCase { Exact, Ignored };

struct FindRequest {
    /// May contain wildcards; it is searched anywhere in a Text.
    std::string what;
    FindCase letterCase = FindCase::Ignored;
    FindDirection direction = FindDirection::All;
    /// Where the search began: a search in all directions stops when it comes round to it.
    int origin = 1;
};

enum class FindOutcome {
    Found,
    EndOfFile,
    Nothing, ///< nothing to search, or an invalid pattern
};

struct FindResult {
    FindOutcome outcome = FindOutcome::Nothing;
    Node* node = nullptr;
};

/// Finds the next node after the selected one. The first step follows the links of the tree, past the start's
/// own items; from there the search continues by flat position.
FindResult findNext(const NodeTree& tree, const FindRequest& request);

/// All nodes whose Text contains the pattern, from the top of the tree down; nothing for an invalid pattern.
std::optional<std::vector<Node*>> findAll(const NodeTree& tree, const std::string& what, FindCase letterCase);

} // namespace zb
