#include "console/verbs.h"

#include "platform/file_replacer.h"
#include "platform/git.h"
#include "platform/printable.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <CLI/CLI.hpp>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <ostream>

namespace zb {

namespace {

namespace fs = std::filesystem;

constexpr const char* kAttributes = "*.zbp diff=zeltobench merge=zeltobench";

struct ConfigLine {
    const char* key;
    const char* value;
};

/// Git quotes what it puts in place of %P; the other names are its own.
constexpr std::array<ConfigLine, 6> kConfig{
    {{"diff.zeltobench.textconv", "zbc diff --textconv --"},
     {"diff.zeltobench.cachetextconv", "false"},
     {"merge.zeltobench.name", "Zeltobench projects"},
     {"merge.zeltobench.driver", "zbc merge %O %A %B -o %A --path %P"},
     {"mergetool.zeltobench.cmd", "zeltobench --merge \"$BASE\" \"$LOCAL\" \"$REMOTE\" \"$MERGED\""},
     {"mergetool.zeltobench.trustExitCode", "true"}}};

/// `zbc git-setup [--global]`
class GitSetupVerb final : public Verb {
public:
    std::string name() const override { return "git-setup"; }
    std::string summary() const override { return "Let git compare and merge projects by zbc"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    Result<fs::path, GitFault> attributesFile() const;
    int writeAttributes(const fs::path& file, ConsoleStreams streams) const;

    bool global_ = false;
};

int refuse(const std::string& what, const std::string& why, ConsoleStreams streams) {
    streams.err << printable(what) << ": " << printable(why) << '\n';
    return kExitFileFault;
}

bool hasLine(std::string_view text, std::string_view wanted) {
    LineReader lines(text);
    while (const auto line = lines.next()) {
        if (trimmed(*line) == wanted)
            return true;
    }
    return false;
}

} // namespace

std::string GitSetupVerb::example() const {
    return R"(zbc git-setup
  Makes git show projects as text and merge them by zbc merge in the repository of the working
  folder: writes a line of its .gitattributes and the settings of its configuration, and prints
  them. With --global it does so for all repositories of the user. What is there already stays.)";
}

void GitSetupVerb::declare(CLI::App& app) {
    app.add_flag("--global", global_, "For all repositories of the user");
}

Result<fs::path, GitFault> GitSetupVerb::attributesFile() const {
    const auto lineOf = [](const std::string& output) {
        return fs::path(trim(replaceAll(output, "\n", "")));
    };
    if (!global_) {
        const auto top = runGit({"rev-parse", "--show-toplevel"});
        if (!top)
            return top.error();
        return lineOf(*top) / ".gitattributes";
    }
    if (const auto set = runGit({"config", "--global", "--type=path", "--get", "core.attributesFile"}); set)
        return lineOf(*set);
    if (const char* folder = std::getenv("XDG_CONFIG_HOME"); folder != nullptr && *folder != '\0')
        return fs::path(folder) / "git" / "attributes";
    const char* home = std::getenv("HOME");
    if (home == nullptr || *home == '\0')
        return GitFault{"there is no home folder"};
    return fs::path(home) / ".config" / "git" / "attributes";
}

int GitSetupVerb::writeAttributes(const fs::path& file, ConsoleStreams streams) const {
    // A link comes with the repository, and may lead to a file of the user that is none of its.
    std::error_code error;
    if (!global_ && fs::is_symlink(file, error))
        return refuse(file.string(), "cannot be written: it is a link, which git does not follow", streams);
    const Result<std::string> old = readBytes(file);
    if (!old && old.error().number != ENOENT)
        return refuse(file.string(), "cannot be read: " + old.error().description, streams);
    std::string text = old ? *old : std::string();
    streams.out << printable(file.string()) << ": " << kAttributes << '\n';
    if (hasLine(text, kAttributes))
        return kExitDone;
    text.append(text.empty() || text.ends_with('\n') ? "" : "\n").append(kAttributes).append("\n");
    fs::create_directories(file.parent_path(), error);
    if (error)
        return refuse(file.string(), "cannot be written: " + error.message(), streams);
    if (const Result<void> written = replaceFile(file, text); !written)
        return refuse(file.string(), "cannot be written: " + written.error().description, streams);
    return kExitDone;
}

int GitSetupVerb::run(ConsoleStreams streams) {
    const char* scope = global_ ? "--global" : "--local";
    const Result<fs::path, GitFault> file = attributesFile();
    if (!file)
        return refuse("git", file.error().text, streams);
    if (const int status = writeAttributes(*file, streams); status != kExitDone)
        return status;
    for (const ConfigLine& line : kConfig) {
        if (const auto set = runGit({"config", scope, line.key, line.value}); !set)
            return refuse("git", set.error().text, streams);
        streams.out << "git config " << scope << ": " << line.key << " = " << line.value << '\n';
    }
    return kExitDone;
}

std::unique_ptr<Verb> makeGitSetupVerb() {
    return std::make_unique<GitSetupVerb>();
}

} // namespace zb
