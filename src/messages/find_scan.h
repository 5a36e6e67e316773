#pragma once

#include <string>

namespace zb {

class Node;
class NodeTree;

enum class FindDirection { Up, Down, All };
enum class FindCase { Exact, Ignored };

struct FindRequest {
    /// May hold wildcards; it is looked for anywhere in a Text.
    std::string what;
    FindCase letterCase = FindCase::Ignored;
    FindDirection direction = FindDirection::All;
    /// Where the user began to look: a search in all directions ends before it once it has gone round.
    int origin = 1;
};

enum class FindOutcome {
    Found,
    EndOfFile,
    Nothing, ///< there is nothing to look through, or the pattern cannot be meant
};

struct FindResult {
    FindOutcome outcome = FindOutcome::Nothing;
    Node* node = nullptr;
};

/// Looks for the next node from the selected one on. The first step goes along the links of the tree,
/// downwards past the start's own items; from there on the search goes by flat position.
FindResult findNext(const NodeTree& tree, const FindRequest& request);

} // namespace zb
