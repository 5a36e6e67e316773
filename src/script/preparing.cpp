#include "platform/text_file.h"
#include "script/command_rules.h"
#include "script/matching.h"
#include "script/script_failure.h"
#include "script/script_files.h"
#include "script/setting_names.h"

#include <array>
#include <filesystem>
#include <string>

namespace zb {

namespace {

namespace fs = std::filesystem;

using Context = ScriptContext;
using Call = CommandCall;

constexpr auto kNoBlock = BlockKind::None;

void setting(Context& context, const Call& call) {
    checkSettingName(call.word(0));
    context.program.setSetting(call.word(0), call.word(1));
}

void makeFolders(const fs::path& path) {
    std::error_code error;
    if (!path.empty())
        fs::create_directories(path, error);
    if (error)
        throw ScriptFailure("a folder " + path.string(), error.message());
}

void mkdir(Context& /*context*/, const Call& call) {
    makeFolders(call.word(0));
    std::error_code error;
    if (!fs::is_directory(call.word(0), error))
        throw ScriptFailure("a folder " + call.word(0), "something else");
}

void writeFile(Context& context, const Call& call) {
    const std::string& path = call.word(0);
    const std::string encoding =
        call.count() == 2 ? call.word(1) : (path.ends_with(".zbp") ? "utf16" : "utf8");
    std::string text;
    for (const BlockLine& line : call.command.lines)
        text += line.text + "\r\n";
    if (encoding == "utf16")
        writeFileBytes(path, encodeUtf16(text));
    else if (encoding == "utf8")
        writeFileBytes(path, text);
    else if (encoding == "ansi")
        writeFileBytes(path, context.program.codePage().fromUtf8(text));
    else
        throw ScriptFailure("utf8, utf16 or ansi", encoding);
}

/// Whether the path, with links above it resolved, is inside the folder.
bool liesBelow(const fs::path& path, const fs::path& folder) {
    std::error_code error;
    const fs::path parent = fs::weakly_canonical(fs::absolute(path).parent_path(), error);
    const fs::path name = path.filename();
    if (error || name.empty() || name == "." || name == "..")
        return false;
    const fs::path relative = parent.lexically_relative(fs::weakly_canonical(folder, error));
    return !error && !relative.empty() && *relative.begin() != "..";
}

/// A copy of a read-only file, such as a checked-out sample, must be writable for the program.
void copyFile(const fs::path& from, const fs::path& to, std::error_code& error) {
    fs::copy_file(from, to, fs::copy_options::overwrite_existing, error);
    if (!error)
        fs::permissions(to, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add, error);
}

void copyFolder(const fs::path& from, const fs::path& to, std::error_code& error) {
    makeFolders(to);
    for (fs::directory_iterator entry(from, error); !error && entry != fs::end(entry);) {
        const fs::path target = to / entry->path().filename();
        if (entry->is_directory(error))
            copyFolder(entry->path(), target, error);
        else if (!error)
            copyFile(entry->path(), target, error);
        if (!error)
            entry.increment(error);
    }
}

void copy(Context& /*context*/, const Call& call) {
    const fs::path source = call.word(0);
    const fs::path target = call.word(1);
    std::error_code error;
    const bool isFolder = fs::is_directory(source, error);
    // Otherwise the copy would itself be copied, without an end.
    if (isFolder && liesBelow(target, source))
        throw ScriptFailure("a target outside " + call.word(0), call.word(1));
    makeFolders(target.parent_path());
    if (isFolder)
        copyFolder(source, target, error);
    else
        copyFile(source, fs::is_directory(target, error) ? target / source.filename() : target, error);
    if (error)
        throw ScriptFailure("a copy of " + call.word(0) + " at " + call.word(1), error.message());
}

void remove(Context& context, const Call& call) {
    if (!liesBelow(call.word(0), context.folders.work))
        throw ScriptFailure("a path below ${WORK}", call.word(0));
    std::error_code error;
    const auto removed = fs::remove_all(call.word(0), error);
    if (error)
        throw ScriptFailure("to remove " + call.word(0), error.message());
    if (removed == 0)
        throw ScriptFailure("a file or folder " + call.word(0), "nothing there");
}

/// The offsets of the lines of a file that equal a line, found without decoding the file, so that a
/// replacement changes nothing else.
std::vector<std::size_t> findLines(std::string_view bytes, std::string_view line, std::string_view lineFeed,
                                   std::string_view carriageReturn, std::size_t markLength) {
    std::vector<std::size_t> found;
    const std::size_t unit = lineFeed.size();
    std::size_t start = markLength;
    const auto take = [&](std::size_t end) {
        std::string_view content = bytes.substr(start, end - start);
        if (content.ends_with(carriageReturn))
            content.remove_suffix(unit);
        if (content == line)
            found.push_back(start);
    };
    for (std::size_t at = markLength; at + unit <= bytes.size(); at += unit) {
        if (bytes.substr(at, unit) != lineFeed)
            continue;
        take(at);
        start = at + unit;
    }
    if (start < bytes.size())
        take(bytes.size());
    return found;
}

void replace(Context& context, const Call& call) {
    constexpr std::string_view kMark8 = "\xEF\xBB\xBF";
    const CodePage codePage = context.program.codePage();
    std::string bytes = readFileBytes(call.word(0));
    const auto encoded = [&](std::string_view text) { return encodeLike(bytes, text, codePage); };
    std::size_t markLength = 0;
    if (unitLike(bytes) == 2)
        markLength = 2;
    else if (bytes.starts_with(kMark8))
        markLength = kMark8.size();
    const std::string old = encoded(call.word(1));
    const auto found = findLines(bytes, old, encoded("\n"), encoded("\r"), markLength);
    if (found.size() != 1)
        throw ScriptFailure("exactly one line " + quote(call.word(1)) + " in " + call.word(0),
                            std::to_string(found.size()));
    const std::string fresh = encoded(call.word(2));
    bytes.replace(found.front(), old.size(), fresh);
    writeFileBytes(call.word(0), bytes);
}

void generator(Context& context, const Call& call) {
    context.program.setGeneratorAnswer(call.word(0));
}

constexpr std::array kCommands{
    CommandRule{"setting", 2, 2, kNoBlock, setting},
    CommandRule{"mkdir", 1, 1, kNoBlock, mkdir},
    CommandRule{"writefile", 1, 2, BlockKind::Lines, writeFile},
    CommandRule{"copy", 2, 2, kNoBlock, copy},
    CommandRule{"remove", 1, 1, kNoBlock, remove},
    CommandRule{"replace", 3, 3, kNoBlock, replace},
    CommandRule{"generator", 1, 1, kNoBlock, generator},
};

} // namespace

std::span<const CommandRule> preparingCommands() {
    return kCommands;
}

} // namespace zb
