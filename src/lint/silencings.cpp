#include "lint/silencings.h"

#include "lint/rule.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

namespace zb {

namespace {

constexpr char kQuote = '"';
constexpr std::size_t kMostWords = 3;
constexpr std::string_view kStandardLine = "check standard";

/// A message may have any characters in its name: only its length says where the item begins.
std::string placeKey(std::string_view message, std::string_view item) {
    return std::to_string(message.size()).append(1, '\n').append(message).append(item);
}

std::string_view itemOf(const Finding& finding) {
    return finding.place.item.empty() ? kMessageItself : std::string_view(finding.place.item);
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

/// Calls `visit` with what a silencing of the rule may begin with, until it returns true.
template<typename Visit>
bool anySelectorOf(const Rule& rule, const Visit& visit) {
    if (visit(categoryName(rule.category)) || visit(rule.id))
        return true;
    for (std::size_t point = rule.id.find('.'); point != std::string_view::npos;
         point = rule.id.find('.', point + 1)) {
        if (visit(rule.id.substr(0, point)))
            return true;
    }
    return false;
}

bool isStandardLine(std::string_view line) {
    return splitAtBlanks(line) == splitAtBlanks(kStandardLine);
}

} // namespace

Silencing Silencing::placeOf(const Finding& finding) {
    return {finding.id, finding.place.message, std::string(itemOf(finding))};
}

Silencings Silencings::parse(std::string_view text) {
    Silencings silencings;
    LineReader reader(text);
    while (auto line = reader.next()) {
        // Returns at the end of a line would be taken for a part of its end when the file is read again.
        line->remove_suffix(line->size() - (line->find_last_not_of('\r') + 1));
        silencings.lines_.emplace_back(*line);
        if (const auto silencing = silencingOf(*line))
            silencings.insert(*silencing);
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
    const Rule* rule = selected_.empty() ? nullptr : findRule(finding.id);
    std::string key;
    return rule != nullptr && anySelectorOf(*rule, [&](std::string_view selector) {
               const auto found = selected_.find(selector);
               if (found == selected_.end())
                   return false;
               const Selected& selected = found->second;
               if (selected.all || selected.messages.contains(finding.place.message))
                   return true;
               if (key.empty())
                   key = placeKey(finding.place.message, itemOf(finding));
               return selected.places.contains(key);
           });
}

std::vector<Silencing> Silencings::of(const Finding& finding) const {
    std::vector<Silencing> found;
    const Rule* rule = findRule(finding.id);
    if (rule == nullptr)
        return found;
    const Silencing place = Silencing::placeOf(finding);
    anySelectorOf(*rule, [&](std::string_view selector) {
        const auto entry = selected_.find(selector);
        if (entry == selected_.end())
            return false;
        const auto& [word, selected] = *entry;
        if (selected.all)
            found.push_back({word, {}, {}});
        if (selected.messages.contains(place.message))
            found.push_back({word, place.message, {}});
        if (selected.places.contains(placeKey(place.message, place.item)))
            found.push_back({word, place.message, place.item});
        return false;
    });
    return found;
}

bool Silencings::insert(const Silencing& silencing) {
    Selected& selected = selected_[silencing.selector];
    if (!silencing.item.empty())
        return selected.places.insert(placeKey(silencing.message, silencing.item)).second;
    if (!silencing.message.empty())
        return selected.messages.insert(silencing.message).second;
    return !std::exchange(selected.all, true);
}

void Silencings::add(const Silencing& silencing) {
    if (insert(silencing))
        lines_.push_back(lineOf(silencing));
}

void Silencings::remove(const Silencing& silencing) {
    std::erase_if(lines_, [&](const std::string& line) {
        const auto found = silencingOf(line);
        return found && *found == silencing;
    });
    const auto found = selected_.find(silencing.selector);
    if (found == selected_.end())
        return;
    if (!silencing.item.empty())
        found->second.places.erase(placeKey(silencing.message, silencing.item));
    else if (!silencing.message.empty())
        found->second.messages.erase(silencing.message);
    else
        found->second.all = false;
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
