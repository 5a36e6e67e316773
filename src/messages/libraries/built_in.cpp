#include "messages/libraries/built_in.h"

#include "messages/libraries/library_texts.h"

#include <array>
#include <cassert>
#include <string_view>
#include <unordered_map>

namespace zb {

namespace {

using Messages = std::span<const std::string_view>;
using MessagesByName = std::unordered_map<std::string_view, std::string_view>;

constexpr std::string_view kBanner =
    "**********************************************************************\r\n";
static_assert(kBanner.size() == 70 + 2);

std::array<Messages, 3> semiBlocks() {
    return {libraries::kSemi1To6, libraries::kSemi7To14, libraries::kSemi15To17};
}

// Removes the first line from `text` and returns it without its line end.
std::string_view takeLine(std::string_view& text) {
    const auto end = text.find('\n');
    const auto line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

void appendLine(std::string& out, std::string_view line) {
    out.append(line).append("\r\n");
}

void appendMessage(std::string& out, std::string_view message) {
    out += kBanner;
    appendLine(out, takeLine(message));
    out += kBanner;
    while (!message.empty())
        appendLine(out, takeLine(message));
}

std::string composeBlock(Messages messages) {
    std::string out;
    for (const auto message : messages)
        appendMessage(out, message);
    return out;
}

std::string_view nameOf(std::string_view message) {
    takeLine(message);
    return message.substr(0, message.find(':'));
}

MessagesByName indexByName() {
    MessagesByName byName;
    for (const auto block : semiBlocks())
        for (const auto message : block)
            byName.emplace(nameOf(message), message);
    return byName;
}

} // namespace

std::string gemLibraryText() {
    const auto byName = indexByName();
    std::string out;
    auto names = libraries::kGem.front();
    while (!names.empty()) {
        const auto found = byName.find(takeLine(names));
        assert(found != byName.end() && "gem.txt names a message that no SEMI file holds");
        if (found != byName.end())
            appendMessage(out, found->second);
    }
    return out;
}

std::vector<std::string> semiLibraryBlocks() {
    std::vector<std::string> blocks;
    for (const auto block : semiBlocks())
        blocks.push_back(composeBlock(block));
    return blocks;
}

} // namespace zb
