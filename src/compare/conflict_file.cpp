#include "compare/conflict_file.h"

#include "platform/file_access.h"
#include "platform/file_replacer.h"
#include "platform/ordered_json.h"
#include "platform/text_file.h"

#include <array>

namespace zb {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::array kKinds{PartKind::Message, PartKind::Item,     PartKind::TrMessage,
                            PartKind::TrItem,  PartKind::Sequence, PartKind::Project};
constexpr std::size_t kDeepest = 4;

Json jsonOf(const std::optional<std::string>& text) {
    return text ? Json(*text) : Json();
}

std::optional<PartKind> kindOf(const std::string& word) {
    for (const PartKind kind : kKinds) {
        if (wordOf(kind) == word)
            return kind;
    }
    return std::nullopt;
}

/// A member that is a text; an empty one when it is missing or something else.
std::string textOf(const Json& object, const char* member) {
    const auto found = object.find(member);
    return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

std::optional<std::string> valueOf(const Json& object, const char* member) {
    const auto found = object.find(member);
    return found != object.end() && found->is_string() ? std::optional(found->get<std::string>())
                                                       : std::nullopt;
}

} // namespace

std::string composeConflicts(const std::vector<MergeConflict>& conflicts) {
    Json list = Json::array();
    for (const MergeConflict& conflict : conflicts)
        list.push_back({{"kind", wordOf(conflict.kind)},
                        {"name", conflict.place.name},
                        {"path", conflict.place.path},
                        {"field", conflict.field},
                        {"base", jsonOf(conflict.base)},
                        {"ours", jsonOf(conflict.ours)},
                        {"theirs", jsonOf(conflict.theirs)}});
    return list.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

Result<void> writeConflicts(FileLayer& files, const std::filesystem::path& file,
                            const std::vector<MergeConflict>& conflicts) {
    const Result<FileStatus> there = files.status(file);
    if (conflicts.empty() || (there && there->kind == FileKind::Link)) {
        if (const Result<void> removed = deleteFileIfExists(files, file.string()); !removed)
            return removed.error();
    }
    return conflicts.empty() ? Result<void>() : replaceFile(files, file, composeConflicts(conflicts));
}

std::optional<std::vector<MergeConflict>> readConflicts(std::string_view text) {
    const std::optional<Json> list = readOrderedJson(text, kDeepest);
    if (!list || !list->is_array())
        return std::nullopt;
    std::vector<MergeConflict> conflicts;
    for (const Json& object : *list) {
        const auto kind = object.is_object() ? kindOf(textOf(object, "kind")) : std::nullopt;
        if (!kind)
            return std::nullopt;
        conflicts.push_back({*kind,
                             {textOf(object, "name"), textOf(object, "path")},
                             textOf(object, "field"),
                             valueOf(object, "base"),
                             valueOf(object, "ours"),
                             valueOf(object, "theirs")});
    }
    return conflicts;
}

std::optional<std::string> shownConflictValue(const MergeConflict& conflict,
                                              const std::optional<std::string>& value) {
    constexpr std::string_view kStatement = "StatementText ";
    if (!value || conflict.field != "statements")
        return value;
    std::string text;
    LineReader lines(*value);
    while (const auto line = lines.next()) {
        if (line->starts_with(kStatement))
            text.append(text.empty() ? "" : "\n").append(line->substr(kStatement.size()));
    }
    return text;
}

} // namespace zb
