#include "platform/guarded_write.h"

#include "platform/scratch_file.h"
#include "platform/text_file.h"

#include <charconv>
#include <optional>
#include <string>

namespace zb {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kKind = "zbguard";
constexpr std::string_view kHeader = "zbguard ";
constexpr unsigned kPrivateMode = 0600;

// Old and new content, after a line with the length of the old one. The file is complete when it ends with
// the last byte of the new content, which contains its own length.
std::string guardText(std::string_view before, std::string_view after) {
    std::string text(kHeader);
    text += std::to_string(before.size()) + " " + std::to_string(after.size()) + "\n";
    text += before;
    return text += after;
}

struct Guard {
    std::string before;
    std::string after;
};

std::optional<Guard> parseGuard(std::string_view text) {
    const std::size_t end = text.find('\n');
    if (!text.starts_with(kHeader) || end == std::string_view::npos)
        return std::nullopt;
    std::size_t before = 0;
    std::size_t after = 0;
    const char* const last = text.data() + end;
    const auto first = std::from_chars(text.data() + kHeader.size(), last, before);
    if (first.ec != std::errc() || first.ptr == last || *first.ptr != ' ')
        return std::nullopt;
    const auto second = std::from_chars(first.ptr + 1, last, after);
    const std::string_view content = text.substr(end + 1);
    if (second.ec != std::errc() || second.ptr != last || before > content.size() ||
        content.size() - before != after)
        return std::nullopt;
    return Guard{std::string(content.substr(0, before)), std::string(content.substr(before))};
}

// Whether the file is the result of a stop between two writes: new content first, then old content.
bool isHalfWritten(std::string_view now, const Guard& guard) {
    const std::string_view old(guard.before);
    std::size_t same = 0;
    while (same < now.size() && same < guard.after.size() && now[same] == guard.after[same])
        ++same;
    if (now.size() > old.size())
        return same == now.size();
    return now.size() == old.size() && now.substr(same) == old.substr(same);
}

Result<void> overwrite(FileLayer& layer, const fs::path& target, std::string_view bytes) {
    const Result<int> descriptor = layer.openToWrite(target);
    if (!descriptor)
        return descriptor.error();
    Result<void> done = writeAll(layer, *descriptor, bytes);
    if (done)
        done = layer.truncate(*descriptor, bytes.size());
    if (done)
        done = layer.sync(*descriptor);
    const Result<void> closed = layer.close(*descriptor);
    return done ? closed : done;
}

} // namespace

Result<void> writeGuarded(FileLayer& layer, const fs::path& target, std::string_view bytes) {
    const Result<std::string> before = readBytes(target);
    if (!before)
        return namingFile("keep what is in", target, before.error());
    ScratchFile guard(layer, scratchPath(layer, target, kKind));
    Result<void> guarded = guard.create(kPrivateMode);
    if (guarded)
        guarded = guard.write(guardText(*before, bytes));
    if (guarded)
        guarded = guard.finish();
    if (!guarded)
        return guarded;
    static_cast<void>(layer.syncFolder(target.parent_path()));
    const Result<void> written = overwrite(layer, target, bytes);
    if (written)
        return {};
    if (overwrite(layer, target, *before))
        return namingFile("write", target, written.error());
    guard.keep();
    FileError error = namingFile("write", target, written.error());
    error.description += ". What was in it is in " + guard.path().string();
    return error;
}

void finishGuardedWrite(FileLayer& layer, const fs::path& target) {
    // Whoever puts a link and a guard into a folder must not reach a file elsewhere.
    const Result<FileStatus> status = layer.status(target);
    if (!status || status->kind != FileKind::Regular)
        return;
    for (const fs::path& path : staleScratch(layer, target, kKind)) {
        const Result<std::string> text = readBytes(path);
        const Result<std::string> now = readBytes(target);
        if (!text || !now)
            continue;
        const std::optional<Guard> guard = parseGuard(*text);
        // An incomplete guard belongs to a write that did not begin.
        if (guard && *now != guard->before && *now != guard->after) {
            if (!isHalfWritten(*now, *guard) || !overwrite(layer, target, guard->after))
                continue;
        }
        static_cast<void>(layer.remove(path));
    }
}

} // namespace zb
