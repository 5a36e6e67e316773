#pragma once

#include "compare/difference.h"
#include "compare/project_comparison.h"
#include "compare/united_order.h"
#include "platform/progress.h"
#include "project/project.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zb {

/// A row of projects that are shown side by side: what belongs together is in one row.
struct AlignedRow {
    /// A section of the project; a message, TR message, sequence or foreign section; a field of one; an item
    /// or row of one.
    enum class Role { Section, Part, Field, Item };

    std::size_t level = 0; ///< 0 for a section
    Role role = Role::Section;
    /// In each version, as text for people; none where it is missing. The first version is the project that
    /// the others are compared with.
    std::array<std::optional<std::string>, kMostVersions> texts;
    /// What differs here, as positions in the lists of differences to the other versions.
    std::array<std::vector<std::size_t>, kMostVersions - 1> differences;

    /// Whether the other version (0 or 1) has something else than the first one in this row.
    bool differsFrom(std::size_t other) const {
        return !differences[other].empty() || texts[0].has_value() != texts[other + 1].has_value();
    }
};

struct AlignedProjects {
    /// From the top down, each row before those below it.
    std::vector<AlignedRow> rows;
    /// What `compareProjects` finds from the first version to each of the others.
    std::array<Differences, kMostVersions - 1> differences;
};

/// Only rows that differ, with the rows above them, or all rows.
enum class AlignedExtent { OnlyDifferences, All };

/// Puts a project and one or two others side by side. The time is that of `compareProjects`, and linear in
/// the rows. May throw Cancelled between its steps.
AlignedProjects alignProjects(const Project& project, const std::vector<const Project*>& others,
                              CompareScope scope = CompareScope::Whole,
                              AlignedExtent extent = AlignedExtent::OnlyDifferences,
                              const Progress& progress = {});

} // namespace zb
