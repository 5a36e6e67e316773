#pragma once

#include <string>
#include <vector>

namespace zb {

class CodePage;
class NodeTree;

/// A fault of the definitions, and where it is.
struct DefinitionFinding {
    enum class Severity {
        Warning, ///< a build goes through, though perhaps not with what was meant
        Error    ///< a build stops here, or writes what a driver cannot follow
    };

    Severity severity = Severity::Error;
    std::string message; ///< name of the message; empty before the first one
    /// Positions on the way from the message to the item, from 1, joined by "/", as "2/1"; empty for the
    /// message.
    std::string itemPath;
    std::string text; ///< on one line
    int nodeIndex = 0;

    bool operator==(const DefinitionFinding&) const = default;
};

/// Every fault of every message and item, in tree order, by the rules of the checked walk; values are judged
/// as they stand after normalization. The tree stays as it is.
std::vector<DefinitionFinding> checkDefinitions(const NodeTree& tree, const CodePage& codePage);

} // namespace zb
