#pragma once

#include "compare/merge_context.h"
#include "platform/file_layer.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zb {

/// The ending that the file of a merged project's conflicts has after the project's own name.
inline constexpr const char* kConflictsEnding = ".conflicts";

/// The conflicts as the file beside a merged project has them: a JSON list with one object each.
std::string composeConflicts(const std::vector<MergeConflict>& conflicts);
/// Writes them to the file, or removes it when there are none. A link at its place is replaced and not
/// followed: it may have come with the project, and lead to any file of the user.
Result<void> writeConflicts(FileLayer& files, const std::filesystem::path& file,
                            const std::vector<MergeConflict>& conflicts);
/// The inverse of `composeConflicts`. Nothing for a text that is no such list.
std::optional<std::vector<MergeConflict>> readConflicts(std::string_view text);

/// A value of the conflict for people: of statements only their text. None stays none.
std::optional<std::string> shownConflictValue(const MergeConflict& conflict,
                                              const std::optional<std::string>& value);

} // namespace zb
