#pragma once

#include "outputs/generator.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zb {

class SettingsStore;
struct ProcessOutcome;

/// The program that is searched on the path when the settings name none.
inline constexpr std::string_view kGeneratorProgram = "ZeltoGenerator";

/// The words of a command line: blanks separate them, double quotes keep blanks inside a word. Within quotes
/// a backslash escapes a quote or a backslash. There is no other syntax, since no shell is involved.
std::vector<std::string> commandWords(std::string_view command);

/// Runs an external program as the generator: the setting `GeneratorCommand`, otherwise `ZeltoGenerator` on
/// the path or else next to the running program, with the project file's path as the last argument. The
/// result is its standard output and standard error, and how it ended if that was a failure. It is stopped
/// after the seconds of the setting `GeneratorTimeLimit`, by default after ten minutes.
class ZeltoGenerator final : public Generator {
public:
    /// Called many times a second while the generator runs, with the lines that it has written since the last
    /// call, as plain text; false ends it.
    using Watch = std::function<bool(const std::string& lines)>;

    /// `programs` is the folder of the running program.
    explicit ZeltoGenerator(const SettingsStore& settings, Watch watch = {},
                            std::filesystem::path programs = {})
        : settings_(settings), watch_(std::move(watch)), programs_(std::move(programs)) {}

    std::string generate(const std::string& projectFile) override;

    enum class Success { Yes, Failed, NotStarted };
    /// The result of the last run.
    Success success() const { return success_; }

private:
    ProcessOutcome run(std::vector<std::string>& arguments) const;
    ProcessOutcome runWatched(const std::vector<std::string>& arguments) const;
    std::string shown(std::string_view output) const;
    std::chrono::seconds timeLimit() const;
    std::string describe(const std::vector<std::string>& arguments, const ProcessOutcome& outcome) const;

    const SettingsStore& settings_;
    Watch watch_;
    std::filesystem::path programs_;
    Success success_ = Success::NotStarted;
};

} // namespace zb
