#include "console/command_line.h"

#include "console/printable_stream.h"
#include "console/suggestion.h"
#include "console/verbs.h"
#include "platform/printable.h"
#include "platform/settings_file.h"
#include "platform/text.h"
#include "platform/user_folders.h"
#include "platform/version.h"

#include <CLI/CLI.hpp>
#include <ostream>

namespace zb {

namespace {

constexpr const char* kDescription =
    R"(zbc works on Zeltobench projects without a screen: it builds, checks and lists SECS message
definitions, and runs scripts that operate the whole program as a person does.)";

constexpr const char* kExitCodes =
    R"(Exit status: 0 done, 1 a fault in the input, 2 wrong usage, 3 a file that cannot be read or written.
zbc VERB --help describes a verb.)";

/// The text of a parse error, on one line.
std::string firstLine(std::string_view text) {
    return std::string(before(text, "\n"));
}

int refuse(const std::string& what, ConsoleStreams streams) {
    streams.err << "zbc: " << printable(firstLine(what)) << " (see zbc --help)\n";
    return kExitUsage;
}

/// What a build writes depends on settings: others than those of the user are no secret. A script has its
/// own.
void reportSettings(const Verb& verb, std::ostream& err) {
    const SettingsFile settings(settingsFolder());
    const Result<void> read = verb.name() == "script" ? Result<void>() : settings.check();
    if (!read)
        err << printable(settings.path().string())
            << ": cannot be read, and the usual settings are taken: " << printable(read.error().description)
            << '\n';
}

Verb* chosenVerb(const CLI::App& app, const Verbs& verbs) {
    for (const auto& verb : verbs) {
        if (app.got_subcommand(verb->name()))
            return verb.get();
    }
    return nullptr;
}

} // namespace

Verbs makeVerbs() {
    Verbs verbs;
    for (const auto make :
         {makeBuildVerb, makeCheckVerb, makeListVerb, makeConvertVerb, makeAddVerb, makeDocumentVerb,
          makeHistoryVerb, makeDiffVerb, makeMergeVerb, makeCompatVerb, makeGitSetupVerb, makeRehearseVerb,
          makeDecodeVerb, makeLearnVerb, makeGenerateVerb})
        verbs.push_back(make());
    return verbs;
}

int runConsole(const Verbs& verbs, const std::vector<std::string>& arguments, ConsoleStreams sinks) {
    PrintableStream out(sinks.out, sinks.colours);
    PrintableStream err(sinks.err);
    const ConsoleStreams streams{out, err, sinks.colours};
    CLI::App app(kDescription, "zbc");
    app.footer(kExitCodes);
    app.set_version_flag("--version", "zbc " + std::string(kVersion), "Print the version and exit");
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
        return refuse(describeUnknownWord(app).value_or(error.what()), streams);
    }
    Verb* verb = chosenVerb(app, verbs);
    if (verb == nullptr)
        return refuse("a verb is missing", streams);
    reportSettings(*verb, streams.err);
    return verb->run(streams);
}

} // namespace zb
