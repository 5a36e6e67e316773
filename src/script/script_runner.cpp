#include "script/script_runner.h"

#include "platform/text.h"
#include "platform/text_file.h"
#include "script/interpreter.h"
#include "script/script_screen.h"
#include "script/work_folder.h"

#include <algorithm>
#include <filesystem>
#include <ostream>

namespace zb {

namespace fs = std::filesystem;

namespace {

/// Terminals and CI logs get no control characters, whatever a script or the program brings.
std::string printable(std::string_view message) {
    std::string text = sanitizeUtf8(message);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c != '\n' && static_cast<unsigned char>(c) < ' '; },
        '?');
    return text;
}

} // namespace

ScriptUser userOfStores() {
    return {[](ScriptedProgram& program) { return std::make_unique<StoreHands>(program); },
            [](ScriptedProgram& program) { return std::make_unique<StoreEyes>(program); }};
}

ScriptRunner::Outcome ScriptRunner::run(const std::string& file) {
    const auto bytes = readBytes(file);
    if (!bytes) {
        err_ << file << ": cannot be read: " << bytes.error().description << '\n';
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
        Foretold foretold(out_);
        ScriptScreen screen(foretold);
        const auto program = makeProgram_(screen, folders.application);
        const auto hands = user_.makeHands(*program);
        const auto eyes = user_.makeEyes(*program);
        ScriptInterpreter interpreter({*program, *hands, *eyes, foretold, folders, out_});
        screen.onModal = [&](Window& window) { interpreter.runDuring(window); };
        interpreter.run(script);
    } catch (const ScriptFailure& failure) {
        err_ << name << ':' << failure.line() << ": " << printable(failure.what()) << '\n';
        return Outcome::Failed;
    } catch (const std::exception& fault) {
        err_ << name << ": expected a program to run, found " << fault.what() << '\n';
        return Outcome::Failed;
    }
    return Outcome::Passed;
}

} // namespace zb
