#include "script/script_runner.h"

#include "platform/printable.h"
#include "platform/text_file.h"
#include "script/command_rules.h"
#include "script/interpreter.h"
#include "script/script_screen.h"
#include "script/work_folder.h"

#include <filesystem>
#include <ostream>

namespace zb {

namespace fs = std::filesystem;

ScriptUser userOfStores() {
    return {[](ScriptedProgram& program) { return std::make_unique<StoreHands>(program); },
            [](ScriptedProgram& program) { return std::make_unique<StoreEyes>(program); }};
}

ScriptRunner::Outcome ScriptRunner::run(const std::string& file) {
    const auto bytes = readBytes(file);
    if (!bytes) {
        err_ << printable(file) << ": cannot be read: " << printable(bytes.error().description) << '\n';
        return Outcome::Unreadable;
    }
    std::error_code error;
    const fs::path folder = fs::weakly_canonical(fs::absolute(file), error).parent_path();
    return runText(file, error ? fs::path(file).parent_path().string() : folder.string(), *bytes);
}

ScriptRunner::Outcome ScriptRunner::runText(const std::string& name, const std::string& folder,
                                            std::string_view text) {
    const auto script = parseScript(text, blockOfCommand);
    try {
        const WorkFolder base;
        const ScriptFolders folders{folder, (base.path() / "work").string(), (base.path() / "app").string()};
        fs::create_directory(folders.work);
        fs::create_directory(folders.application);
        PreparedAnswers prepared(out_);
        ScriptScreen screen(prepared);
        const auto program = makeProgram_(screen, folders.application);
        const auto hands = user_.makeHands(*program);
        const auto eyes = user_.makeEyes(*program);
        ScriptInterpreter interpreter({*program, *hands, *eyes, prepared, folders, out_});
        screen.onModal = [&](Window& window) { interpreter.runDuring(window); };
        interpreter.run(script);
    } catch (const ScriptFailure& failure) {
        err_ << printable(name) << ':' << failure.line() << ": " << printableLines(failure.what()) << '\n';
        return Outcome::Failed;
    } catch (const std::exception& fault) {
        err_ << printable(name) << ": expected a program to run, found " << printable(fault.what()) << '\n';
        return Outcome::Failed;
    }
    return Outcome::Passed;
}

} // namespace zb
