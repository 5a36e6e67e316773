#pragma once

#include "outputs/generator.h"

#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

class SettingsStore;
struct ProcessOutcome;

/// The program that is looked for on the path when the settings name none.
inline constexpr std::string_view kGeneratorProgram = "ZeltoGenerator";

/// The words of a command line: blanks part them, double quotes keep blanks in one. Within quotes a backslash
/// takes the quote or backslash behind it as it is. There is no other mark, since no shell reads it.
std::vector<std::string> commandWords(std::string_view command);

/// Runs an external program as the generator: the setting `GeneratorCommand`, else `ZeltoGenerator` on the
/// path, with the project file's path behind its arguments. What it writes on standard output and standard
/// error is the result, and how it ended where it did not end well. It is ended after the seconds of the
/// setting `GeneratorTimeLimit`, else after ten minutes.
class ZeltoGenerator final : public Generator {
public:
    /// `keepAlive` is called many times a second while the generator runs.
    explicit ZeltoGenerator(const SettingsStore& settings, std::function<void()> keepAlive = {})
        : settings_(settings), keepAlive_(std::move(keepAlive)) {}

    std::string generate(const std::string& projectFile) override;

    enum class Success { Yes, Failed, NotStarted };
    /// How the last run went.
    Success success() const { return success_; }

private:
    std::chrono::seconds timeLimit() const;
    std::string describe(const std::vector<std::string>& arguments, const ProcessOutcome& outcome) const;

    const SettingsStore& settings_;
    std::function<void()> keepAlive_;
    Success success_ = Success::NotStarted;
};

} // namespace zb
