#include "platform/git.h"

#include "platform/child_process.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <chrono>
#include <string_view>

namespace zb {

namespace {

std::string firstLine(std::string_view text) {
    return trim(replaceAll(before(text, "\n"), "\r", ""));
}

bool isObjectName(std::string_view text) {
    return text.size() >= 40 && text.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

} // namespace

Result<std::string, GitFault> runGit(const std::vector<std::string>& arguments) {
    const ProcessLimits limits{std::chrono::minutes(1), std::chrono::seconds(1), kLargestReadable};
    std::vector<std::string> words{"git"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    ProcessOutcome outcome = runProcess(words, limits, {});
    switch (outcome.end) {
    case ProcessOutcome::End::NotStarted:
        return GitFault{"git cannot be started: " + describeSystemError(outcome.number)};
    case ProcessOutcome::End::TimedOut:
    case ProcessOutcome::End::Stopped:
        return GitFault{"git did not end within a minute"};
    case ProcessOutcome::End::Signalled:
        return GitFault{"git was ended by signal " + describeSignal(outcome.number)};
    case ProcessOutcome::End::Exited:
        break;
    }
    if (outcome.number == 0)
        return std::move(outcome.output);
    const std::string line = firstLine(outcome.output);
    return GitFault{line.empty() ? "git ended with status " + std::to_string(outcome.number) : line};
}

Result<std::string, GitFault> readGitObject(const std::string& name, const std::string& folder) {
    const auto run = [&folder](std::vector<std::string> arguments) {
        if (!folder.empty())
            arguments.insert(arguments.begin(), {"-C", folder});
        return runGit(arguments);
    };
    // A name that begins with "-" is no option.
    auto object = run({"rev-parse", "--verify", "--end-of-options", name});
    if (!object)
        return object.error();
    const std::string id = firstLine(*object);
    if (!isObjectName(id))
        return GitFault{"git does not know it: " + id};
    const auto size = run({"cat-file", "-s", id});
    if (!size)
        return size.error();
    auto bytes = run({"cat-file", "blob", id});
    // Warnings of git come with its output; a project must not contain any.
    if (bytes && std::to_string(bytes->size()) != firstLine(*size))
        return GitFault{"git printed more or less than the file"};
    return bytes;
}

} // namespace zb
