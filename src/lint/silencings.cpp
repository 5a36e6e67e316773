#include "lint/silencings.h"

#include "lint/rule.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>

namespace zb {

namespace {

constexpr char kQuote = '"';
constexpr std::size_t kMostWords = 3;
constexpr std::string_view kStandardLine = "check standard";

std::string keyOf(std::string_view selector, std::string_view message, std::string_view item) {
    // A message may have any characters in its name: only its length says where the item begins.
    std::string key(selector);
    return key.append(1, '\n')
        .append(std::to_string(message.size()))
        .append(1, '\n')
        .append(message)
        .append(item);
}

std::string keyOf(const Silencing& silencing) {
    return keyOf(silencing.selector, silencing.message, silencing.item);
}

/// The text of a word between quotation marks; takes it off `rest`.
std::optional<std::string> takeQuoted(std::string_view& rest) {
    std::size_t end = 1;
    while (end < rest.size() && rest[end] != kQuote)
        end += rest[end] == '\\' ? 2 : 1;
    if (end >= rest.size())
        return std::nullopt;
    const auto word = nlohmann::json::parse(rest.substr(0, end + 1), nullptr, false);
    rest.remove_prefix(end + 1);
    return word.is_string() && (rest.empty() || rest.front() == ' ') ? std::optional(word.get<std::string>())
                                                                     : std::nullopt;
}

std::optional<Silencing> silencingOf(std::string_view line) {
    std::vector<std::string> words;
    for (std::string_view rest = trimmed(line); !rest.empty(); rest = trimmed(rest)) {
        if (words.size() == kMostWords)
            return std::nullopt;
        if (rest.front() == kQuote) {
            auto word = takeQuoted(rest);
            if (!word)
                return std::nullopt;
            words.push_back(std::move(*word));
            continue;
        }
        const std::string_view word = before(rest, " ");
        words.emplace_back(word);
        rest.remove_prefix(word.size());
    }
    if (words.empty() || words.front().starts_with('#') || !selectsAnything(words.front()))
        return std::nullopt;
    words.resize(kMostWords);
    return Silencing{words[0], words[1], words[2]};
}

std::string wordOf(const std::string& text) {
    const bool isPlain =
        !text.empty() && text.front() != '#' && isAscii(text) &&
        std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c != kQuote && c != '\x7F'; });
    if (isPlain)
        return text;
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string lineOf(const Silencing& silencing) {
    std::string line = wordOf(silencing.selector);
    if (!silencing.message.empty() || !silencing.item.empty())
        line += " " + wordOf(silencing.message);
    if (!silencing.item.empty())
        line += " " + wordOf(silencing.item);
    return line;
}

/// What a silencing of the rule may begin with.
std::vector<std::string_view> selectorsOf(const Rule& rule) {
    std::vector<std::string_view> selectors{categoryName(rule.category), rule.id};
    for (std::size_t point = rule.id.find('.'); point != std::string_view::npos;
         point = rule.id.find('.', point + 1))
        selectors.push_back(rule.id.substr(0, point));
    return selectors;
}

bool isStandardLine(std::string_view line) {
    return splitAtBlanks(line) == splitAtBlanks(kStandardLine);
}

} // namespace

Silencing Silencing::placeOf(const Finding& finding) {
    const std::string& item = finding.place.item;
    return {finding.id, finding.place.message, item.empty() ? std::string(kMessageItself) : item};
}

Silencings Silencings::parse(std::string_view text) {
    Silencings silencings;
    LineReader reader(text);
    while (const auto line = reader.next()) {
        silencings.lines_.emplace_back(*line);
        if (const auto silencing = silencingOf(*line)) {
            silencings.keys_.insert(keyOf(*silencing));
            silencings.selectors_.insert(silencing->selector);
        }
    }
    return silencings;
}

std::string Silencings::text() const {
    std::string text;
    for (const std::string& line : lines_)
        text.append(line).append("\n");
    return text;
}

bool Silencings::silences(const Finding& finding) const {
    return !keys_.empty() && !of(finding).empty();
}

std::vector<Silencing> Silencings::of(const Finding& finding) const {
    std::vector<Silencing> found;
    const Rule* rule = findRule(finding.id);
    if (rule == nullptr)
        return found;
    const Silencing place = Silencing::placeOf(finding);
    for (const std::string_view selector : selectorsOf(*rule)) {
        if (!selectors_.contains(selector))
            continue;
        const std::string word(selector);
        for (Silencing silencing : {Silencing{word, {}, {}}, Silencing{word, place.message, {}},
                                    Silencing{word, place.message, place.item}})
            if (keys_.contains(keyOf(silencing)))
                found.push_back(std::move(silencing));
    }
    return found;
}

void Silencings::add(const Silencing& silencing) {
    selectors_.insert(silencing.selector);
    if (keys_.insert(keyOf(silencing)).second)
        lines_.push_back(lineOf(silencing));
}

void Silencings::remove(const Silencing& silencing) {
    std::erase_if(lines_, [&](const std::string& line) {
        const auto found = silencingOf(line);
        return found && *found == silencing;
    });
    keys_.erase(keyOf(silencing));
}

std::vector<Silencing> Silencings::all() const {
    std::vector<Silencing> all;
    for (const std::string& line : lines_)
        if (auto silencing = silencingOf(line))
            all.push_back(std::move(*silencing));
    return all;
}

bool Silencings::asksForStandard() const {
    return std::any_of(lines_.begin(), lines_.end(), isStandardLine);
}

void Silencings::askForStandard(bool ask) {
    if (!ask)
        std::erase_if(lines_, isStandardLine);
    else if (!asksForStandard())
        lines_.emplace_back(kStandardLine);
}

std::string silencingsPath(const std::string& projectPath) {
    return std::filesystem::path(projectPath).replace_extension(".zbcheck").string();
}

} // namespace zb
