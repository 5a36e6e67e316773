#pragma once

#include "script/program.h"

#include <iosfwd>
#include <string>

namespace zb {

class Eyes;
class Hands;

/// How scripts act and read: over the stores, unless a screen provides its own hands and eyes.
struct ScriptUser {
    std::function<std::unique_ptr<Hands>(ScriptedProgram& program)> makeHands;
    std::function<std::unique_ptr<Eyes>(ScriptedProgram& program)> makeEyes;
};
ScriptUser userOfStores();

/// Runs scripts one by one, each with its own program, settings and folders.
class ScriptRunner {
public:
    /// Boxes and the output of scripts are printed on `out`, failures on `err` as `FILE:LINE: ...`.
    ScriptRunner(ProgramFactory makeProgram, std::ostream& out, std::ostream& err,
                 ScriptUser user = userOfStores())
        : makeProgram_(std::move(makeProgram)), user_(std::move(user)), out_(out), err_(err) {}

    enum class Outcome { Passed, Failed, Unreadable };
    Outcome run(const std::string& file);
    /// The same with a text that is not from a file; `name` replaces the file in messages.
    Outcome runText(const std::string& name, const std::string& folder, std::string_view text);

private:
    ProgramFactory makeProgram_;
    ScriptUser user_;
    std::ostream& out_;
    std::ostream& err_;
};

} // namespace zb
