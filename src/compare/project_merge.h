#pragma once

#include "compare/merge_context.h"
#include "project/project.h"

#include <vector>

namespace zb {

struct ProjectMerge {
    Project project;
    /// What both sides changed differently: the project has the value of the preferred side.
    std::vector<MergeConflict> conflicts;
};

/// Merges what two sides made of one project: fields of heads, items, fields of TR messages and of their
/// items, rows of sequences. What one side alone changed, added, removed or moved is taken; what no side
/// touched stays byte by byte. The result reads back as it is written.
ProjectMerge mergeProjects(const Project& base, const Project& ours, const Project& theirs,
                           Preferred preferred = Preferred::Ours);

/// The first project with some of the differences taken over from the second one, so that they are none any
/// more. `differences` are of `compareProjects(project, other)`. A moved item that is in another list is
/// removed there and added here.
Project takeDifferences(const Project& project, const Project& other, const Differences& differences);

} // namespace zb
