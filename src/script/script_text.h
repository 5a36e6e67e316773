#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// The text of a script, parsed into commands. Nothing is run here, and no name is looked up.
namespace zb {

/// A line of a raw block, with its indentation within the block.
struct BlockLine {
    std::string text;
    /// Whether the script wrote it as a JSON string, so that it is literal.
    bool quoted = false;

    /// Whether it matches any number of lines.
    bool isAnything() const;
};

enum class BlockKind {
    None,
    Lines,    ///< raw lines
    Commands, ///< commands, which may have blocks themselves
};

struct ScriptCommand {
    std::size_t line = 0;
    /// The name first. `${NAME}` is not replaced yet.
    std::vector<std::string> words;
    std::vector<BlockLine> lines;
    std::vector<ScriptCommand> commands;
    /// The line of the block's `end`.
    std::size_t endLine = 0;
    /// Why the line cannot be run; empty when it can. Later lines are not reached.
    std::string fault;

    const std::string& name() const { return words.front(); }
};

/// The block of a command with this name.
using BlockKinds = BlockKind (*)(std::string_view name);

/// The commands of a script's text. A faulty line becomes a command with a fault, so that the lines before it
/// are run first.
std::vector<ScriptCommand> parseScript(std::string_view text, BlockKinds blockOf);

} // namespace zb
