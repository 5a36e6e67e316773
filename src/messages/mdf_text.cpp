#include "messages/mdf_text.h"

#include "messages/item_grammar.h"
#include "messages/smd/smd_text_parser.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace zb {

namespace {

constexpr std::string_view kFirstLine = "MDF 1";

/// Keeps a text on its line, and the blanks at its ends.
std::string escaped(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool atEnd = i == 0 || i + 1 == text.size();
        switch (text[i]) {
        case '\\':
            line += "\\\\";
            break;
        case '\r':
            line += "\\r";
            break;
        case '\n':
            line += "\\n";
            break;
        case '\t':
            line += "\\t";
            break;
        case ' ':
            line += atEnd ? "\\s" : " ";
            break;
        default:
            line += text[i];
        }
    }
    return line;
}

std::string unescaped(std::string_view line) {
    std::string text;
    text.reserve(line.size());
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] != '\\' || i + 1 == line.size()) {
            text += line[i];
            continue;
        }
        switch (line[++i]) {
        case 'r':
            text += '\r';
            break;
        case 'n':
            text += '\n';
            break;
        case 't':
            text += '\t';
            break;
        case 's':
            text += ' ';
            break;
        default:
            text += line[i];
        }
    }
    return text;
}

std::string_view marksOf(const SECSMessageRecord& record) {
    const std::string_view nodeText = record.getNodeText();
    const std::size_t colon = nodeText.find(": ");
    return colon == std::string_view::npos ? std::string_view() : nodeText.substr(colon + 2);
}

// A tab that belongs to a text is written as an escape; a tab in the file separates words, like a blank.
constexpr std::string_view kBlanks = " \t";

std::string_view withoutBlanks(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
    text.remove_prefix(first);
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

std::string_view takeField(std::string_view& rest) {
    const std::size_t end = std::min(rest.find_first_of(kBlanks), rest.size());
    const std::string_view field = rest.substr(0, end);
    rest = withoutBlanks(rest.substr(end));
    return field;
}

std::string headOf(std::string_view field) {
    std::string head(field);
    std::replace(head.begin(), head.end(), '\t', ' ');
    return unescaped(head);
}

/// Text written by the program is taken unchanged; tabs and types in lower case come from other sources.
std::string itemOf(std::string_view field) {
    const std::string_view type = field.substr(0, field.find_first_of(kBlanks));
    const bool isForeign = field.find('\t') != std::string_view::npos ||
                           std::any_of(type.begin(), type.end(), [](char c) { return c >= 'a' && c <= 'z'; });
    return isForeign ? unescaped(cleanItemText(field)) : unescaped(field);
}

/// Collects the lines of one message until the next one begins.
class MdfReader {
public:
    MdfReader(Findings& findings, std::vector<SECSMessageRecord>& records)
        : findings_(findings), records_(records) {}

    void line(std::string_view line, std::size_t number) {
        number_ = number;
        std::string_view rest = line;
        const std::string_view keyword = takeField(rest);
        if (keyword == "MESSAGE")
            begin(rest);
        else if (!open_)
            tell("\"MESSAGE\" was expected");
        else if (keyword == "DESCRIPTION")
            description_ = unescaped(rest);
        else if (keyword == "HEAD")
            head_ = headOf(rest);
        else if (keyword == "ITEM")
            item(rest);
        else if (keyword == "END")
            finish();
        else
            tell("\"" + std::string(keyword) + "\" is no keyword");
    }

    void finish() {
        if (!open_)
            return;
        open_ = false;
        SECSMessageRecord record;
        const std::string status = record.parseTexts(name_ + ": " + head_, description_, body_);
        if (status.empty())
            records_.push_back(std::move(record));
        else
            findings_.push_back({Severity::Error, FindingPlace::atLine(start_), status});
    }

    void end() {
        if (open_)
            findings_.push_back(
                {Severity::Warning, FindingPlace::atLine(start_), "The message does not end with \"END\""});
        finish();
    }

private:
    void begin(std::string_view name) {
        end();
        open_ = true;
        start_ = number_;
        name_ = unescaped(name);
        description_.clear();
        head_.clear();
        body_.clear();
        level_ = 0;
    }

    void item(std::string_view rest) {
        const std::string_view word = takeField(rest);
        int level = 0;
        const auto [last, error] = std::from_chars(word.data(), word.data() + word.size(), level);
        if (error != std::errc() || last != word.data() + word.size() || level < 1 || level > level_ + 1 ||
            level > kDeepestLevel) {
            tell("The level of the item does not follow from the line before");
            level = level_ == 0 ? 1 : level_;
        }
        const std::string text = itemOf(rest);
        SECSItemRecord record;
        if (const std::string status = record.parseText(text); !status.empty())
            tell(status + ": " + text);
        level_ = level;
        body_.append(std::to_string(level)).append(" ").append(text).append("\r\n");
    }

    void tell(std::string text) {
        findings_.push_back({Severity::Error, FindingPlace::atLine(number_), std::move(text)});
    }

    Findings& findings_;
    std::vector<SECSMessageRecord>& records_;
    std::size_t number_ = 0;
    std::size_t start_ = 0;
    bool open_ = false;
    std::string name_;
    std::string description_;
    std::string head_;
    std::string body_;
    int level_ = 0;
};

void appendMessage(std::string& text, const SECSMessageRecord& record) {
    text.append("\r\nMESSAGE ").append(escaped(record.getName())).append("\r\n");
    text.append("DESCRIPTION ").append(escaped(record.getDescription())).append("\r\n");
    text.append("HEAD ").append(escaped(marksOf(record))).append("\r\n");
    const std::string body = record.getBodyText();
    LineReader lines(body);
    while (const std::optional<std::string_view> line = lines.next()) {
        std::string_view item = *line;
        const std::string_view level = takeWord(item);
        text.append("ITEM ").append(level).append(" ").append(escaped(item)).append("\r\n");
    }
    text.append("END\r\n");
}

} // namespace

std::string composeMdf(const std::vector<const SECSMessageRecord*>& records) {
    std::string text = std::string(kFirstLine) + "\r\n";
    for (const SECSMessageRecord* record : records)
        appendMessage(text, *record);
    return text;
}

std::vector<SECSMessageRecord> parseMdf(std::string_view text, Findings& findings, const Progress& progress) {
    std::vector<SECSMessageRecord> records;
    MdfReader reader(findings, records);
    LineReader lines(text);
    bool begun = false;
    while (const std::optional<std::string_view> line = lines.next()) {
        progress.at(static_cast<std::size_t>(line->data() - text.data()), text.size());
        const std::string_view content = withoutBlanks(*line);
        if (content.empty())
            continue;
        const bool isFirst = !std::exchange(begun, true);
        if (isFirst && content == kFirstLine)
            continue;
        if (isFirst)
            findings.push_back({Severity::Error, FindingPlace::atLine(lines.lineNumber()),
                                "The first line is not \"MDF 1\""});
        reader.line(content, lines.lineNumber());
    }
    reader.end();
    return records;
}

} // namespace zb
