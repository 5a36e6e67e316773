#include "console/command_line.h"

#include "console/add_verb.h"
#include "console/build_verb.h"
#include "console/check_verb.h"
#include "console/convert_verb.h"
#include "console/history_verb.h"
#include "console/list_verb.h"
#include "console/printable_stream.h"
#include "console/script_verb.h"
#include "platform/printable.h"
#include "platform/text.h"
#include "shell/version.h"

#include <CLI/CLI.hpp>
#include <ostream>

namespace zb {

namespace {

constexpr const char* kDescription =
    "zbc works on Zeltobench projects without a screen: it builds, checks and lists SECS message\n"
    "definitions, and runs scripts that work the whole program as a person does.";

constexpr const char* kExitCodes =
    "Exit status: 0 done, 1 a fault in the input, 2 wrong usage, 3 a file that cannot "
    "be read or written.\n"
    "zbc VERB --help tells more about a verb.";

/// What a parse error says on one line.
std::string firstLine(std::string_view text) {
    return std::string(before(text, "\n"));
}

int refuse(const std::string& what, ConsoleStreams streams) {
    streams.err << "zbc: " << printable(firstLine(what)) << " (see zbc --help)\n";
    return kExitUsage;
}

Verb* chosenVerb(const CLI::App& app, const std::vector<std::unique_ptr<Verb>>& verbs) {
    for (const auto& verb : verbs) {
        if (app.got_subcommand(verb->name()))
            return verb.get();
    }
    return nullptr;
}

} // namespace

std::vector<std::unique_ptr<Verb>> makeVerbs() {
    std::vector<std::unique_ptr<Verb>> verbs;
    verbs.push_back(std::make_unique<BuildVerb>());
    verbs.push_back(std::make_unique<CheckVerb>());
    verbs.push_back(std::make_unique<ListVerb>());
    verbs.push_back(std::make_unique<ConvertVerb>());
    verbs.push_back(std::make_unique<AddVerb>());
    verbs.push_back(std::make_unique<HistoryVerb>());
    verbs.push_back(std::make_unique<ScriptVerb>());
    return verbs;
}

int runConsole(const std::vector<std::string>& arguments, ConsoleStreams sinks) {
    PrintableStream out(sinks.out);
    PrintableStream err(sinks.err);
    const ConsoleStreams streams{out, err};
    const auto verbs = makeVerbs();
    CLI::App app(kDescription, "zbc");
    app.footer(kExitCodes);
    app.set_version_flag("--version", "zbc " + std::string(kVersion), "Print the version and leave");
    app.require_subcommand(0, 1);
    for (const auto& verb : verbs) {
        CLI::App* sub = app.add_subcommand(verb->name(), verb->summary());
        sub->footer("Example:\n  " + verb->example());
        verb->declare(*sub);
    }
    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::CallForHelp&) {
        streams.out << app.help();
        return kExitDone;
    } catch (const CLI::CallForVersion& version) {
        streams.out << version.what() << '\n';
        return kExitDone;
    } catch (const CLI::ParseError& error) {
        return refuse(error.what(), streams);
    }
    Verb* verb = chosenVerb(app, verbs);
    return verb == nullptr ? refuse("a verb is missing", streams) : verb->run(streams);
}

} // namespace zb
