#pragma once

#include "script/script_context.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace zb {

/// A command of the language.
struct CommandRule {
    std::string_view name;
    std::size_t least; ///< words after the name
    std::size_t most;
    BlockKind block;
    /// Throws ScriptFailure.
    void (*run)(ScriptContext& context, const CommandCall& call);
};

std::span<const CommandRule> actingCommands();
std::span<const CommandRule> lookingCommands();
std::span<const CommandRule> fileLookingCommands();
std::span<const CommandRule> preparingCommands();

/// Null for an unknown name.
const CommandRule* findCommand(std::string_view name);
/// The block of a command; none for an unknown name.
BlockKind blockOfCommand(std::string_view name);

} // namespace zb
