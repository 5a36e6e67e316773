#pragma once

#include "compare/aligned_rows.h"
#include "platform/progress.h"
#include "platform/tree/node_tree.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace zb {

/// What a difference needs the user's eye for: it breaks a side, or is a conflict.
using UrgentRows = std::vector<bool>;

/// The rows as the nodes of one version, which are the same ones in number and place for each version. A text
/// begins with its sign: "+" for what only the later version has, "-" for what only the earlier one has, "~"
/// for what differs, and "!" follows for what is urgent; an equal row has no sign. The text of a missing row
/// is empty.
std::unique_ptr<NodeTree> treeOfVersion(const AlignedProjects& projects, std::size_t version,
                                        std::size_t others, const UrgentRows& urgent,
                                        const Progress& progress = {});

/// The row after the last one below this one.
std::size_t endOfRows(const std::vector<AlignedRow>& rows, std::size_t row);
/// Whether something differs in the row itself.
bool differsHere(const AlignedRow& row, std::size_t others);

} // namespace zb
