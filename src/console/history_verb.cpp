#include "console/verbs.h"

#include "platform/file_layer.h"
#include "platform/printable.h"
#include "platform/user_folders.h"
#include "project/project_history.h"

#include <CLI/CLI.hpp>
#include <chrono>
#include <ctime>
#include <limits>
#include <ostream>

namespace zb {

namespace {

/// In UTC, so that colleagues in other time zones read the same.
std::string printTime(std::filesystem::file_time_type time) {
    const auto system = std::chrono::file_clock::to_sys(time);
    const std::time_t seconds = std::chrono::system_clock::to_time_t(
        std::chrono::time_point_cast<std::chrono::system_clock::duration>(system));
    std::tm parts{};
    gmtime_r(&seconds, &parts);
    std::string text(sizeof "2000-01-01 00:00:00 UTC", '\0');
    text.resize(std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S UTC", &parts));
    return text;
}

int restoreVersion(ProjectHistory& history, const std::string& project, int number, ConsoleStreams streams) {
    const auto restored = history.restore(project, number);
    if (!restored) {
        streams.err << printable(project) << ": version " << number
                    << " cannot be brought back: " << printable(restored.error().description) << '\n';
        return kExitFileFault;
    }
    streams.out << printable(restored->string()) << '\n';
    return kExitDone;
}

/// `zbc history PROJECT.zbp [--restore N]`
class HistoryVerb final : public Verb {
public:
    std::string name() const override { return "history"; }
    std::string summary() const override { return "List the kept versions of a project, or bring one back"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    std::string project_;
    int restore_ = 0;
};

} // namespace

std::string HistoryVerb::example() const {
    return R"(zbc history Etcher.zbp --restore 3
  Writes version 3 next to the project under a new name, which it prints; the project is not
  changed. Without --restore each kept version is listed with its number, time and size in bytes,
  the oldest first.)";
}

void HistoryVerb::declare(CLI::App& app) {
    app.add_option("PROJECT", project_, "The project file, *.zbp; it need not exist any more")
        ->type_name("FILE")
        ->required();
    app.add_option("--restore", restore_, "The version to restore")
        ->type_name("N")
        ->check(CLI::Range(1, std::numeric_limits<int>::max()));
}

int HistoryVerb::run(ConsoleStreams streams) {
    SystemFileLayer files;
    ProjectHistory history(files, stateFolder());
    if (restore_ != 0)
        return restoreVersion(history, project_, restore_, streams);
    for (const auto& version : history.versions(project_))
        streams.out << version.number << "  " << printTime(version.time) << "  " << version.bytes << '\n';
    return kExitDone;
}

std::unique_ptr<Verb> makeHistoryVerb() {
    return std::make_unique<HistoryVerb>();
}

} // namespace zb
