#pragma once

#include "compare/part_form.h"
#include "compare/row_list.h"

#include <array>
#include <optional>
#include <string_view>

namespace zb {

/// One part as each version has it; none where it is missing.
using PartVersions = std::array<std::optional<std::string_view>, kMostVersions>;

/// Adds the rows of one part of so many versions: its head, its fields, its items. Fields that the head shows
/// have rows of their own only where they differ, the others wherever they are not empty.
void addRowsOfPart(const PartForm& form, const PartVersions& versions, std::size_t count, RowList& rows);

} // namespace zb
