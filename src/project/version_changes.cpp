#include "project/version_changes.h"

#include <cstddef>
#include <unordered_map>

namespace zb {

namespace {

constexpr std::string_view kSection = "## [EDIT SMD]";

// A message begins with the line of its description.
using Messages = std::unordered_map<std::string_view, std::string_view>;

std::string_view lineAt(std::string_view text, std::size_t begin) {
    const auto end = text.find('\n', begin);
    return text.substr(begin, end == std::string_view::npos ? end : end + 1 - begin);
}

std::string_view nameOf(std::string_view message) {
    const std::string_view description = lineAt(message, 0);
    const std::string_view head = lineAt(message, description.size());
    return head.substr(0, head.find(':'));
}

Messages messagesOf(std::string_view text) {
    Messages messages;
    std::size_t at = 0;
    bool inSection = false;
    std::size_t begin = std::string_view::npos;
    const auto end = [&](std::size_t place) {
        if (begin != std::string_view::npos) {
            const std::string_view message = text.substr(begin, place - begin);
            messages.emplace(nameOf(message), message);
        }
        begin = std::string_view::npos;
    };
    while (at < text.size()) {
        const std::string_view line = lineAt(text, at);
        if (line.starts_with("##")) {
            end(at);
            inSection = line.starts_with(kSection);
        } else if (inSection && line.starts_with("* ")) {
            end(at);
            begin = at;
        }
        at += line.size();
    }
    end(text.size());
    return messages;
}

} // namespace

std::string describeChanges(std::string_view older, std::string_view newer) {
    const Messages before = messagesOf(older);
    const Messages after = messagesOf(newer);
    std::size_t added = 0;
    std::size_t changed = 0;
    for (const auto& [name, text] : after) {
        const auto found = before.find(name);
        if (found == before.end())
            ++added;
        else if (found->second != text)
            ++changed;
    }
    const std::size_t removed = before.size() + added - after.size();
    std::string words;
    const auto say = [&](std::size_t count, const char* verb) {
        if (count == 0)
            return;
        if (words.empty())
            words = std::to_string(count) + (count == 1 ? " message " : " messages ") + verb;
        else
            words += ", " + std::to_string(count) + " " + verb;
    };
    say(added, "added");
    say(changed, "changed");
    say(removed, "removed");
    if (!words.empty())
        return words;
    return older == newer ? "nothing changed" : "no message changed";
}

} // namespace zb
