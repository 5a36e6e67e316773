#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// The text of a script, read into commands. Nothing is carried out here, and no name is looked up.
namespace zb {

/// A line of a raw block, its indentation within the block kept.
struct BlockLine {
    std::string text;
    /// Whether the script gave it as a JSON string, so that it stands for itself only.
    bool quoted = false;

    /// Whether it stands for any number of lines.
    bool isAnything() const;
};

enum class BlockKind {
    None,
    Lines,    ///< raw lines
    Commands, ///< commands, which may have blocks of their own
};

struct ScriptCommand {
    std::size_t line = 0;
    /// The name first. `${NAME}` stands as written.
    std::vector<std::string> words;
    std::vector<BlockLine> lines;
    std::vector<ScriptCommand> commands;
    /// The line of the block's `end`.
    std::size_t endLine = 0;
    /// Why the line cannot be carried out; empty when it can. What stands behind it is reached no more.
    std::string fault;

    const std::string& name() const { return words.front(); }
};

/// The block that a command of this name takes.
using BlockKinds = BlockKind (*)(std::string_view name);

/// The commands of a script's text. A line at fault becomes a command with a fault, so that what stands above
/// it is carried out first.
std::vector<ScriptCommand> parseScript(std::string_view text, BlockKinds blockOf);

} // namespace zb
