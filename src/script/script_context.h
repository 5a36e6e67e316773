#pragma once

#include "script/address.h"
#include "script/eyes.h"
#include "script/hands.h"
#include "script/prepared_answers.h"
#include "script/program.h"
#include "script/script_folders.h"
#include "script/script_text.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// The objects that commands work on.
struct ScriptContext {
    ScriptedProgram& program;
    Hands& hands;
    Eyes& eyes;
    PreparedAnswers& prepared;
    const ScriptFolders& folders;
    std::ostream& out;

    Place place(std::string_view address) const { return resolveAddress(program.desktop(), address); }
};

/// A command being run.
struct CommandCall {
    const ScriptCommand& command;
    /// The words after the name, with all `${NAME}` replaced.
    std::vector<std::string> words;

    const std::string& word(std::size_t at) const { return words[at]; }
    std::size_t count() const { return words.size(); }
};

} // namespace zb
