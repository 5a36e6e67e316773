#include "script/script_text.h"

#include "platform/text.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>

namespace zb {

namespace {

// Deeper nesting is not useful, and the parser is recursive.
constexpr int kMostNesting = 50;
constexpr std::string_view kBlanks = " \t";

std::string_view stripped(std::string_view line) {
    const auto first = line.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return line.substr(first, line.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string_view> linesOf(std::string_view text) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (text.starts_with(kMark))
        text.remove_prefix(kMark.size());
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

/// The number of bytes of the JSON string at the start of the text; 0 when it does not end.
std::size_t jsonStringLength(std::string_view text) {
    for (std::size_t at = 1; at < text.size(); ++at) {
        if (text[at] == '\\')
            ++at;
        else if (text[at] == '"')
            return at + 1;
    }
    return 0;
}

std::optional<std::string> jsonString(std::string_view text) {
    const auto value = nlohmann::json::parse(text, nullptr, false);
    return value.is_string() ? std::optional(value.get<std::string>()) : std::nullopt;
}

class Parser {
public:
    Parser(std::string_view text, BlockKinds blockOf) : lines_(linesOf(text)), blockOf_(blockOf) {}

    std::vector<ScriptCommand> parseAll() {
        std::vector<ScriptCommand> commands;
        while (next_ < lines_.size()) {
            if (const auto command = parseCommand(0))
                commands.push_back(*command);
        }
        return commands;
    }

private:
    std::optional<ScriptCommand> parseCommand(int depth) {
        const std::string_view line = stripped(lines_[next_++]);
        if (line.empty() || line.front() == '#')
            return std::nullopt;
        ScriptCommand command;
        command.line = next_;
        command.fault = splitWords(line, command.words);
        if (!command.fault.empty())
            return command;
        const BlockKind block = blockOf_(command.name());
        if (block == BlockKind::Lines)
            takeLines(command);
        else if (block == BlockKind::Commands)
            takeCommands(command, depth);
        return command;
    }

    static std::string splitWords(std::string_view line, std::vector<std::string>& words) {
        if (!isValidUtf8(line))
            return "expected text in UTF-8, found other bytes";
        while (!line.empty()) {
            if (line.front() != '"') {
                const auto end = std::min(line.find_first_of(kBlanks), line.size());
                words.emplace_back(line.substr(0, end));
                line = stripped(line.substr(end));
                continue;
            }
            const std::size_t length = jsonStringLength(line);
            const auto word = jsonString(line.substr(0, length));
            if (!word)
                return "expected a JSON string, found " + std::string(line);
            if (length < line.size() && kBlanks.find(line[length]) == std::string_view::npos)
                return "expected a blank after the string, found " + std::string(line.substr(length));
            words.push_back(*word);
            line = stripped(line.substr(length));
        }
        return {};
    }

    void takeLines(ScriptCommand& command) {
        std::vector<std::string_view> raw;
        while (next_ < lines_.size() && stripped(lines_[next_]) != "end")
            raw.push_back(lines_[next_++]);
        if (!takeEnd(command))
            return;
        std::size_t indentation = std::string_view::npos;
        for (const std::string_view line : raw)
            indentation = std::min(indentation, line.find_first_not_of(kBlanks));
        for (const std::string_view line : raw) {
            command.fault = takeLine(line.substr(std::min(indentation, line.size())), command.lines);
            if (!command.fault.empty())
                return;
        }
    }

    static std::string takeLine(std::string_view line, std::vector<BlockLine>& lines) {
        if (!isValidUtf8(line))
            return "expected text in UTF-8 in the block, found other bytes";
        if (line == "-") {
            lines.push_back({});
        } else if (line.starts_with('"')) {
            const auto text = jsonString(line);
            if (!text)
                return "expected a JSON string in the block, found " + std::string(line);
            lines.push_back({*text, true});
        } else {
            lines.push_back({std::string(line), false});
        }
        return {};
    }

    void takeCommands(ScriptCommand& command, int depth) {
        if (depth >= kMostNesting) {
            command.fault =
                "expected at most " + std::to_string(kMostNesting) + " blocks in one another, found more";
            next_ = lines_.size();
            return;
        }
        while (next_ < lines_.size() && stripped(lines_[next_]) != "end") {
            if (const auto inner = parseCommand(depth + 1))
                command.commands.push_back(*inner);
        }
        takeEnd(command);
    }

    bool takeEnd(ScriptCommand& command) {
        if (next_ == lines_.size()) {
            command.fault =
                "expected a line \"end\" after " + command.name() + ", found the end of the script";
            return false;
        }
        command.endLine = ++next_;
        return true;
    }

    std::vector<std::string_view> lines_;
    BlockKinds blockOf_;
    std::size_t next_ = 0;
};

} // namespace

bool BlockLine::isAnything() const {
    return !quoted && stripped(text) == "...";
}

std::vector<ScriptCommand> parseScript(std::string_view text, BlockKinds blockOf) {
    return Parser(text, blockOf).parseAll();
}

} // namespace zb
