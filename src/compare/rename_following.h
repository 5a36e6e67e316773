#pragma once

#include "compare/project_parts.h"
#include "project/project.h"

namespace zb {

/// A SECS message that one side renamed has its old name in the TR messages that the other side added, or let
/// use it. In the merged project they get the new name, with the heads of their data, as the renaming side's
/// own TR messages did.
void followRenames(Project& merged, const ProjectParts& base, const ProjectParts& ours,
                   const ProjectParts& theirs);

} // namespace zb
