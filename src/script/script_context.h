#pragma once

#include "script/address.h"
#include "script/eyes.h"
#include "script/foretold.h"
#include "script/hands.h"
#include "script/program.h"
#include "script/script_text.h"

#include <cstddef>
#include <filesystem>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// The folders that a script may name.
struct ScriptFolders {
    std::string script;      ///< DIR
    std::string work;        ///< WORK
    std::string application; ///< APP
};

/// What commands work on.
struct ScriptContext {
    ScriptedProgram& program;
    Hands& hands;
    Eyes& eyes;
    Foretold& foretold;
    const ScriptFolders& folders;
    std::ostream& out;

    Place place(std::string_view address) const { return resolveAddress(program.desktop(), address); }
};

/// A command as it is carried out.
struct CommandCall {
    const ScriptCommand& command;
    /// The words behind the name, with all `${NAME}` replaced.
    std::vector<std::string> words;

    const std::string& word(std::size_t at) const { return words[at]; }
    std::size_t count() const { return words.size(); }
};

/// A command of the language.
struct CommandRule {
    std::string_view name;
    std::size_t least; ///< words behind the name
    std::size_t most;
    BlockKind block;
    /// Throws ScriptFailure.
    void (*run)(ScriptContext& context, const CommandCall& call);
};

std::span<const CommandRule> actingCommands();
std::span<const CommandRule> lookingCommands();
std::span<const CommandRule> fileLookingCommands();
std::span<const CommandRule> preparingCommands();

/// Null for a name that is no command.
const CommandRule* findCommand(std::string_view name);
/// The block that a command takes; none for what is no command.
BlockKind blockOfCommand(std::string_view name);

/// The word with each `${NAME}` replaced. Throws ScriptFailure for a variable that is not set.
std::string replaceVariables(const std::string& word, const ScriptFolders& folders);

} // namespace zb
