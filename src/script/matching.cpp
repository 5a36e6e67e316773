#include "script/matching.h"

#include "platform/printable.h"
#include "platform/text.h"

#include <nlohmann/json.hpp>

namespace zb {

namespace {

constexpr std::string_view kAnything = "...";

bool sameLine(const BlockLine& expected, std::string_view found) {
    const auto wanted = trimRight(expected.text);
    // Blanks after the "-" of a blank line are ignored too.
    return (!expected.quoted && wanted == "-" ? "" : wanted) == trimRight(found);
}

/// The length of the common start of the block and the lines, as a position in both.
std::size_t agreement(const std::vector<BlockLine>& expected, const std::vector<std::string>& found) {
    std::size_t at = 0;
    while (at < expected.size() && at < found.size() && !expected[at].isAnything() &&
           sameLine(expected[at], found[at]))
        ++at;
    return at;
}

} // namespace

bool matchLines(const std::vector<BlockLine>& expected, const std::vector<std::string>& found) {
    // The last `...` takes another line whenever the text after it does not match; earlier ones need not be
    // tried again, since the last one can take everything that they could.
    std::size_t wanted = 0;
    std::size_t at = 0;
    std::size_t resumeWanted = std::string::npos;
    std::size_t resumeAt = 0;
    while (at < found.size()) {
        if (wanted < expected.size() && expected[wanted].isAnything()) {
            resumeWanted = ++wanted;
            resumeAt = at;
        } else if (wanted < expected.size() && sameLine(expected[wanted], found[at])) {
            ++wanted;
            ++at;
        } else if (resumeWanted != std::string::npos) {
            wanted = resumeWanted;
            at = ++resumeAt;
        } else {
            return false;
        }
    }
    while (wanted < expected.size() && expected[wanted].isAnything())
        ++wanted;
    return wanted == expected.size();
}

std::string describeMismatch(const std::vector<BlockLine>& expected, const std::vector<std::string>& found) {
    const std::size_t at = agreement(expected, found);
    std::string wanted = "the end";
    if (at < expected.size())
        wanted = expected[at].isAnything() ? "the rest of the block somewhere" : quote(expected[at].text);
    std::string text = "expected " + wanted + " in line " + std::to_string(at + 1) + ", found " +
                       (at < found.size() ? quote(found[at]) : std::string("the end")) + " in";
    for (const std::string& line : found)
        text += "\n  " + (contains(line, "\n") || contains(line, "\r") ? quote(line) : sanitizeUtf8(line));
    return found.empty() ? text + " nothing at all" : text;
}

bool matchText(std::string_view pattern, std::string_view text) {
    const auto pieces = split(pattern, kAnything);
    if (pieces.size() < 2)
        return pattern == text;
    if (!text.starts_with(pieces.front()))
        return false;
    text.remove_prefix(pieces.front().size());
    for (std::size_t i = 1; i + 1 < pieces.size(); ++i) {
        const auto at = text.find(pieces[i]);
        if (at == std::string_view::npos)
            return false;
        text.remove_prefix(at + pieces[i].size());
    }
    return text.ends_with(pieces.back());
}

std::string quote(std::string_view text) {
    return printableJson(
        nlohmann::json(std::string(text)).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

} // namespace zb
