#include "platform/printable.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "script/command_rules.h"
#include "script/matching.h"
#include "script/script_failure.h"
#include "script/script_files.h"
#include "script/xml_check.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <ostream>
#include <pugixml.hpp>

namespace zb {

namespace {

using Context = ScriptContext;
using Call = CommandCall;

constexpr auto kNoBlock = BlockKind::None;

std::string textOf(Context& context, const std::string& path) {
    return readFileText(path, context.program.codePage());
}

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    LineReader reader(text);
    while (const auto line = reader.next())
        lines.emplace_back(*line);
    return lines;
}

void expectFile(Context& context, const Call& call) {
    const auto lines = linesOf(textOf(context, call.word(0)));
    if (!matchLines(call.command.lines, lines))
        throw ScriptFailure(describeMismatch(call.command.lines, lines));
}

void expectContains(Context& context, const Call& call) {
    const std::string text = textOf(context, call.word(0));
    if (!contains(text, call.word(1)))
        throw ScriptFailure(quote(call.word(1)) + " in " + call.word(0), quote(text));
}

void expectLacks(Context& context, const Call& call) {
    const std::string text = textOf(context, call.word(0));
    if (contains(text, call.word(1)))
        throw ScriptFailure("no " + quote(call.word(1)) + " in " + call.word(0), quote(text));
}

std::string hexOf(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string hex;
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        hex += kDigits[value / 16U];
        hex += kDigits[value % 16U];
    }
    return hex;
}

void expectBytes(Context& /*context*/, const Call& call) {
    std::string wanted;
    for (const char digit : call.word(1)) {
        if (std::isxdigit(static_cast<unsigned char>(digit)) != 0)
            wanted += static_cast<char>(std::toupper(static_cast<unsigned char>(digit)));
        else if (digit != ' ')
            throw ScriptFailure("bytes as pairs of hexadecimal digits", call.word(1));
    }
    if (wanted.size() % 2 != 0)
        throw ScriptFailure("bytes as pairs of hexadecimal digits", call.word(1));
    const std::string found =
        hexOf(std::string_view(readFileBytes(call.word(0))).substr(0, wanted.size() / 2));
    if (found != wanted)
        throw ScriptFailure(call.word(0) + " to begin with " + wanted,
                            found.empty() ? "an empty file" : found);
}

std::size_t elementsOf(const pugi::xml_node& parent) {
    const auto children = parent.children();
    return static_cast<std::size_t>(
        std::count_if(children.begin(), children.end(),
                      [](const pugi::xml_node& child) { return child.type() == pugi::node_element; }));
}

void expectXml(Context& /*context*/, const Call& call) {
    const std::string bytes = readFileBytes(call.word(0));
    pugi::xml_document document;
    constexpr unsigned kOptions =
        pugi::parse_default | pugi::parse_ws_pcdata | pugi::parse_comments | pugi::parse_pi;
    const auto parsed = document.load_buffer(bytes.data(), bytes.size(), kOptions);
    if (!parsed)
        throw ScriptFailure("well-formed XML in " + call.word(0),
                            std::string(parsed.description()) + " at byte " + std::to_string(parsed.offset));
    if (const auto roots = elementsOf(document); roots != 1)
        throw ScriptFailure("well-formed XML in " + call.word(0),
                            std::to_string(roots) + " elements at its root");
    if (const std::string fault = findXmlFault(bytes); !fault.empty())
        throw ScriptFailure("well-formed XML in " + call.word(0), fault);
    std::string found;
    try {
        found = pugi::xpath_query(call.word(1).c_str()).evaluate_string(document);
    } catch (const pugi::xpath_exception& fault) {
        throw ScriptFailure("an XPath expression", call.word(1) + " (" + fault.what() + ")");
    }
    if (found != call.word(2))
        throw ScriptFailure(call.word(1) + " to be " + quote(call.word(2)), quote(found));
}

void expectFolder(Context& /*context*/, const Call& call) {
    std::error_code error;
    if (!std::filesystem::is_directory(call.word(0), error))
        throw ScriptFailure("a folder " + call.word(0), std::filesystem::exists(call.word(0), error)
                                                            ? "something else"
                                                            : "nothing there");
}

void expectNoFile(Context& /*context*/, const Call& call) {
    std::error_code error;
    const auto kind = std::filesystem::symlink_status(call.word(0), error).type();
    if (kind == std::filesystem::file_type::directory)
        throw ScriptFailure("nothing at " + call.word(0), "a folder");
    if (kind != std::filesystem::file_type::not_found)
        throw ScriptFailure("nothing at " + call.word(0), "a file");
}

void cat(Context& context, const Call& call) {
    for (const std::string& line : linesOf(textOf(context, call.word(0))))
        context.out << printableLines(line) << '\n';
}

constexpr std::array kCommands{
    CommandRule{"expectfile", 1, 1, BlockKind::Lines, expectFile},
    CommandRule{"expectcontains", 2, 2, kNoBlock, expectContains},
    CommandRule{"expectlacks", 2, 2, kNoBlock, expectLacks},
    CommandRule{"expectbytes", 2, 2, kNoBlock, expectBytes},
    CommandRule{"expectxml", 3, 3, kNoBlock, expectXml},
    CommandRule{"expectfolder", 1, 1, kNoBlock, expectFolder},
    CommandRule{"expectnofile", 1, 1, kNoBlock, expectNoFile},
    CommandRule{"cat", 1, 1, kNoBlock, cat},
};

} // namespace

std::span<const CommandRule> fileLookingCommands() {
    return kCommands;
}

} // namespace zb
