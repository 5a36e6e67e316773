#pragma once

#include "controls/window.h"
#include "script/script_context.h"
#include "script/script_failure.h"
#include "script/script_text.h"

#include <optional>
#include <vector>

namespace zb {

/// Carries out the commands of one script.
class ScriptInterpreter {
public:
    explicit ScriptInterpreter(ScriptContext context) : context_(context) {}

    /// All commands, and that all that was said was used. Throws ScriptFailure with its line.
    void run(const std::vector<ScriptCommand>& script);
    /// The commands that the script has for this window, which has just been shown modally. Throws
    /// ScriptFailure.
    void runDuring(Window& window);

private:
    void runCommand(const ScriptCommand& command);
    void carryOut(const ScriptCommand& command);
    void keepFirst(const ScriptFailure& failure);

    ScriptContext context_;
    /// A handler of the program may swallow a failure on its way; the script fails nevertheless.
    std::optional<ScriptFailure> first_;
};

} // namespace zb
