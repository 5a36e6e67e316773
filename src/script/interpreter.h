#pragma once

#include "controls/window.h"
#include "script/script_context.h"
#include "script/script_failure.h"
#include "script/script_text.h"

#include <optional>
#include <vector>

namespace zb {

/// Runs the commands of one script.
class ScriptInterpreter {
public:
    explicit ScriptInterpreter(ScriptContext context) : context_(context) {}

    /// Runs all commands, and checks that all answers were used. Throws ScriptFailure with its line.
    void run(const std::vector<ScriptCommand>& script);
    /// Runs the commands of the script for this window, which has just been shown modally. Throws
    /// ScriptFailure.
    void runDuring(Window& window);

private:
    void runCommand(const ScriptCommand& command);
    void carryOut(const ScriptCommand& command);
    void keepFirst(const ScriptFailure& failure);

    ScriptContext context_;
    /// A handler of the program may catch a failure; the script fails nevertheless.
    std::optional<ScriptFailure> first_;
};

} // namespace zb
