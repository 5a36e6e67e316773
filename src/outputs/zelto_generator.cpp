#include "outputs/zelto_generator.h"

#include "platform/child_process.h"
#include "platform/locale.h"
#include "platform/number.h"
#include "platform/result.h"
#include "platform/setting_names.h"
#include "platform/settings.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <cerrno>

namespace zb {

namespace {

constexpr std::chrono::seconds kUsualTimeLimit{600};
constexpr std::chrono::seconds kFarewell{2};
constexpr int kLongestTimeLimit = 7 * 24 * 3600;
// More than anyone reads, and little enough for a window to show fast.
constexpr std::size_t kOutputBytes = 1 << 20;

std::string userSetting(const SettingsStore& settings, std::string_view name) {
    return trim(settings.stored(kSettingsKey, name).value_or(std::string()));
}

/// The text without a character at its end that was cut in two.
std::string_view wholeCharacters(std::string_view text) {
    constexpr std::size_t kLongest = 4;
    for (std::size_t back = 1; back <= kLongest && back <= text.size(); ++back) {
        const auto byte = static_cast<unsigned char>(text[text.size() - back]);
        if ((byte & 0xC0U) == 0x80U)
            continue;
        const std::size_t length = byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
        if (length > back)
            text.remove_suffix(back);
        break;
    }
    return text;
}

/// The lines of a text as a window shows them: no control characters but tabs, each line's end CR LF, none
/// after the last.
std::string plainLines(std::string_view text) {
    constexpr unsigned char kDelete = 0x7F;
    std::string unified = replaceAll(replaceAll(text, "\r\n", "\n"), "\r", "\n");
    while (!unified.empty() && unified.back() == '\n')
        unified.pop_back();
    std::string lines;
    lines.reserve(unified.size());
    for (const char character : unified) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '\n')
            lines += "\r\n";
        else if ((byte < ' ' && character != '\t') || byte == kDelete)
            lines += ' ';
        else
            lines += character;
    }
    return lines;
}

std::string inSeconds(std::chrono::seconds time) {
    return std::to_string(time.count()) + (time.count() == 1 ? " second" : " seconds");
}

} // namespace

std::vector<std::string> commandWords(std::string_view command) {
    std::vector<std::string> words;
    bool inWord = false;
    bool quoted = false;
    for (std::size_t at = 0; at < command.size(); ++at) {
        char character = command[at];
        if (!quoted && (character == ' ' || character == '\t')) {
            inWord = false;
            continue;
        }
        if (!inWord)
            words.emplace_back();
        inWord = true;
        if (character == '"') {
            quoted = !quoted;
            continue;
        }
        const bool escapes = quoted && character == '\\' && at + 1 < command.size();
        if (escapes && (command[at + 1] == '"' || command[at + 1] == '\\'))
            character = command[++at];
        words.back() += character;
    }
    return words;
}

std::string ZeltoGenerator::generate(const std::string& projectFile) {
    std::vector<std::string> arguments = commandWords(userSetting(settings_, kGeneratorCommand));
    if (arguments.empty())
        arguments.emplace_back(kGeneratorProgram);
    arguments.push_back(projectFile);
    const ProcessOutcome outcome = run(arguments);
    using End = ProcessOutcome::End;
    if (outcome.end == End::NotStarted)
        success_ = Success::NotStarted;
    else
        success_ = outcome.end == End::Exited && outcome.number == 0 ? Success::Yes : Success::Failed;

    const bool cut = outcome.droppedBytes > 0;
    std::string text = shown(cut ? wholeCharacters(outcome.output) : outcome.output);
    const std::string description = describe(arguments, outcome);
    if (!text.empty() && !description.empty())
        text += "\r\n";
    return text + description;
}

/// Runs the command. A generator that nobody named, and that is not on the path, is searched next to the
/// running program.
ProcessOutcome ZeltoGenerator::run(std::vector<std::string>& arguments) const {
    ProcessOutcome outcome = runWatched(arguments);
    const bool isMissing = outcome.end == ProcessOutcome::End::NotStarted && outcome.number == ENOENT;
    if (!isMissing || programs_.empty() || !commandWords(userSetting(settings_, kGeneratorCommand)).empty())
        return outcome;
    arguments.front() = (programs_ / kGeneratorProgram).string();
    return runWatched(arguments);
}

ProcessOutcome ZeltoGenerator::runWatched(const std::vector<std::string>& arguments) const {
    std::size_t shownEnd = 0;
    const auto watch = [&](std::string_view output) {
        const std::size_t end = output.rfind('\n') + 1; // 0 without a line
        std::string lines;
        if (end > shownEnd) {
            lines = shown(output.substr(shownEnd, end - shownEnd));
            shownEnd = end;
        }
        return watch_(lines);
    };
    const ProcessLimits limits{timeLimit(), kFarewell, kOutputBytes};
    return runProcess(arguments, limits, watch_ ? ProcessWatch(watch) : ProcessWatch());
}

std::string ZeltoGenerator::shown(std::string_view output) const {
    const CodePage codePage =
        chooseCodePage(settings_.readRegValue(kSettingsKey, kAnsiCodePage), localeName());
    return plainLines(decodeText(std::string(output), codePage));
}

std::chrono::seconds ZeltoGenerator::timeLimit() const {
    const auto number = toNumber(userSetting(settings_, kGeneratorTimeLimit));
    const auto seconds = number ? toInteger(*number, 1, kLongestTimeLimit) : std::nullopt;
    return seconds ? std::chrono::seconds(*seconds) : kUsualTimeLimit;
}

/// What the generator's output does not contain; each sentence on a separate line.
std::string ZeltoGenerator::describe(const std::vector<std::string>& arguments,
                                     const ProcessOutcome& outcome) const {
    using End = ProcessOutcome::End;
    std::vector<std::string> sentences;
    if (outcome.droppedBytes > 0)
        sentences.push_back("... " + std::to_string(outcome.droppedBytes) + " more bytes are not shown.");
    const bool configured = !commandWords(userSetting(settings_, kGeneratorCommand)).empty();
    if (outcome.end == End::NotStarted && outcome.number == ENOENT && !configured) {
        sentences.push_back(
            "There is no generator of driver plug-ins: the setting GeneratorCommand names none, "
            "and no program ZeltoGenerator is on the path.");
    } else if (outcome.end == End::NotStarted) {
        sentences.push_back("The generator " + arguments.front() +
                            " cannot be started: " + describeSystemError(outcome.number));
    } else if (outcome.end == End::TimedOut) {
        sentences.push_back("The generator was ended because it ran for more than " + inSeconds(timeLimit()) +
                            ".");
    } else if (outcome.end == End::Stopped) {
        sentences.emplace_back("The generator was stopped.");
    } else if (outcome.end == End::Signalled) {
        sentences.push_back("The generator was ended by signal " + describeSignal(outcome.number) + ".");
    } else if (outcome.number != 0) {
        sentences.push_back("The generator failed with exit status " + std::to_string(outcome.number) + ".");
    } else if (outcome.output.empty()) {
        sentences.push_back("The generator has ended well and said nothing.");
    }
    return join(sentences, "\r\n");
}

} // namespace zb
